// SPDX-License-Identifier: MIT
#include <stdexcept>

#include <wx/bitmap.h>

#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "objects/ann_shape.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"
#include "talbase/layout_direction.h"

namespace framenote::test {

namespace {

wxJSONValue RunsOf(ToolDriver &driver, int index = 0) {
  return driver.Tool().GetJSON().ItemAt("Objects").ItemAt(index).ItemAt("Coordinates");
}

std::string RangesOf(wxJSONValue const &runs) {
  std::string text;
  for (int i = 0; i < runs.Size(); ++i) text += JsonToUtf8(runs.ItemAt(i).ItemAt("Range"));
  return text;
}

TEST(ToolPosition, FrameAtOrBeyondTheCountThrows) {
  ToolDriver driver(10);
  AnnotationTool &tool = driver.Tool();
  EXPECT_THROW(tool.UpdateMediaInfo({10, 10, false}), std::runtime_error);
  EXPECT_THROW(tool.UpdateMediaInfo({-1, 10, false}), std::runtime_error);
  try {
    tool.UpdateMediaInfo({10, 10, false});
    FAIL() << "no exception";
  } catch (std::runtime_error const &error) {
    EXPECT_STREQ(error.what(), "Frame index out of range.");
  }
  EXPECT_EQ(tool.GetMediaInfo().frameIndex, 0);
  tool.FromJSON(JsonFromUtf8(R"({"Annotate":{"Objects":[]}})"), 4);
  EXPECT_THROW(tool.UpdateMediaInfo({4, 4, false}), std::runtime_error);
}

TEST(ToolPosition, CountThatFailedIsTakenAllTheSame) {
  ToolDriver driver(10);
  EXPECT_THROW(driver.Tool().UpdateMediaInfo({20, 20, false}), std::runtime_error);
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 20);
}

TEST(ToolPosition, GrowingCountReachesTheObjectsAndAShrinkingOneDoesNot) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().UpdateMediaInfo({0, 30, false});
  EXPECT_EQ(driver.ObjectAs<AnnShape>()->GetCoordinates().CoordsVec().size(), 30U);
  driver.Tool().UpdateMediaInfo({0, 5, false});
  EXPECT_EQ(driver.ObjectAs<AnnShape>()->GetCoordinates().CoordsVec().size(), 30U);
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 5);
}

TEST(ToolPosition, CountThatFellAndGrowsAgainCostsNoFrame) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().SetSelectedsAnnotationEnd(9);
  driver.Tool().UpdateMediaInfo({0, 2, false});
  driver.Tool().UpdateMediaInfo({0, 4, false});
  driver.Selected()->MoveFor({10, 0});
  driver.Selected()->OnObjectModified();
  EXPECT_EQ(RangesOf(driver.Selected()->ToJSON().ItemAt("Coordinates")), "[0,9]");
}

TEST(ToolPosition, DocumentThatReachesPastTheMediaKeepsItsFramesWhenTheMediaGrows) {
  ToolDriver driver(10);
  driver.Tool().FromJSON(JsonFromUtf8(R"({"Annotate":{"Objects":[{"Id":2,"StartFrame":0,
      "EndFrame":40,"Coordinates":[{"Range":[0,40],"TopLeft":[20,20],"TopRight":[120,20],
      "BottomRight":[120,80],"BottomLeft":[20,80]}]}]}})"),
                         10);
  ASSERT_EQ(driver.ObjectCount(), 1U);
  driver.Tool().UpdateMediaInfo({0, 20, false});
  EXPECT_FALSE(driver.Object()->AreCoordinatesEmpty(40));
}

