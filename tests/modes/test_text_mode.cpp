// SPDX-License-Identifier: MIT
// The text mode's states, step by step.
#include <cmath>

#include <wx/dcclient.h>

#include <gtest/gtest.h>

#include "modes/ann_shape_tool_mode.h"
#include "modes/text_canvas_fixture.h"
#include "objects/ann_shape.h"
#include "support/keys_in_menu.h"

namespace framenote::test {

namespace {

/// A box from (60, 20) to (220, 100), being edited, whose text is "abc".
class TextMode : public TextCanvasTest {
protected:
  TextMode() : TextCanvasTest(10) {}

  void SetUp() override {
    TextCanvasTest::SetUp();
    Look().SetFontColor(*wxRED);
    DrawBox({60, 20}, {220, 100});
    Editor()->WriteText("abc");
    m_driver.SetScale(m_scale);
  }
};

TEST_F(TextMode, SmallDragMakesNoBox) {
  m_driver.Tool().ClearAllAnnotations();
  m_driver.UseTool(Types::Text);
  m_driver.Press(20, 20);
  m_driver.Move(23, 30);
  m_driver.Release(23, 30);
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  m_driver.Press(20, 20);
  m_driver.Move(24, 24);
  m_driver.Release(24, 24);
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(TextMode, BoxTakesTheLookOfTheRecordAndIsNew) {
  EXPECT_EQ(Box().TextProperties().GetFontColor(), *wxRED);
  auto const *selected = m_driver.Sink().Last(wxEVT_ANN_OBJECT_SELECTED);
  ASSERT_NE(selected, nullptr);
  EXPECT_TRUE(selected->IsNew());
}

TEST_F(TextMode, EachChangeReachesTheObject) {
  Editor()->WriteText(" d");
  EXPECT_EQ(Text(), "abc d");
  EXPECT_EQ(Box().GetParsedText(), "abc d");
}

TEST_F(TextMode, MacrosAreReplacedWhileTyping) {
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "17"}});
  Editor()->WriteText("%F%");
  EXPECT_EQ(Text(), "abc%F%");
  EXPECT_EQ(Box().GetParsedText(), "abc17");
}

TEST_F(TextMode, PressOnTheTextGoesOnEditing) {
  m_driver.Press(140, 60);
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
  EXPECT_NE(Editor(), nullptr);
  EXPECT_EQ(Finished(), 0U);
}

TEST_F(TextMode, PressInTheBoxEndsEditingAndStartsAMove) {
  m_driver.Press(70, 30);
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Finished(), 1U);
}

TEST_F(TextMode, PressOnAHandleEndsEditingAndStartsAResize) {
  // Inside the box a press moves it, unless a handle is near; this one is outside it.
  m_driver.Press(223, 102);
  EXPECT_EQ(m_driver.State(), ToolState::Resizing);
  EXPECT_EQ(Editor(), nullptr);
  m_driver.Move(260, 120);
  EXPECT_NEAR(Record().m_bottomRight.m_x, 260.0, 1e-9);
}

TEST_F(TextMode, PressOnTheRotationHandleEndsEditingAndStartsATurn) {
  // 30 screen pixels above the middle of the top side, at twice the size.
  m_driver.Press(140, 5);
  EXPECT_EQ(m_driver.State(), ToolState::Rotating);
  m_driver.Move(400, 60);
  EXPECT_NEAR(Box().GetRotationAngle(), 1.5707963267948966, 0.01);
}

TEST_F(TextMode, PressOnNothingEndsEditingAndDraws) {
  m_driver.Press(20, 150);
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(Finished(), 1U);
}

/// The same beside a filled rectangle from (250, 20) to (290, 60), which lies behind it.
class TextModeBesideAShape : public TextMode {
protected:
  void SetUp() override {
    TextCanvasTest::SetUp();
    m_driver.Tool().GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
    m_driver.SetScale(m_scale);
    m_driver.DrawShape({250, 20}, {290, 60});
    m_driver.Tool().Deactivate();
    m_driver.UseTool(Types::Text);
    DrawBox({60, 20}, {220, 100});
    Editor()->WriteText("abc");
  }
  AnnShape &Shape() { return *m_driver.ObjectAs<AnnShape>(1); }
};

