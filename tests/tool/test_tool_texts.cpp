// SPDX-License-Identifier: MIT
// Text boxes in documents and burnt-in frames, and the table of macros.
#include <gtest/gtest.h>

#include "modes/ann_text_tool_mode.h"
#include "objects/ann_text.h"
#include "painters/pixel_matchers.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// A video of ten frames. Without a window a box is dragged out but not edited, so the test gives
/// it its text.
class ToolTexts : public testing::TestWithParam<bool> {
protected:
  ToolTexts() : m_driver(10, false, GetParam()) {
    AnnTextProperties &look = *m_driver.Tool().GetToolModes().text->m_properties;
    look.SetFont(wxFont(wxFontInfo(12).FaceName("DejaVu Sans")));
    look.SetFontColor(*wxRED);
    m_driver.Tool().SetExtensionColour(wxNullColour);
  }

  AnnText &AddBox(wxString const &text) {
    m_driver.UseTool(Types::Text);
    m_driver.Drag({10, 10}, {190, 50});
    AnnText &box = *m_driver.ObjectAs<AnnText>();
    box.SetTextAndParse(text, {});
    m_driver.Tool().Deactivate();
    return box;
  }

  wxImage Burn(AnnotationTool::MacroPairs const &macros, std::int64_t frame = 0) {
    wxImage picture(200, 60);
    picture.SetRGB(wxRect(0, 0, 200, 60), 255, 255, 255);
    return m_driver.Tool().GetAnnotatedFrame(picture, {frame, 10, false}, macros);
  }

  wxJSONValue Document() {
    wxJSONValue document(wxJSONTYPE_OBJECT);
    document.Set("Annotate", m_driver.Tool().GetJSON());
    return document;
  }

  ToolDriver m_driver;
};

INSTANTIATE_TEST_SUITE_P(, ToolTexts, testing::Bool(), [](auto const &painter) {
  return painter.param ? "DeviceContext" : "GraphicsContext";
});

TEST_P(ToolTexts, EachFrameIsBurntInWithItsOwnValues) {
  AddBox("17").SetEndFrame(9);
  wxImage const plain = Burn({}, 4);
  EXPECT_FALSE(pixels::BoundsOfPaint(plain).IsEmpty());
  m_driver.Tool().ClearAllAnnotations();
  AddBox("%F%").SetEndFrame(9);
  EXPECT_TRUE(pixels::Alike(Burn({{"%F%", "17"}}, 4), plain, 0));
  EXPECT_FALSE(pixels::Alike(Burn({{"%F%", "18"}}, 5), plain, 0));
}

TEST_P(ToolTexts, TableIsAsBeforeAfterAFrameWasBurntIn) {
  AnnText &box = AddBox("%F% %N%");
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "1"}});
  ASSERT_EQ(box.GetParsedText(), "1 %N%");
  wxImage const before = Burn({});
  Burn({{"%F%", "2"}, {"%N%", "name"}});
  EXPECT_EQ(box.GetParsedText(), "1 %N%");
  EXPECT_TRUE(pixels::Alike(Burn({}), before, 0));
  m_driver.Tool().UpdateTextMacrosMap({});
  EXPECT_EQ(box.GetParsedText(), "1 %N%");
}

TEST_P(ToolTexts, ValuesOfKeysThatAreNotNamedStay) {
  AnnText &box = AddBox("%F% %N%");
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "1"}, {"%N%", "a"}});
  m_driver.Tool().UpdateTextMacrosMap({{"%N%", "b"}});
  EXPECT_EQ(box.GetParsedText(), "1 b");
}

TEST_P(ToolTexts, KeysDifferByCase) {
  AnnText &box = AddBox("%f% %F%");
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "1"}, {"%f%", "2"}});
  EXPECT_EQ(box.GetParsedText(), "2 1");
}

TEST_P(ToolTexts, OnlyTextsOfTheCurrentFrameAreParsed) {
  AnnText &box = AddBox("%F%");
  m_driver.GoToFrame(3);
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "1"}});
  EXPECT_EQ(box.GetParsedText(), "%F%");
  m_driver.GoToFrame(0);
  m_driver.Tool().UpdateTextMacrosMap({});
  EXPECT_EQ(box.GetParsedText(), "1");
}

TEST_P(ToolTexts, RestoredBoxShowsItsTextAfterTheMacrosAreUpdated) {
  AddBox("frame %F%");
  wxImage const before = Burn({{"%F%", "1"}});
  wxJSONValue const document = Document();
  m_driver.Tool().FromJSON(document, 10);
  m_driver.Tool().SetExtensionColour(wxNullColour);
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  AnnText const &restored = *m_driver.ObjectAs<AnnText>();
  EXPECT_EQ(restored.GetText(), "frame %F%");
  EXPECT_EQ(restored.GetParsedText(), "");
  m_driver.Tool().UpdateTextMacrosMap({});
  EXPECT_EQ(restored.GetParsedText(), "frame %F%");
  EXPECT_TRUE(pixels::Alike(Burn({{"%F%", "1"}}), before, 0));
}

TEST_P(ToolTexts, RestoringForgetsTheMacros) {
  AddBox("%F%");
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "1"}});
  m_driver.Tool().FromJSON(Document(), 10);
  m_driver.Tool().UpdateTextMacrosMap({});
  EXPECT_EQ(m_driver.ObjectAs<AnnText>()->GetParsedText(), "%F%");
}

TEST_P(ToolTexts, EmptyBoxIsNotRestored) {
  AddBox("here");
  AddBox(" ");
  ASSERT_EQ(m_driver.ObjectCount(), 2U);
  m_driver.ObjectAs<AnnText>(0)->SetTextAndParse("", {});
  m_driver.Tool().OnJsonChanged();
  m_driver.Tool().FromJSON(Document(), 10);
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_EQ(m_driver.ObjectAs<AnnText>()->GetText(), "here");
}

TEST_P(ToolTexts, RangeOfTheBoxReachesTheDocument) {
  AddBox("here");
  m_driver.Move(15, 15);
  m_driver.Press(15, 15);
  m_driver.Release(15, 15);
  ASSERT_NE(m_driver.Selected(), nullptr);
  m_driver.Tool().SetSelectedsAnnotationEnd(7);
  wxJSONValue const rectangle =
      m_driver.Tool().GetJSON().ItemAt("Objects").ItemAt(0).ItemAt("Rectangle");
  EXPECT_EQ(rectangle.ItemAt("EndFrame").AsInt(), 7);
  m_driver.Tool().FromJSON(Document(), 10);
  EXPECT_EQ(m_driver.Object()->GetFrameDuration(), (std::pair<std::int64_t, std::int64_t>(0, 7)));
}

TEST_P(ToolTexts, BoxWithTooLongRunsIsLeftOut) {
  AddBox("here");
  std::string text = JsonToUtf8(Document());
  std::string const range = R"("Range":[0,0])";
  text.replace(text.find(range), range.size(), R"("Range":[0,9000000000])");
  m_driver.Tool().FromJSON(JsonFromUtf8(text), 10);
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
}

}  // namespace

}  // namespace framenote::test