TEST(ToolPosition, SelectedRangeFollowsThePositionBothWays) {
  ToolDriver driver(10);
  driver.GoToFrame(5);
  driver.DrawShape({20, 20}, {120, 80});
  driver.GoToFrame(8);
  EXPECT_EQ(driver.Selected()->GetFrameDuration(),
            std::make_pair(std::int64_t{5}, std::int64_t{8}));
  driver.GoToFrame(2);
  EXPECT_EQ(driver.Selected()->GetFrameDuration(),
            std::make_pair(std::int64_t{2}, std::int64_t{8}));
  EXPECT_EQ(RangesOf(RunsOf(driver)), "[2,8]");
  auto const *event = driver.Sink().Last(wxEVT_ANN_FRAME_RANGE_CHANGED);
  ASSERT_NE(event, nullptr);
  EXPECT_EQ(std::get<0>(event->FrameRanges()[0]), 2);
  EXPECT_EQ(std::get<1>(event->FrameRanges()[0]), 8);
}

TEST(ToolPosition, WithoutASelectionNothingGrows) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().Deactivate();
  driver.GoToFrame(7);
  EXPECT_EQ(driver.Object()->GetEndFrame(), 0);
}

TEST(ToolPosition, DragAcrossFramesGivesEachFrameItsPlace) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Press(45, 22);
  ASSERT_EQ(driver.State(), ToolState::Moving);
  driver.Move(55, 22);
  for (std::int64_t frame = 1; frame <= 3; ++frame) {
    driver.GoToFrame(frame, true);
    driver.Move(static_cast<int>(55 + 10 * frame), 22);
  }
  driver.Release(85, 22);
  EXPECT_EQ(RangesOf(RunsOf(driver)), "[0,0][1,1][2,2][3,3]");
  for (int frame = 0; frame <= 3; ++frame) {
    EXPECT_EQ(RunsOf(driver).ItemAt(frame).ItemAt("TopLeft").ItemAt(0).AsDouble(), 30 + 10 * frame);
  }
}

TEST(ToolPosition, ComingBackToTheFrameEditedLastShowsItsOwnForm) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {60, 60});
  driver.GoToFrame(5);
  auto &shape = *driver.ObjectAs<AnnShape>();
  shape.MoveFor({100, 0});
  driver.GoToFrame(3);
  EXPECT_EQ(shape.GetCoordinates().Coords().m_topLeft.m_x, 20.0);
  driver.GoToFrame(5);
  EXPECT_EQ(shape.GetCoordinates().Coords().m_topLeft.m_x, 120.0);
  shape.MoveFor({0, 7});
  driver.GoToFrame(3);
  EXPECT_EQ(shape.GetCoordinates().Coords().m_topLeft.m_y, 20.0);
}

TEST(ToolPosition, JumpDuringADragSharesThePlaceOfTheOldFrame) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Press(45, 22);
  driver.Move(55, 22);
  driver.GoToFrame(5, true);
  driver.Move(65, 22);
  driver.Release(65, 22);
  EXPECT_EQ(RangesOf(RunsOf(driver)), "[0,4][5,5]");
}

TEST(ToolPosition, PlayingRaisesNoDocumentPerFrame) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Sink().Pump();
  driver.Sink().Clear();
  for (std::int64_t frame = 1; frame < 9; ++frame) driver.GoToFrame(frame, true);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 0U);
  driver.GoToFrame(9);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
}

TEST(ToolPosition, DocumentAskedForWhilePlayingHasGeometryForEachFrame) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.GoToFrame(3, true);
  wxJSONValue json;
  driver.Tool().ToJSON(json);
  EXPECT_EQ(json.ItemAt("Objects").ItemAt(0).ItemAt("EndFrame").AsInt(), 3);
  EXPECT_EQ(RangesOf(json.ItemAt("Objects").ItemAt(0).ItemAt("Coordinates")), "[0,3]");
}

TEST(ToolPosition, DocumentAskedForInMidDragHasGeometryForEachFrame) {
  ToolDriver driver(10);
  driver.GoToFrame(6);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().SetSelectedsAnnotationStart(8);
  driver.Press(45, 22);
  driver.Move(55, 22);
  wxJSONValue json;
  driver.Tool().ToJSON(json);
  wxJSONValue const object = json.ItemAt("Objects").ItemAt(0);
  ASSERT_EQ(object.ItemAt("StartFrame").AsInt(), 6);
  EXPECT_EQ(object.ItemAt("Coordinates").ItemAt(0).ItemAt("Range").ItemAt(0).AsInt(), 6);
}