TEST_F(TextModeBesideAShape, ObjectUnderThePointerIsHoveredWhileATextIsEdited) {
  EXPECT_EQ(m_driver.Move(270, 40), wxCURSOR_SIZING);
  EXPECT_TRUE(Shape().IsFocused());
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
  EXPECT_EQ(m_driver.Move(20, 150), wxCURSOR_CROSS);
  EXPECT_FALSE(Shape().IsFocused());
}

TEST_F(TextModeBesideAShape, PressOnAnotherObjectEndsEditingAndMovesThatObject) {
  m_driver.Move(270, 40);
  m_driver.Press(270, 40);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Finished(), 1U);
  EXPECT_EQ(m_driver.Selected(), &Shape());
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
  m_driver.Move(275, 50);
  m_driver.Release(275, 50);
  EXPECT_EQ(Shape().GetCoordinates().Coords().m_topLeft, wxPoint2DDouble(255, 30));
  EXPECT_EQ(m_driver.ObjectAs<AnnText>(0)->GetText(), "abc");
}

TEST_F(TextModeBesideAShape, PressOnAnotherObjectTakesItFromASelectedText) {
  m_driver.Press(70, 30);
  m_driver.Release(70, 30);
  ASSERT_EQ(m_driver.State(), ToolState::Selected);
  m_driver.Move(270, 40);
  m_driver.Press(270, 40);
  EXPECT_EQ(m_driver.Selected(), &Shape());
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
}

TEST_F(TextModeBesideAShape, PressOnNothingTakesTheNextBoxFromASelectedText) {
  m_driver.Press(70, 30);
  m_driver.Release(70, 30);
  m_driver.Press(20, 150);
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
}

TEST_F(TextMode, RightReleaseBesideTheTextEndsEditing) {
  m_driver.RightRelease(140, 60);
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
  // The menu opens then.
  KeysInMenu const closed({WXK_ESCAPE}, m_mouse);
  m_driver.RightRelease(70, 30);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(Finished(), 1U);
}

TEST_F(TextMode, MotionWhileEditingOnlyWorksOutTheCursor) {
  EXPECT_EQ(m_driver.Move(140, 60), wxCURSOR_IBEAM);
  EXPECT_EQ(m_driver.Move(70, 40), wxCURSOR_SIZING);
  EXPECT_EQ(m_driver.Move(220, 100), wxCURSOR_SIZENWSE);
  EXPECT_EQ(m_driver.Move(140, 5), wxCURSOR_QUESTION_ARROW);
  EXPECT_EQ(m_driver.Move(20, 150), wxCURSOR_CROSS);
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
}

TEST_F(TextMode, DoubleClickInTheBoxOpensTheEditor) {
  Click(20, 120);
  Click(70, 90);
  ASSERT_EQ(m_driver.State(), ToolState::Selected);
  m_driver.DoubleClick(75, 95);
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
  EXPECT_NE(Editor(), nullptr);
}

TEST_F(TextMode, DoubleClickBesideTheBoxDoesNothing) {
  Click(20, 120);
  Click(70, 90);
  m_driver.DoubleClick(300, 150);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_F(TextMode, EmptyBoxGoesWithItsSelection) {
  Editor()->SetValue("");
  Click(20, 120);
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
}

TEST_F(TextMode, DeactivateKeepsTheTextAndPostsNoFinishedEvent) {
  Editor()->WriteText("d");
  m_driver.Tool().Deactivate();
  EXPECT_EQ(Text(), "abcd");
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(Finished(), 0U);
  EXPECT_NE(m_driver.DocumentText().find("abcd"), std::string::npos);
}

TEST_F(TextMode, AnotherToolEndsEditing) {
  m_driver.UseTool(Types::Shape);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(Text(), "abc");
  EXPECT_NE(m_driver.DocumentText().find("abc"), std::string::npos);
}

TEST_F(TextMode, StoppedAndRewoundVideoEndsEditing) {
  m_driver.GoToFrame(3, true);
  ASSERT_EQ(m_driver.State(), ToolState::Editing);
  m_driver.GoToFrame(0, false);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Finished(), 1U);
  EXPECT_EQ(m_driver.Selected(), nullptr);
  EXPECT_EQ(Text(), "abc");
}

TEST_F(TextMode, NothingIsLeftOfTheEditorOfObjectsThatAreGone) {
  m_driver.Tool().ClearAllAnnotations();
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(m_canvas->GetChildren().empty());
  EXPECT_EQ(m_driver.State(), ToolState::Default);
}

