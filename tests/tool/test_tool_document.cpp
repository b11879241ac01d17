// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

wxJSONValue Wrapped(wxJSONValue const &annotation) {
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", annotation);
  return document;
}

wxJSONValue Parsed(std::string const &text) {
  return JsonFromUtf8(text);
}

/// An object of each kind on a video of ten frames, the arrow on top.
void DrawThree(ToolDriver &driver) {
  driver.DrawStroke({{10, 200}, {20, 200}, {30, 210}, {40, 200}, {50, 200}});
  driver.DrawShape({20, 20}, {120, 80});
  driver.DrawArrow({200, 20}, {300, 80});
  driver.Tool().Deactivate();
}

TEST(ToolDocument, HasItsMembersInOrder) {
  ToolDriver driver(1, true);
  wxJSONValue json;
  driver.Tool().ToJSON(json);
  EXPECT_EQ(JsonToUtf8(json), R"({"ExtensionColor":"#FFFFFFFF","Objects":[]})");
  driver.Tool().SetExtensionColour(wxNullColour);
  EXPECT_EQ(driver.DocumentText(), R"({"ExtensionColor":null,"Objects":[]})");
}

TEST(ToolDocument, SaysExtendedOnlyWithAPanel) {
  ToolDriver driver(1, true);
  driver.DrawShape({20, 20}, {120, 80});
  EXPECT_FALSE(driver.Tool().GetJSON().HasMember("Extended"));
}

TEST(ToolDocument, ListsTheTopObjectFirst) {
  ToolDriver driver;
  DrawThree(driver);
  wxJSONValue const objects = driver.Tool().GetJSON().ItemAt("Objects");
  ASSERT_EQ(objects.Size(), 3);
  EXPECT_EQ(objects.ItemAt(0).ItemAt("Id").AsInt(), 3);
  EXPECT_EQ(objects.ItemAt(1).ItemAt("Id").AsInt(), 2);
  EXPECT_EQ(objects.ItemAt(2).ItemAt("Id").AsInt(), 4);
}

TEST(ToolDocument, IsWrittenExactlyAsItWasRead) {
  ToolDriver driver(10);
  DrawThree(driver);
  std::string const text = driver.DocumentText();
  ToolDriver other(10);
  other.Tool().FromJSON(Wrapped(Parsed(text)), 10);
  EXPECT_EQ(other.DocumentText(), text);
  ASSERT_EQ(other.ObjectCount(), 3U);
  EXPECT_NE(other.ObjectAs<AnnArrow>(0), nullptr);
  EXPECT_NE(other.ObjectAs<AnnShape>(1), nullptr);
  EXPECT_NE(other.ObjectAs<AnnPencil>(2), nullptr);
}

/// First and last frame of each run of an object, with the left side that is written there.
std::string LeftsOfRuns(AnnotationTool const &tool, int index = 0) {
  wxJSONValue const runs = tool.GetJSON().ItemAt("Objects").ItemAt(index).ItemAt("Coordinates");
  std::string lefts;
  for (int i = 0; i < runs.Size(); ++i) {
    wxJSONValue const run = runs.ItemAt(i);
    lefts += JsonToUtf8(run.ItemAt("Range")) + JsonToUtf8(run.ItemAt("TopLeft").ItemAt(0)) + " ";
  }
  return lefts;
}

void RunCommand(ToolDriver &driver, AnnotationCommand command) {
  wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
  driver.Tool().onPopupClick(event);
}

// A paste moves all frames, but writes only the record of the current frame anew: the other runs
// keep what is written of them until an edit reaches them.
TEST(ToolDocument, OtherRunsOfAPastedObjectAreWrittenWhenTheyAreEdited) {
  ToolDriver driver(10);
  driver.DrawShape({20, 20}, {120, 80});
  driver.GoToFrame(5);
  driver.Tool().MoveSelected({100, 0});
  EXPECT_EQ(LeftsOfRuns(driver.Tool()), "[0,4]20.0 [5,5]120.0 ");
  RunCommand(driver, AnnotationCommand::Copy);
  driver.Move(150, 20);
  RunCommand(driver, AnnotationCommand::Paste);
  AnnShapeCoordinates const &store = driver.ObjectAs<AnnShape>()->GetCoordinates();
  EXPECT_EQ(store.CoordsAt(0).m_topLeft, wxPoint2DDouble(50.0, 20.0));
  EXPECT_EQ(store.CoordsAt(5).m_topLeft, wxPoint2DDouble(150.0, 20.0));
  EXPECT_EQ(LeftsOfRuns(driver.Tool()), "[0,4]20.0 [5,5]150.0 ");
  driver.GoToFrame(0);
  driver.Tool().MoveSelected({0, 1});
  EXPECT_EQ(LeftsOfRuns(driver.Tool()), "[0,0]50.0 [1,4]20.0 [5,5]150.0 ");
}

TEST(ToolDocument, HoldsADragThatAnOrderCommandCutsOff) {
  for (auto const command : {AnnotationCommand::BringToFront, AnnotationCommand::BringForward,
                             AnnotationCommand::SendToBack, AnnotationCommand::SendBackward}) {
    ToolDriver driver;
    driver.DrawShape({20, 20}, {120, 80});
    driver.Press(45, 22);
    driver.Move(55, 22);
    ASSERT_EQ(driver.State(), ToolState::Moving);
    RunCommand(driver, command);
    EXPECT_EQ(LeftsOfRuns(driver.Tool()), "[0,0]30.0 ");
  }
}

TEST(ToolDocument, HoldsADragThatANewTextBoxCutsOff) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  driver.Press(45, 22);
  driver.Move(55, 22);
  ASSERT_EQ(driver.State(), ToolState::Moving);
  driver.Tool().AddTextMacro("%F%");
  ASSERT_EQ(driver.ObjectCount(), 2U);
  EXPECT_EQ(LeftsOfRuns(driver.Tool(), 1), "[0,0]30.0 ");
}