TEST(ToolPosition, ObjectThatIsLeftForAnotherWhilePlayingKeepsWhatItHasGrown) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.Tool().Deactivate();
  driver.GoToFrame(1);
  driver.DrawShape({220, 20}, {320, 80});
  driver.GoToFrame(4, true);
  driver.GoToFrame(0, true);
  // The first object alone is in frame 0.
  driver.Move(45, 22);
  driver.Press(45, 22);
  driver.Release(45, 22);
  driver.GoToFrame(0);
  ASSERT_EQ(driver.Selected(), driver.Object(1));
  wxJSONValue const left = driver.Tool().GetJSON().ItemAt("Objects").ItemAt(0);
  EXPECT_EQ(left.ItemAt("EndFrame").AsInt(), 4);
  EXPECT_EQ(RangesOf(left.ItemAt("Coordinates")), "[0,4]");
}

TEST(ToolPosition, StopAndRewindEndsTheSelection) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.GoToFrame(4, true);
  driver.GoToFrame(0, false);
  EXPECT_EQ(driver.Selected(), nullptr);
  EXPECT_EQ(driver.State(), ToolState::OverObject);
  driver.Move(400, 400);
  EXPECT_EQ(driver.State(), ToolState::Default);
}

TEST(ToolPosition, RewindWithoutPlayingKeepsTheSelection) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.GoToFrame(4);
  driver.GoToFrame(0);
  EXPECT_NE(driver.Selected(), nullptr);
}

TEST(ToolPosition, UnselectedObjectsStandWhereTheFrameHasThem) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.GoToFrame(1);
  driver.Press(45, 22);
  driver.Move(145, 22);
  driver.Release(145, 22);
  driver.Tool().Deactivate();
  driver.GoToFrame(0);
  EXPECT_EQ(driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(20, 20));
  driver.GoToFrame(1);
  EXPECT_EQ(driver.ObjectAs<AnnShape>()->GetCoordinates().Coords().m_topLeft,
            wxPoint2DDouble(120, 20));
}

class ToolRange : public testing::Test {
protected:
  ToolRange() : m_driver(10) {
    m_driver.GoToFrame(4);
    m_driver.DrawShape({20, 20}, {120, 80});
  }

  std::pair<std::int64_t, std::int64_t> Range() { return m_driver.Object()->GetFrameDuration(); }

  ToolDriver m_driver;
};

using FramePair = std::pair<std::int64_t, std::int64_t>;

TEST_F(ToolRange, StartAndEndCanBeSet) {
  m_driver.Tool().SetSelectedsAnnotationStart(2);
  EXPECT_EQ(Range(), FramePair(2, 4));
  m_driver.Tool().SetSelectedsAnnotationEnd(9);
  EXPECT_EQ(Range(), FramePair(2, 9));
  EXPECT_EQ(RangesOf(RunsOf(m_driver)), "[2,9]");
}

TEST_F(ToolRange, EndsPushEachOtherAndTheFormStays) {
  m_driver.Tool().SetSelectedsAnnotationEnd(6);
  m_driver.Tool().SetSelectedsAnnotationStart(8);
  EXPECT_EQ(Range(), FramePair(8, 8));
  EXPECT_EQ(RunsOf(m_driver).ItemAt(0).ItemAt("BottomRight").ItemAt(0).AsDouble(), 120.0);
  m_driver.Tool().SetSelectedsAnnotationEnd(1);
  EXPECT_EQ(Range(), FramePair(1, 1));
  m_driver.Tool().Deactivate();
  EXPECT_EQ(m_driver.ObjectCount(), 1U);
}

TEST_F(ToolRange, FromFrameOpensAnObjectOfOneFrameOnly) {
  m_driver.Tool().SetSelectedsAnnotationFromFrame(3, 9);
  EXPECT_EQ(Range(), FramePair(3, 9));
  m_driver.Tool().SetSelectedsAnnotationFromFrame(5, 7);
  EXPECT_EQ(Range(), FramePair(5, 9));
}