TEST_F(TextMode, EditorGoesBeforeItsObjects) {
  // A host may look at the tool while the editor is being destroyed.
  std::string seen;
  auto const look = [&](wxWindowDestroyEvent &event) {
    if (m_driver.ObjectCount() > 0) seen = m_driver.ObjectAs<AnnText>()->GetText().utf8_string();
    event.Skip();
  };
  Editor()->Bind(wxEVT_DESTROY, look);
  m_driver.Tool().ClearAllAnnotations();
  EXPECT_EQ(seen, "abc");
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
}

TEST_F(TextMode, RestoringClosesTheEditor) {
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", m_driver.Tool().GetJSON());
  m_driver.Tool().FromJSON(document, 10);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(m_canvas->GetChildren().empty());
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_TRUE(m_driver.Tool().IsIdle());
}

TEST_F(TextMode, EditorDoesNotOutliveItsTool) {
  auto tool = std::make_shared<AnnotationTool>(m_driver.Tool().GetConfig());
  {
    wxClientDC dc(m_canvas);
    tool->Draw(dc, m_canvas, {0.0, 0.0}, 1.0);
  }
  m_driver.Tool().Deactivate();
  tool->SetActiveTool(Types::Text);
  auto const send = [&](wxEventType type, int x, int y) {
    tool->ProcessMouseEvent({x, y}, wxMouseEvent(type), 1.0, {0.0, 0.0});
  };
  send(wxEVT_LEFT_DOWN, 10, 10);
  send(wxEVT_MOTION, 90, 50);
  send(wxEVT_LEFT_UP, 90, 50);
  std::shared_ptr<AnnTextToolMode> const mode = tool->GetToolModes().text;
  ASSERT_TRUE(mode->IsEditing());
  tool.reset();
  EXPECT_FALSE(mode->IsEditing());
  EXPECT_TRUE(m_canvas->GetChildren().empty());
}

TEST_F(TextMode, AnotherToolIsChosenAfterTheWindowIsGone) {
  m_canvas->Destroy();
  m_canvas = new wxWindow(m_frame, wxID_ANY);  // owned by the frame
  m_driver.UseTool(Types::Shape);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  m_driver.Press(70, 30);
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
}

TEST_F(TextMode, OnlyTheSelectedTextIsEdited) {
  m_driver.Tool().Deactivate();
  Mode().startEditing(Box());
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(Started(), 1U);
  Mode().stopEditing(Box());
  EXPECT_EQ(m_driver.State(), ToolState::Default);
}

TEST_F(TextMode, EditorMayBeClosedWhileItTakesTheFocus) {
  m_driver.Tool().Deactivate();
  wxTextCtrl *const elsewhere = new wxTextCtrl(m_frame, wxID_ANY);  // owned by the frame
  elsewhere->SetFocus();
  Settle([&] { return elsewhere->HasFocus(); });
  elsewhere->Bind(wxEVT_KILL_FOCUS, [&](wxFocusEvent &event) {
    m_driver.Tool().SetActiveTool(Types::Shape);
    event.Skip();
  });
  m_driver.UseTool(Types::Text);
  m_driver.Press(140, 60);
  m_driver.Release(140, 60);
  m_driver.DoubleClick(140, 60);
  wxYield();
  EXPECT_EQ(m_driver.State() == ToolState::Editing, Editor() != nullptr);
}

TEST_F(TextMode, ScaleBeyondAllMeasureLeavesAnEditor) {
  for (double const scale : {1e300, 1e9, -1.0, std::nan("")}) {
    m_driver.Tool().ProcessMouseEvent({140, 60}, wxMouseEvent(wxEVT_MOTION), scale, {0.0, 0.0});
    Mode().layoutTextCtrl(Box());
    ASSERT_NE(Editor(), nullptr);
    EXPECT_GE(Editor()->GetFont().GetFractionalPointSize(), 1.0);
  }
}

TEST_F(TextMode, PastedLinesMayEndInOtherWays) {
  Editor()->SetValue("one\r\ntwo\rthree\nfour");
  EXPECT_EQ(Box().GetText().Find('\r'), wxNOT_FOUND);
  EXPECT_EQ(Box().GetTextLines().size(), 4U);
  EXPECT_EQ(Text(), "one\ntwo\nthree\nfour");
}