TEST(ToolDocument, ObjectsOfARestoredDocumentCanBeUsed) {
  ToolDriver driver(10);
  DrawThree(driver);
  ToolDriver other(10);
  other.Tool().FromJSON(Wrapped(driver.Tool().GetJSON()), 10);
  other.GoToFrame(0);
  other.Move(20, 60);
  other.Press(45, 22);
  other.Move(55, 22);
  other.Release(55, 22);
  EXPECT_EQ(other.ObjectAs<AnnShape>(1)->GetCoordinates().CoordsAt(0).m_topLeft,
            wxPoint2DDouble(30, 20));
}

TEST(ToolDocument, EventComesForARealChangeOnly) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
  std::size_t const ranges = driver.Sink().Count(wxEVT_ANN_FRAME_RANGE_CHANGED);
  driver.Tool().OnJsonChanged();
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_FRAME_RANGE_CHANGED), ranges + 1);
  driver.Tool().SetExtensionColour(*wxBLUE);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 2U);
}

TEST(ToolDocument, DragTellsTheHostAtItsEndAlone) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  driver.Sink().Pump();
  driver.Sink().Clear();
  driver.Press(45, 22);
  for (int x = 46; x < 90; ++x) driver.Move(x, 22);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 0U);
  driver.Release(90, 22);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
}

TEST(ToolDocument, RestoredStateStartsFromTheDefaults) {
  ToolDriver driver(10);
  DrawThree(driver);
  driver.UseTool(Types::Arrow);
  driver.GoToFrame(4);
  driver.Sink().Pump();
  driver.Sink().Clear();
  driver.Tool().FromJSON(Parsed(R"({"Annotate":{"ExtensionColor":"#0000FFFF","Objects":[]}})"), 25);
  EXPECT_TRUE(driver.Tool().IsEmpty());
  EXPECT_TRUE(driver.Tool().IsIdle());
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameIndex, 0);
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 25);
  EXPECT_EQ(driver.Tool().GetExtensionColor(), *wxBLUE);
  EXPECT_EQ(driver.Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
}

TEST(ToolDocument, InvalidOrForeignDocumentGivesAnEmptyToolAndNoEvent) {
  for (char const *text : {"{", "{}", "[]", "3", "null", R"({"Other":{"Objects":[]}})"}) {
    ToolDriver driver(10);
    DrawThree(driver);
    driver.Sink().Pump();
    driver.Sink().Clear();
    driver.Tool().FromJSON(Parsed(text), 25);
    EXPECT_TRUE(driver.Tool().IsEmpty()) << text;
    EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 0) << text;
    EXPECT_TRUE(driver.Sink().Types().empty()) << text;
  }
}