TEST_F(ToolRange, WithoutASelectionNothingHappens) {
  m_driver.Tool().Deactivate();
  m_driver.Tool().SetSelectedsAnnotationStart(2);
  m_driver.Tool().SetSelectedsAnnotationEnd(9);
  m_driver.Tool().SetSelectedsAnnotationFromFrame(0, 9);
  EXPECT_EQ(Range(), FramePair(4, 4));
}

TEST_F(ToolRange, EventListsTheRangesFromTheTop) {
  m_driver.UseTool(Types::Arrow);
  m_driver.GoToFrame(4);
  m_driver.Drag({300, 20}, {400, 20});
  m_driver.Tool().SetSelectedsAnnotationEnd(7);
  auto const *event = m_driver.Sink().Last(wxEVT_ANN_FRAME_RANGE_CHANGED);
  ASSERT_NE(event, nullptr);
  ASSERT_EQ(event->FrameRanges().size(), 2U);
  EXPECT_EQ(std::get<1>(event->FrameRanges()[0]), 7);
  EXPECT_EQ(std::get<1>(event->FrameRanges()[1]), 4);
  EXPECT_EQ(event->SelectedIndex(), 0);
  m_driver.Tool().Deactivate();
  EXPECT_EQ(m_driver.Sink().Last(wxEVT_ANN_FRAME_RANGE_CHANGED)->SelectedIndex(), -1);
}

/// Objects that start in the frames 2, 5 and 8 of ten.
class ToolJump : public testing::Test {
protected:
  ToolJump() : m_driver(10) {
    for (int frame : {2, 5, 8}) {
      m_driver.GoToFrame(frame);
      m_driver.DrawShape({20, 20}, {120, 80});
      m_driver.Tool().Deactivate();
    }
  }

  /// The frame that a jump asks for, or -2 if it asks for none.
  std::int64_t JumpFrom(std::int64_t frame, GoToObjectDirection direction) {
    m_driver.GoToFrame(frame);
    m_driver.Sink().Pump();
    m_driver.Sink().Clear();
    m_driver.Tool().GoToObject(direction);
    auto const *event = m_driver.Sink().Last(wxEVT_ANN_GOTO_FRAME);
    if (event == nullptr) return -2;
    EXPECT_EQ(event->Direction(), AnnotationGoToFrameEvent::ToStart);
    EXPECT_EQ(m_driver.Tool().GetMediaInfo().frameIndex, frame);
    return event->FrameIndex();
  }

  ToolDriver m_driver;
};

TEST_F(ToolJump, NextIsTheNearestStartAfterThePosition) {
  EXPECT_EQ(JumpFrom(0, GoToObjectDirection::Next), 2);
  EXPECT_EQ(JumpFrom(2, GoToObjectDirection::Next), 5);
  EXPECT_EQ(JumpFrom(3, GoToObjectDirection::Next), 5);
  EXPECT_EQ(JumpFrom(8, GoToObjectDirection::Next), -2);
  EXPECT_EQ(JumpFrom(9, GoToObjectDirection::Next), -2);
}

TEST_F(ToolJump, PreviousIsTheNearestStartBeforeThePosition) {
  EXPECT_EQ(JumpFrom(9, GoToObjectDirection::Previous), 8);
  EXPECT_EQ(JumpFrom(8, GoToObjectDirection::Previous), 5);
  EXPECT_EQ(JumpFrom(3, GoToObjectDirection::Previous), 2);
  EXPECT_EQ(JumpFrom(2, GoToObjectDirection::Previous), -2);
  EXPECT_EQ(JumpFrom(0, GoToObjectDirection::Previous), -2);
}