TEST_F(TextMode, EditorMayGoWithItsWindow) {
  m_canvas->Destroy();
  m_canvas = new wxWindow(m_frame, wxID_ANY);  // owned by the frame
  EXPECT_FALSE(Mode().IsEditing());
  m_driver.Move(140, 60);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(Text(), "abc");
  m_driver.Press(70, 30);
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
}

TEST_F(TextMode, BackgroundOfTheEditorStandsOutFromTheLetters) {
  Look().SetFontColor(wxColour(128, 128, 128));
  Mode().ApplyProperties();
  EXPECT_EQ(Editor()->GetBackgroundColour(), *wxWHITE);
  Look().SetFontColor(wxColour(129, 129, 129));
  Mode().ApplyProperties();
  EXPECT_EQ(Editor()->GetBackgroundColour(), *wxBLACK);
  EXPECT_EQ(Editor()->GetForegroundColour(), wxColour(129, 129, 129));
}

TEST_F(TextMode, AlignmentReachesTheOpenEditor) {
  EXPECT_TRUE(Editor()->HasFlag(wxTE_CENTRE));
  Look().SetHorizontalAlignment(AnnTextProperties::Right);
  Mode().ApplyProperties();
  EXPECT_TRUE(Editor()->HasFlag(wxTE_RIGHT));
  EXPECT_FALSE(Editor()->HasFlag(wxTE_CENTRE));
}

TEST_F(TextMode, FontOfTheEditorNeverVanishes) {
  int const height = Box().TextProperties().GetFont().GetPixelSize().y;
  double const points = Box().TextProperties().GetFont().GetFractionalPointSize();
  m_scale = 0.01;
  Repaint();
  // One pixel of height, however small the picture.
  EXPECT_NEAR(Editor()->GetFont().GetFractionalPointSize(), std::max(1.0, points / height), 0.01);
}

TEST_F(TextMode, EditorIsPlacedByTheViewAtTheNextPaint) {
  wxRect const box = Box().GetTextBoxPosition();
  EXPECT_EQ(Editor()->GetPosition(), wxPoint((box.x + 5) * 2, (box.y + 10) * 2));
  EXPECT_EQ(Editor()->GetSize(), wxSize(box.width * 2, box.height * 2));
  m_scale = 3.0;
  Repaint();
  EXPECT_EQ(Editor()->GetPosition(), wxPoint((box.x + 5) * 3, (box.y + 10) * 3));
  EXPECT_EQ(Editor()->GetSize(), wxSize(box.width * 3, box.height * 3));
}

TEST_F(TextMode, TextBeyondWhatIsShownIsNotEdited) {
  Click(20, 120);
  Box().SetTextAndParse(wxString('x', AnnText::m_maxLength + 1), {});
  Click(70, 30);
  std::size_t const started = Started();
  m_driver.DoubleClick(75, 35);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(Started(), started);
}

TEST_F(TextMode, SeveralLinesAreMeasuredAsHighAsTheirSum) {
  wxFont const font = Box().TextProperties().GetFont();
  wxSize const one = Mode().MeasureText("abc", font, false);
  wxSize const three = Mode().MeasureText("abc\nabc\nabc", font, false);
  EXPECT_NEAR(three.y, 3 * one.y, 2);
  EXPECT_EQ(three.x, Mode().MeasureText("abc", font, false).x);
  // The descent comes on top of both, whatever the number of lines.
  wxSize const extra = Mode().MeasureText("abc", font, true) - one;
  EXPECT_GT(extra.x, 0);
  EXPECT_EQ(extra.x, extra.y);
  EXPECT_EQ(Mode().MeasureText("abc\nabc\nabc", font, true) - three, extra);
}

TEST_F(TextMode, ControlHasRoomForFourCapitalsInEachLine) {
  wxFont const font = Box().TextProperties().GetFont();
  EXPECT_EQ(Mode().MeasureTextCtrl("ab\nc", font), Mode().MeasureText("abMMMM\ncMMMM", font, true));
  Click(20, 120);
  ASSERT_EQ(Editor(), nullptr);
  EXPECT_EQ(Mode().MeasureTextCtrl("ab\nc", font), Mode().MeasureText("abMMMM\ncMMMM", font, true));
}