TEST(ToolDocument, WithoutObjectsKeepsCountAndColourAndRaisesNothing) {
  ToolDriver driver(10);
  driver.Tool().FromJSON(Parsed(R"({"Annotate":{"ExtensionColor":"#00FF00FF"}})"), 25);
  EXPECT_EQ(driver.Tool().GetMediaInfo().frameCount, 25);
  EXPECT_EQ(driver.Tool().GetExtensionColor(), *wxGREEN);
  EXPECT_TRUE(driver.Sink().Types().empty());
}

TEST(ToolDocument, ExtensionColourSurvivesAsNoneAndFallsBackToWhite) {
  ToolDriver driver;
  driver.Tool().FromJSON(Parsed(R"({"Annotate":{"ExtensionColor":null,"Objects":[]}})"), 1);
  EXPECT_EQ(driver.Tool().GetExtensionColor(), wxNullColour);
  driver.Tool().FromJSON(Parsed(R"({"Annotate":{"Objects":[]}})"), 1);
  EXPECT_EQ(driver.Tool().GetExtensionColor(), *wxWHITE);
}

TEST(ToolDocument, CloneTakesPictureObjectsAndCount) {
  ToolDriver source(10);
  source.Tool().SetImage(wxImage(30, 20), false);
  DrawThree(source);
  ToolDriver copy(3);
  copy.Tool().CloneFrom(source.Tool());
  EXPECT_EQ(copy.DocumentText(), source.DocumentText());
  EXPECT_EQ(copy.Tool().GetImage().GetWidth(), 30);
  EXPECT_EQ(copy.Tool().GetMediaInfo().frameCount, 10);
}

TEST(ToolDocument, CloneOfAnEmptyToolIsEmptyWithItsPicture) {
  ToolDriver source(10);
  source.Tool().SetImage(wxImage(30, 20), false);
  ToolDriver copy(10);
  DrawThree(copy);
  copy.Tool().CloneFrom(source.Tool());
  EXPECT_TRUE(copy.Tool().IsEmpty());
  EXPECT_EQ(copy.Tool().GetImage().GetWidth(), 30);
}

/// A good rectangle among what is no object.
class ToolDocumentElement : public testing::TestWithParam<char const *> {};

constexpr char const *kGood =
    R"({"Id":2,"StartFrame":0,"EndFrame":0,"Coordinates":[{"TopLeft":[1,2],"TopRight":[30,2],)"
    R"("BottomRight":[30,40],"BottomLeft":[1,40],"Range":[0,0]}]})";

TEST_P(ToolDocumentElement, IsLeftOutAndTheRestIsRead) {
  std::string const text =
      std::string(R"({"Annotate":{"Objects":[)") + kGood + "," + GetParam() + "," + kGood + "]}}";
  ASSERT_TRUE(Parsed(text).IsValid());
  ToolDriver driver;
  driver.Tool().FromJSON(Parsed(text), 1);
  EXPECT_EQ(driver.ObjectCount(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    , ToolDocumentElement,
    testing::Values(
        "{}", "null", "3", "\"Id\"", "[]", R"({"Id":1,"Coordinates":[]})",
        R"({"Id":9,"Coordinates":[]})", R"({"Id":0})", R"({"Id":-2})", R"({"Id":"2"})",
        R"({"Id":1e300})", R"({"Id":2})", R"({"Id":3})", R"({"Id":4,"Coordinates":[]})",
        // Nothing to be seen: no run, a point, a line, no colour, an arrow without length.
        R"({"Id":2,"Coordinates":[]})", R"({"Id":2,"Coordinates":"none"})",
        R"({"Id":2,"Coordinates":[{"TopLeft":[5,5],"TopRight":[5,5],"BottomRight":[5,5],)"
        R"("BottomLeft":[5,5],"Range":[0,0]}]})",
        R"({"Id":2,"Coordinates":[{"TopLeft":[5,5],"TopRight":[50,5],"BottomRight":[50,5],)"
        R"("BottomLeft":[5,5],"Range":[0,0]}]})",
        R"({"Id":2,"Properties":{"BorderColorTransparent":true,"FillColorTransparent":true},)"
        R"("Coordinates":[{"TopLeft":[1,2],"TopRight":[30,2],"BottomRight":[30,40],)"
        R"("BottomLeft":[1,40],"Range":[0,0]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[5,5],"Range":[0,0]}]})",
        // Ranges that are none.
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[3,1]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[-1,0]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":["0","0"]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9]}]})",
        // Longer than the media by more than an object may ask for.
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0,4194305]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0,9223372036854775807]}]})"));