TEST_F(ToolJump, WithoutObjectsOrOnAStillPictureNothingIsAsked) {
  m_driver.Tool().ClearAllAnnotations();
  EXPECT_EQ(JumpFrom(0, GoToObjectDirection::Next), -2);
  ToolDriver still(1);
  still.DrawShape({20, 20}, {120, 80});
  still.Tool().GoToObject(GoToObjectDirection::Next);
  EXPECT_EQ(still.Sink().Count(wxEVT_ANN_GOTO_FRAME), 0U);
}

TEST(ToolPicture, InvalidImageClearsItAndAnInvalidBitmapChangesNothing) {
  ToolDriver driver;
  driver.Tool().SetImage(wxImage(30, 20), false);
  driver.Tool().SetImage(wxBitmap(), false);
  EXPECT_EQ(driver.Tool().GetImage().GetWidth(), 30);
  driver.Tool().SetImage(wxBitmap(wxImage(8, 6)), false);
  EXPECT_EQ(driver.Tool().GetImage().GetWidth(), 8);
  driver.Tool().SetImage(wxNullImage, false);
  EXPECT_FALSE(driver.Tool().GetImage().IsOk());
}

TEST(ToolPicture, SharesThePixelsWithTheCaller) {
  ToolDriver driver;
  wxImage const picture(30, 20);
  driver.Tool().SetImage(picture, false);
  EXPECT_EQ(driver.Tool().GetImage().GetData(), picture.GetData());
}

/// A mirrored interface for the time of a test.
class ToolMirrored : public testing::Test {
protected:
  ToolMirrored() { TalSetLayoutDirection(wxLayout_RightToLeft); }
  ~ToolMirrored() override { TalSetLayoutDirection(wxLayout_Default); }
};

TEST_F(ToolMirrored, MirrorsTheCallersPixelsAtEachCall) {
  ToolDriver driver;
  wxImage picture(4, 1);
  picture.SetRGB(0, 0, 255, 0, 0);
  driver.Tool().SetImage(picture, false);
  EXPECT_EQ(picture.GetRed(0, 0), 0);
  EXPECT_EQ(picture.GetRed(3, 0), 255);
  driver.Tool().SetImage(picture, false);
  EXPECT_EQ(picture.GetRed(0, 0), 255);
  EXPECT_EQ(picture.GetRed(3, 0), 0);
}

class ToolArea : public testing::Test {
protected:
  static wxRect AreaWith(bool extensionEnabled, wxPoint const &from, wxPoint const &to) {
    ToolDriver driver(1, extensionEnabled);
    driver.Tool().SetImage(wxImage(100, 50), false);
    driver.DrawShape(from, to);
    return driver.Tool().GetAnnotationArea();
  }
};

TEST_F(ToolArea, WithoutExtensionIsOnePixelSmallerThanThePicture) {
  EXPECT_EQ(AreaWith(false, {-10, -20}, {300, 200}), wxRect(0, 0, 99, 49));
}

TEST_F(ToolArea, WithExtensionCoversPictureAndObjects) {
  EXPECT_EQ(AreaWith(true, {10, 10}, {40, 40}), wxRect(0, 0, 100, 50));
  EXPECT_EQ(AreaWith(true, {-10, -20}, {40, 40}), wxRect(-10, -20, 110, 70));
  EXPECT_EQ(AreaWith(true, {10, 10}, {300, 200}), wxRect(0, 0, 300, 200));
}

TEST_F(ToolArea, WithoutAPictureIsThatOfTheObjects) {
  ToolDriver driver(1, true);
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect(0, 0, 0, 0));
  driver.DrawShape({-10, -20}, {40, 40});
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect(-10, -20, 50, 60));
  driver.Tool().ClearAllAnnotations();
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect(0, 0, 0, 0));
}

TEST_F(ToolArea, HidingForgetsItAndShowingFindsItAgain) {
  ToolDriver driver(1, true);
  driver.DrawShape({-10, -20}, {40, 40});
  driver.Tool().SetObjectsVisible(false);
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect());
  driver.Tool().SetObjectsVisible(true);
  EXPECT_EQ(driver.Tool().GetAnnotationArea(), wxRect(-10, -20, 50, 60));
}

}  // namespace

}  // namespace framenote::test
