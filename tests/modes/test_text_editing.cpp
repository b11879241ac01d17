// SPDX-License-Identifier: MIT
// The text tool as a user has it: real mouse, real keys, and what the screen shows.
#include <gtest/gtest.h>

#include "modes/text_canvas_fixture.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// With both painters, at twice the size and at the picture's own.
class TextEditing : public TextCanvasTest,
                    public testing::WithParamInterface<std::tuple<bool, int>> {
protected:
  TextEditing() : TextCanvasTest(1, std::get<0>(GetParam())) { m_scale = std::get<1>(GetParam()); }

  void ClickElsewhere() { Click(20, 120); }

  /// Two picture pixels: the heights of fonts do not grow in step with their sizes.
  int Tolerance() const { return wxRound(2 * m_scale); }
};

std::string CaseName(testing::TestParamInfo<std::tuple<bool, int>> const &parameter) {
  auto const [withDeviceContext, zoom] = parameter.param;
  return (withDeviceContext ? "DeviceContextAtZoom" : "GraphicsContextAtZoom") +
         std::to_string(zoom);
}

INSTANTIATE_TEST_SUITE_P(, TextEditing, testing::Combine(testing::Bool(), testing::Values(1, 2)),
                         CaseName);

TEST_P(TextEditing, EditorLiesWhereTheTextIsPaintedThen) {
  DrawBox({60, 20}, {220, 100});
  Type("First line");
  TypeReturn();
  Type("2nd");
  wxRect const edited = Ink();
  EXPECT_EQ(Text(), "First line\n2nd");
  ClickElsewhere();
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(Covers(Ink(), edited, Tolerance()));
}

TEST_P(TextEditing, TextIsTypedSelectedAndEditedAgain) {
  DrawBox({60, 20}, {220, 100});
  Type("Plate");
  TypeReturn();
  Type("unread");
  EXPECT_EQ(Started(), 1U);
  ClickElsewhere();
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(Finished(), 1U);
  // The box is hit beside its text too.
  Click(100, 85);
  EXPECT_EQ(m_driver.Selected(), &Box());
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  // One click on the text of the selected box opens it. The lines lie about the box's middle.
  Click(140, 60);
  ASSERT_EQ(m_driver.State(), ToolState::Editing);
  EXPECT_EQ(Started(), 2U);
  Type("able");
  ClickElsewhere();
  EXPECT_EQ(Text(), "Plate\nunreadable");
  EXPECT_EQ(Box().GetTextLines(), (std::vector<wxString>{"Plate", "unreadable"}));
  EXPECT_EQ(Finished(), 2U);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_P(TextEditing, SelectingAnotherObjectByTheHostKeepsWhatWasTyped) {
  m_driver.DrawShape({10, 120}, {50, 160});
  m_driver.UseTool(Types::Text);
  DrawBox({60, 20}, {220, 100});
  Type("Kept");
  m_driver.Tool().SelectObject(1);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Text(), "Kept");
  EXPECT_EQ(Finished(), 1U);
  EXPECT_EQ(m_driver.Selected(), m_driver.Object(1));
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_P(TextEditing, SelectingAnotherObjectByTheHostDropsAnEmptyBox) {
  m_driver.DrawShape({10, 120}, {50, 160});
  m_driver.UseTool(Types::Text);
  DrawBox({60, 20}, {220, 100});
  m_driver.Tool().SelectObject(1);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.Selected(), m_driver.Object());
}

TEST_P(TextEditing, TextFollowsTheBoxThatIsMovedResizedAndTurned) {
  DrawBox({60, 20}, {220, 100});
  Type("Here");
  ClickElsewhere();
  wxRect const first = Ink();
  int const zoom = std::get<1>(GetParam());
  Drag({{100, 85}, {110, 90}, {120, 105}});
  EXPECT_EQ(Record().m_topLeft, wxPoint2DDouble(80, 40));
  wxRect moved = first;
  moved.Offset(20 * zoom, 20 * zoom);
  EXPECT_TRUE(Covers(Ink(), moved, 1));
  // From (240, 120) to (220, 100): the middle moves by half of that.
  Drag({{240, 120}, {230, 110}, {220, 100}});
  EXPECT_EQ(Record().m_bottomRight, wxPoint2DDouble(220, 100));
  wxRect resized = moved;
  resized.Offset(-10 * zoom, -10 * zoom);
  EXPECT_TRUE(Covers(Ink(), resized, 2));
  // A quarter turn about the middle (150, 70): what was wide is high then.
  MoveTo(150, 70);
  MoveTo(150, 40 - 30 / zoom);
  Drag({{150, 40 - 30 / zoom}, {200, 60}, {220, 70}});
  wxRect const turned = Ink();
  EXPECT_NEAR(turned.height, resized.width, 2);
  EXPECT_NEAR(turned.width, resized.height, 2);
}

TEST_P(TextEditing, EditorFollowsTheZoom) {
  DrawBox({60, 20}, {180, 80});
  Type("Zoomed");
  m_scale += 1.0;
  Repaint();
  wxRect const edited = Ink();
  ClickElsewhere();
  EXPECT_TRUE(Covers(Ink(), edited, Tolerance()));
}

TEST_P(TextEditing, EditorFollowsTheView) {
  DrawBox({60, 20}, {180, 80});
  Type("Scrolled");
  wxRect before = Ink();
  m_offset = {-15.0, 5.0};
  Repaint();
  int const zoom = std::get<1>(GetParam());
  before.Offset(-20 * zoom, -5 * zoom);
  EXPECT_TRUE(Covers(Ink(), before, 0));
}

/// Latin with accents, Cyrillic, Arabic, Chinese, an emoji, and two lines.
class InternationalText : public TextCanvasTest,
                          public testing::WithParamInterface<char const *> {};

INSTANTIATE_TEST_SUITE_P(, InternationalText,
                         testing::Values("\xC3\xA9t\xC3\xA9 \xC3\xBC", "\xD0\x96\xD0\xB8\xD0\xB7",
                                         "\xD9\x85\xD8\xB1\xD8\xAD\xD8\xA8\xD8\xA7",
                                         "\xE4\xB8\xAD\xE6\x96\x87", "\xF0\x9F\x98\x80", "a\nb"));

TEST_P(InternationalText, IsTypedSavedRestoredAndBurntIn) {
  Look().SetFont(wxFont(wxFontInfo(14).FaceName("No Such Face")));
  DrawBox({60, 20}, {220, 100});
  wxString const text = wxString::FromUTF8(GetParam());
  // As an input method does, rather than a key.
  Editor()->WriteText(text);
  m_driver.Tool().Deactivate();
  EXPECT_EQ(Box().GetText(), text);

  std::string const saved = R"({"Annotate":)" + m_driver.DocumentText() + "}";
  EXPECT_NE(saved.find("No Such Face"), std::string::npos);
  m_driver.Tool().FromJSON(JsonFromUtf8(saved), 1);
  EXPECT_EQ(Box().GetText(), text);
  EXPECT_EQ(R"({"Annotate":)" + m_driver.DocumentText() + "}", saved);

  wxImage picture(300, 120);
  picture.SetRGB(wxRect(0, 0, 300, 120), 255, 255, 255);
  m_driver.Tool().SetExtensionColour(wxNullColour);
  wxImage const burnt = m_driver.Tool().GetAnnotatedFrame(picture, {0, 1, false}, {});
  wxRect const ink = pixels::BoundsOfPaint(burnt);
  EXPECT_GT(ink.height, 8);
  EXPECT_TRUE(wxRect(60, 20, 161, 81).Contains(ink));
}

}  // namespace

}  // namespace framenote::test