/// Values that are used, each of which must be used safely.
class ToolDocumentValue : public testing::TestWithParam<char const *> {};

TEST_P(ToolDocumentValue, IsPaintedMovedAndWrittenWithoutHarm) {
  wxJSONValue const document =
      Parsed(std::string(R"({"Annotate":{"Objects":[)") + GetParam() + "," + kGood + "]}}");
  ASSERT_TRUE(document.IsValid());
  for (bool const withDeviceContext : {false, true}) {
    ToolDriver driver(3, true, withDeviceContext);
    wxImage const picture(40, 30);
    driver.Tool().SetImage(picture, true);
    driver.Tool().FromJSON(document, 3);
    driver.Tool().SetExtensionColour(wxNullColour);
    wxImage const frame = driver.Tool().GetAnnotatedFrame(picture, {0, 3, false}, {});
    ASSERT_EQ(frame.GetSize(), wxSize(40, 30));
    driver.GoToFrame(2);
    driver.GoToFrame(0);
    driver.Move(15, 20);
    driver.Press(15, 20);
    driver.Move(25, 20);
    driver.Release(25, 20);
    driver.Tool().Deactivate();
    // The good object below is there and is still written.
    wxJSONValue const objects = driver.Tool().GetJSON().ItemAt("Objects");
    ASSERT_GE(objects.Size(), 1);
    EXPECT_EQ(objects.ItemAt(objects.Size() - 1).ItemAt("Coordinates").Size(), 1);
    EXPECT_EQ(objects.ItemAt(objects.Size() - 1).ItemAt("Id").AsInt(), 2);
  }
}

INSTANTIATE_TEST_SUITE_P(
    , ToolDocumentValue,
    testing::Values(
        R"({"Id":3,"Coordinates":[{"Head":[2147483647,5],"Tail":[-2147483648,9],"Range":[0,0]}]})",
        R"({"Id":3,"Coordinates":[{"Head":[1e300,5],"Tail":["x",null],"Range":[0,0]}]})",
        R"({"Id":3,"StartFrame":-9223372036854775808,"EndFrame":9223372036854775807,)"
        R"("Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0,0]}]})",
        R"({"Id":3,"StartFrame":9,"EndFrame":-9,"Coordinates":[{"Head":[5,5],"Tail":[9,9],)"
        R"("Range":[0,0]}]})",
        R"({"Id":3,"Properties":{"Thickness":2147483647,"Head":77,"Color":"no colour"},)"
        R"("Coordinates":[{"Head":[5,5],"Tail":[30,9],"Range":[0,0]}]})",
        R"({"Id":3,"Properties":{"Thickness":-2147483648},)"
        R"("Coordinates":[{"Head":[5,5],"Tail":[30,9],"Range":[0,0]}]})",
        R"({"Id":3,"Properties":[],"Coordinates":[{"Head":[5,5],"Tail":[30,9],"Range":[0,0]}]})",
        R"({"Id":2,"Properties":{"Thickness":2147483647,"Shape":-5,"FillColor":17},)"
        R"("Coordinates":[{"TopLeft":[1,2],"TopRight":[30,2],"BottomRight":[30,40],)"
        R"("BottomLeft":[1,40],"Range":[0,0]}]})",
        R"({"Id":2,"Properties":{"Shape":1},"Coordinates":[{"TopLeft":[-1e308,2],)"
        R"("TopRight":[1e308,2],"BottomRight":[1e308,1e308],"BottomLeft":[-1e308,1e308],)"
        R"("Range":[0,0]}]})",
        R"({"Id":2,"Coordinates":[{"TopLeft":[],"TopRight":[30],"BottomRight":{},)"
        R"("BottomLeft":"","Range":[0,0]}]})",
        R"({"Id":2,"Coordinates":[{"TopLeft":[1,2],"TopRight":[30,2],"BottomRight":[30,40],)"
        R"("BottomLeft":[1,40],"Range":[0,0]},17,{"Range":[1,2]},{"Range":[0,1]}]})",
        R"({"Id":2,"EndFrame":1000000,"Coordinates":[{"TopLeft":[1,2],"TopRight":[30,2],)"
        R"("BottomRight":[30,40],"BottomLeft":[1,40],"Range":[0,1000000]}]})",
        R"({"Id":4,"PathDiffs":[],"Coordinates":[{"StartPoint":[3,4],"Range":[0,0]}]})",
        R"({"Id":4,"PathDiffs":"x","Coordinates":[{"StartPoint":[3,4],"Range":[0,0]}]})",
        R"({"Id":4,"PathDiffs":[[2147483647,2147483647],[-2147483648,0]],)"
        R"("Coordinates":[{"StartPoint":[2147483647,2147483647],"Range":[0,0]}]})",
        R"({"Id":4,"PathDiffs":[[0,0]],"Properties":{"Thickness":-3},)"
        R"("Coordinates":[{"StartPoint":[3,4],"Range":[0,2]}]})"));