TEST_F(TextMode, PreviewIsAThinBlackOutline) {
  Click(20, 120);
  m_driver.Tool().ClearAllAnnotations();
  Drag({{0, 0}, {1, 1}, {1, 1}});
  m_driver.UseTool(Types::Text);
  m_driver.Press(20, 20);
  m_driver.Move(60, 50);
  auto const image = pixels::PaintedBy(
      IAnnPainter::DeviceContext, wxSize(100, 100), 1.0,
      [this](auto &painter) { Mode().DrawPreview(painter, wxPoint2DDouble(0, 0)); });
  EXPECT_EQ(pixels::BoundsOf(image, pixels::kBlack), wxRect(20, 20, 41, 31));
  EXPECT_TRUE(pixels::AreaHas(image, wxRect(22, 22, 37, 27), pixels::kWhite));
}

TEST_F(TextMode, PointerOverTheTextOfTheSelectedBoxShowsTheTextCursor) {
  Click(20, 120);
  Click(70, 90);
  EXPECT_EQ(m_driver.Move(140, 60), wxCURSOR_IBEAM);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(m_driver.Move(220, 100), wxCURSOR_SIZENWSE);
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
}

TEST_F(TextMode, PressOnTheRotationHandleOfTheSelectedBoxTurnsIt) {
  Click(20, 120);
  Click(70, 90);
  m_driver.Press(140, 5);
  EXPECT_EQ(m_driver.State(), ToolState::Rotating);
}

TEST_F(TextMode, MacroGoesToTheCaretOfTheEditor) {
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "17"}});
  Editor()->SetInsertionPoint(1);
  m_driver.Tool().AddTextMacro("%F%");
  EXPECT_EQ(Text(), "a%F%bc");
  EXPECT_EQ(Box().GetParsedText(), "a17bc");
  EXPECT_EQ(m_driver.State(), ToolState::Editing);
}

TEST_F(TextMode, MacroGoesToTheEndOfTheSelectedText) {
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "17"}});
  Click(20, 120);
  Click(70, 90);
  m_driver.Tool().AddTextMacro("%F%");
  EXPECT_EQ(Text(), "abc%F%");
  EXPECT_EQ(Box().GetParsedText(), "abc17");
  m_driver.Tool().AddTextMacro("");
  EXPECT_EQ(Text(), "abc%F%");
}

TEST_F(TextMode, MacroWithoutASelectedTextMakesABoxAtTheBottomOfThePicture) {
  Click(20, 120);
  m_driver.Tool().Deactivate();
  m_driver.Tool().SetImage(wxImage(300, 200), true);
  m_driver.Tool().UpdateTextMacrosMap({{"%F%", "frame seventeen"}});
  wxSize const size = Mode().MeasureText("frame seventeen", Look().GetFont(), false);
  m_driver.Tool().AddTextMacro("%F%");
  ASSERT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_EQ(Text(), "%F%");
  EXPECT_EQ(Box().GetParsedText(), "frame seventeen");
  EXPECT_EQ(Record().m_topLeft,
            wxPoint2DDouble(static_cast<int>((300 - size.x) * 0.5), 200 - size.y));
  EXPECT_EQ(Record().m_bottomRight.m_y, 199);
  EXPECT_EQ(m_driver.Selected(), &Box());
}

/// Without a window nothing can be measured or edited, and nothing fails.
TEST(TextModeWithoutAWindow, BoxIsMadeButNotEdited) {
  ToolDriver driver;
  driver.UseTool(Types::Text);
  driver.Drag({20, 20}, {80, 60});
  ASSERT_EQ(driver.ObjectCount(), 1U);
  EXPECT_EQ(driver.State(), ToolState::Selected);
  AnnTextToolMode &mode = *driver.Tool().GetToolModes().text;
  EXPECT_EQ(mode.MeasureText("abc", *wxNORMAL_FONT, false), wxSize());
  EXPECT_EQ(mode.MeasureTextCtrl("abc", *wxNORMAL_FONT), wxSize());
  driver.Tool().Deactivate();
  EXPECT_EQ(driver.ObjectCount(), 0U);
  driver.Tool().AddTextMacro("%F%");
  EXPECT_EQ(driver.ObjectCount(), 1U);
}

}  // namespace

}  // namespace framenote::test