TEST(ToolDocumentLimits, ManyObjectsCannotAskForMoreFramesThanADocumentMay) {
  // Each object is as long as one may be; two fill what a document may ask for.
  std::string objects;
  for (int i = 0; i < 6; ++i) {
    objects += std::string(i == 0 ? "" : ",") +
               R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0,4194303]}]})";
  }
  ToolDriver driver;
  driver.Tool().FromJSON(Parsed(R"({"Annotate":{"Objects":[)" + objects + "]}}"), 0);
  EXPECT_EQ(driver.ObjectCount(), 2U);
}

TEST(ToolDocumentLimits, ObjectsThatAreLeftOutCountAndLeaveThoseWithinTheMedia) {
  // Arrows of no length, each as long in frames as one may be.
  std::string objects;
  for (int i = 0; i < 2; ++i) {
    objects += R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[5,5],"Range":[0,4194303]}]},)";
  }
  objects += R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0,8]}]},)";
  objects += R"({"Id":3,"Coordinates":[{"Head":[5,5],"Tail":[9,9],"Range":[0,0]}]})";
  ToolDriver driver;
  driver.Tool().FromJSON(Parsed(R"({"Annotate":{"Objects":[)" + objects + "]}}"), 1);
  // The two ask for 4194303 frames more than the one of the media; that leaves two of 2^23.
  ASSERT_EQ(driver.ObjectCount(), 1U);
  EXPECT_TRUE(driver.Object()->AreCoordinatesEmpty(1));
}

TEST(ToolDocumentLimits, TheFramesOfALensCountInBothItsStores) {
  auto const lens = [](std::string const &last) {
    return R"({"Annotate":{"Objects":[{"Id":8,"Rectangle":{"Coordinates":[{"TopLeft":[1,2],)"
           R"("TopRight":[30,2],"BottomRight":[30,40],"BottomLeft":[1,40],"Range":[0,)" +
           last + R"(]}]},"CoordinatesCenterPoint":[{"CenterPoint":[5,5],"Range":[0,)" + last +
           "]}]}]}}";
  };
  ToolDriver driver;
  driver.Tool().FromJSON(Parsed(lens("2097151")), 0);
  EXPECT_EQ(driver.ObjectCount(), 1U);
  driver.Tool().FromJSON(Parsed(lens("2097152")), 0);
  EXPECT_EQ(driver.ObjectCount(), 0U);
}

TEST(ToolDocumentLimits, DeepNestingIsNoDocument) {
  std::string const deep = R"({"Annotate":)" + std::string(100000, '[') + std::string(100000, ']');
  EXPECT_FALSE(Parsed(deep + "}").IsValid());
  ToolDriver driver;
  driver.Tool().FromJSON(Parsed(deep + "}"), 1);
  EXPECT_TRUE(driver.Tool().IsEmpty());
}

}  // namespace

}  // namespace framenote::test
