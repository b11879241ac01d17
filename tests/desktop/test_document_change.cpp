// SPDX-License-Identifier: MIT
#include "desktop/document_change.h"

#include <gtest/gtest.h>

#include "desktop/document_edits.h"
#include "objects/ann_magnify.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

using Change = DocumentChange;

/// What each step did to the document of a tool.
class ChangeOfATool : public testing::Test {
protected:
  ChangeOfATool() {
    m_tool.Tool().OnJsonChanged();
    m_seen = m_tool.Document();
  }

  Change Next() {
    wxJSONValue const before = m_seen;
    m_seen = m_tool.Document();
    return CompareDocuments(before, m_seen);
  }
  ToolDriver &Driver() { return m_tool.Driver(); }

  EditedTool m_tool;
  wxJSONValue m_seen;
};

std::string NameOf(Change const &change) {
  return ChangeName(change).utf8_string();
}

class ChangeOfEachKind : public ChangeOfATool, public testing::WithParamInterface<Kind> {};

INSTANTIATE_TEST_SUITE_P(, ChangeOfEachKind, testing::ValuesIn(kKinds),
                         [](auto const &parameter) { return parameter.param.name; });

TEST_P(ChangeOfEachKind, HasItsName) {
  for (NamedEdit const &edit : EditsOf(GetParam().type)) {
    m_tool.Perform(GetParam().type, edit.edit);
    Change const change = Next();
    EXPECT_EQ(NameOf(change), edit.name);
    EXPECT_EQ(change.indexBefore, edit.edit == Edit::Draw ? -1 : 0) << edit.name;
    EXPECT_EQ(change.indexAfter, edit.edit == Edit::Delete ? -1 : 0) << edit.name;
    EXPECT_FALSE(change.isUnfinished) << edit.name;
  }
}

TEST_P(ChangeOfEachKind, HasTheFramesInWhichItIsSeen) {
  m_tool.Perform(GetParam().type, Edit::Draw);
  Next();
  m_tool.Perform(GetParam().type, Edit::Range);
  Change change = Next();
  EXPECT_EQ(change.firstFrame, 1);
  EXPECT_EQ(change.lastFrame, 4);
  Driver().GoToFrame(3);
  m_tool.Move({7, 5});
  change = Next();
  EXPECT_EQ(change.kind, Change::Kind::Move);
  EXPECT_EQ(change.firstFrame, 3);
  EXPECT_EQ(change.lastFrame, 3);
  m_tool.ChangeLook(GetParam().type, 9);
  change = Next();
  EXPECT_EQ(change.kind, Change::Kind::Look);
  EXPECT_EQ(change.firstFrame, 0);
  EXPECT_EQ(change.lastFrame, 4);
  m_tool.Tool().SetSelectedsAnnotationStart(2);
  change = Next();
  EXPECT_EQ(change.kind, Change::Kind::Range);
  EXPECT_EQ(change.firstFrame, 0);
  EXPECT_EQ(change.lastFrame, 1);
}

TEST_P(ChangeOfEachKind, MoveOutsideTheRangeIsAMove) {
  m_tool.Perform(GetParam().type, Edit::Draw);
  Next();
  Driver().GoToFrame(6);
  Driver().Selected()->MoveFor({7, 5});
  m_tool.FinishEdit();
  Change const change = CompareDocuments(m_seen, m_tool.Document());
  EXPECT_EQ(change.kind, Change::Kind::Move);
  EXPECT_EQ(change.firstFrame, 6);
  EXPECT_EQ(change.lastFrame, 6);
}

TEST_F(ChangeOfATool, MoveOverSeveralFramesHasTheFirstAndTheLast) {
  m_tool.Perform(Types::Arrow, Edit::Draw);
  m_tool.Tool().SetSelectedsAnnotationEnd(9);
  Next();
  for (int frame = 3; frame < 6; ++frame) {
    Driver().GoToFrame(frame);
    Driver().Selected()->MoveFor({frame, 1});
  }
  m_tool.FinishEdit();
  Change const change = Next();
  EXPECT_EQ(change.kind, Change::Kind::Move);
  EXPECT_EQ(change.firstFrame, 3);
  EXPECT_EQ(change.lastFrame, 5);
}

TEST_F(ChangeOfATool, EllipseHasItsOwnNames) {
  Driver().Tool().GetToolModes().shape->m_properties->SetShape(AnnShapeProperties::Ellipse);
  m_tool.Perform(Types::Shape, Edit::Draw);
  EXPECT_EQ(NameOf(Next()), "add ellipse");
  m_tool.Perform(Types::Shape, Edit::Move);
  EXPECT_EQ(NameOf(Next()), "move ellipse");
}

TEST_F(ChangeOfATool, TextIsEdited) {
  m_tool.Perform(Types::Text, Edit::Draw);
  Next();
  Driver().ObjectAs<AnnText>()->SetTextAndParse(wxString("abcd"), {});
  m_tool.FinishEdit();
  EXPECT_EQ(NameOf(Next()), "edit text");
}

TEST_F(ChangeOfATool, EmptyTextBoxIsUnfinished) {
  Driver().UseTool(Types::Text);
  Driver().Drag({100, 100}, {200, 160});
  Change const change = Next();
  EXPECT_EQ(NameOf(change), "add text");
  EXPECT_TRUE(change.isUnfinished);
}

TEST_F(ChangeOfATool, ViewOfAMagnifierIsMoved) {
  m_tool.Perform(Types::Magnify, Edit::Draw);
  Next();
  auto &lens = *Driver().ObjectAs<AnnMagnify>();
  ASSERT_TRUE(lens.IsAtCenterPoint({150, 130}));
  m_tool.Move({40, 30});
  Change const change = Next();
  EXPECT_EQ(NameOf(change), "move view of magnifier");
  EXPECT_EQ(change.firstFrame, 0);
  m_tool.Run(AnnotationCommand::DefaultZoomPosition);
  EXPECT_EQ(NameOf(Next()), "move view of magnifier");
}

TEST_F(ChangeOfATool, PictureAtItsOwnSizeIsResized) {
  m_tool.Perform(Types::Image, Edit::Draw);
  Next();
  m_tool.Run(AnnotationCommand::FitToImage);
  EXPECT_EQ(NameOf(Next()), "resize picture");
  m_tool.Run(AnnotationCommand::ResetToOriginal);
  EXPECT_EQ(NameOf(Next()), "resize picture");
}

TEST_F(ChangeOfATool, OrderHasBothPlaces) {
  m_tool.Draw(Types::Shape, {20, 20}, {60, 60});
  m_tool.Draw(Types::Arrow, {100, 20}, {160, 60});
  m_tool.Draw(Types::Pencil, {200, 20}, {280, 60});
  Next();
  m_tool.Run(AnnotationCommand::SendToBack);
  Change change = Next();
  EXPECT_EQ(NameOf(change), "change order");
  EXPECT_EQ(change.object, Change::Object::Stroke);
  EXPECT_EQ(change.indexBefore, 0);
  EXPECT_EQ(change.indexAfter, 2);
  m_tool.Run(AnnotationCommand::BringToFront);
  change = Next();
  EXPECT_EQ(change.indexBefore, 2);
  EXPECT_EQ(change.indexAfter, 0);
  m_tool.Run(AnnotationCommand::SendBackward);
  change = Next();
  EXPECT_EQ(change.kind, Change::Kind::Order);
  EXPECT_EQ(change.object, Change::Object::Arrow);
  EXPECT_EQ(change.indexBefore, 1);
  EXPECT_EQ(change.indexAfter, 0);
}

TEST_F(ChangeOfATool, PastedCopyIsTheOneInFront) {
  m_tool.Perform(Types::Arrow, Edit::Draw);
  m_tool.Run(AnnotationCommand::Copy);
  Next();
  m_tool.Run(AnnotationCommand::Paste);
  Change const change = Next();
  EXPECT_EQ(NameOf(change), "add arrow");
  EXPECT_EQ(change.indexAfter, 0);
}

TEST_F(ChangeOfATool, AllObjectsGo) {
  m_tool.Draw(Types::Shape, {20, 20}, {60, 60});
  m_tool.Draw(Types::Arrow, {100, 20}, {160, 60});
  Next();
  m_tool.Tool().ClearAllAnnotations();
  Change const change = Next();
  EXPECT_EQ(NameOf(change), "clear all");
  EXPECT_EQ(change.firstFrame, -1);
}

TEST_F(ChangeOfATool, SettingsBelongToNoObject) {
  m_tool.Perform(Types::Arrow, Edit::Draw);
  Next();
  m_tool.Tool().SetExtensionColour(*wxBLUE);
  Change const change = Next();
  EXPECT_EQ(NameOf(change), "change extension");
  EXPECT_EQ(change.indexAfter, -1);
  EXPECT_EQ(change.firstFrame, -1);
}

TEST_F(ChangeOfATool, NothingIsNoChange) {
  m_tool.Perform(Types::Arrow, Edit::Draw);
  Next();
  Driver().Tool().Deactivate();
  Driver().GoToFrame(5);
  Change const change = Next();
  EXPECT_EQ(change.kind, Change::Kind::None);
  EXPECT_EQ(NameOf(change), "");
}

TEST_F(ChangeOfATool, FirstObjectOfANewToolIsAdded) {
  m_tool.Perform(Types::Arrow, Edit::Draw);
  EXPECT_EQ(NameOf(CompareDocuments(wxJSONValue(), m_tool.Document())), "add arrow");
}

TEST(ChangeOfADocument, OfSeveralObjectsHasNoPlace) {
  wxJSONValue const before =
      JsonFromUtf8(R"({"Objects":[{"Id":3,"StartFrame":0},{"Id":3,"StartFrame":1},{"Id":4}]})");
  wxJSONValue const after =
      JsonFromUtf8(R"({"Objects":[{"Id":3,"StartFrame":2},{"Id":3,"StartFrame":3},{"Id":4}]})");
  Change const change = CompareDocuments(before, after);
  EXPECT_EQ(NameOf(change), "change several objects");
  EXPECT_EQ(change.indexBefore, -1);
  EXPECT_EQ(change.firstFrame, -1);
}

TEST(ChangeOfADocument, OfAnObjectIntoOneOfAnotherKindIsSeveral) {
  EXPECT_EQ(NameOf(CompareDocuments(JsonFromUtf8(R"({"Objects":[{"Id":3}]})"),
                                    JsonFromUtf8(R"({"Objects":[{"Id":4}]})"))),
            "change several objects");
}

TEST(ChangeOfADocument, OfAnUnknownKindHasAName) {
  EXPECT_EQ(NameOf(CompareDocuments(JsonFromUtf8(R"({"Objects":[]})"),
                                    JsonFromUtf8(R"({"Objects":[{"Id":77}]})"))),
            "add object");
  EXPECT_EQ(
      NameOf(CompareDocuments(JsonFromUtf8(R"({"Objects":[{"Id":2,"Properties":{"Shape":9}}]})"),
                              JsonFromUtf8(R"({"Objects":[]})"))),
      "delete shape");
}

/// An arrow with the runs `coordinates`, in frames 0 to 9.
wxJSONValue ArrowWith(std::string const &coordinates) {
  return JsonFromUtf8(R"({"Objects":[{"Id":3,"StartFrame":0,"EndFrame":9,"Coordinates":)" +
                      coordinates + "}]}");
}

TEST(ChangeOfADocument, RunsAreComparedByTheirFrames) {
  wxJSONValue const whole = ArrowWith(R"([{"Head":[9,9],"Tail":[0,0],"Range":[0,9]}])");
  // The same geometry in two runs, and then one frame moved.
  Change change =
      CompareDocuments(whole, ArrowWith(R"([{"Head":[9,9],"Tail":[0,0],"Range":[0,3]},)"
                                        R"({"Head":[9,9],"Tail":[0,0],"Range":[4,9]}])"));
  EXPECT_EQ(change.kind, Change::Kind::Reshape);
  EXPECT_EQ(change.firstFrame, 0);
  EXPECT_EQ(change.lastFrame, 9);
  change = CompareDocuments(whole, ArrowWith(R"([{"Head":[9,9],"Tail":[0,0],"Range":[0,3]},)"
                                             R"({"Head":[8,9],"Tail":[-1,0],"Range":[4,5]},)"
                                             R"({"Head":[9,9],"Tail":[0,0],"Range":[6,9]}])"));
  EXPECT_EQ(change.kind, Change::Kind::Move);
  EXPECT_EQ(change.firstFrame, 4);
  EXPECT_EQ(change.lastFrame, 5);
}

TEST(ChangeOfADocument, FramesWithoutARecordDiffer) {
  Change const change =
      CompareDocuments(ArrowWith(R"([{"Head":[9,9],"Tail":[0,0],"Range":[0,9]}])"),
                       ArrowWith(R"([{"Head":[9,9],"Tail":[0,0],"Range":[0,2]},)"
                                 R"({"Head":[9,9],"Tail":[0,0],"Range":[6,9]}])"));
  EXPECT_EQ(change.kind, Change::Kind::Reshape);
  EXPECT_EQ(change.firstFrame, 3);
  EXPECT_EQ(change.lastFrame, 5);
}

TEST(ChangeOfADocument, StillRunsAreThoseOfTheGeometry) {
  using Runs = std::vector<std::pair<std::int64_t, std::int64_t>>;
  wxJSONValue const moved = ArrowWith(R"([{"Head":[9,9],"Tail":[0,0],"Range":[0,3]},)"
                                      R"({"Head":[8,9],"Tail":[0,0],"Range":[4,9]}])");
  EXPECT_EQ(StillRunsOfObject(moved, 0), (Runs{{0, 3}, {4, 9}}));
  EXPECT_EQ(StillRunsOfObject(moved, 1), Runs{});
  wxJSONValue const boxed =
      JsonFromUtf8(R"({"Objects":[{"Id":7,"Rectangle":{"Coordinates":[{"Range":[2,5]}]}}]})");
  EXPECT_EQ(StillRunsOfObject(boxed, 0), (Runs{{2, 5}}));
}

TEST(ChangeOfADocument, NonsenseIsComparedToo) {
  wxJSONValue const nonsense = JsonFromUtf8(
      R"({"Objects":[{"Id":3,"StartFrame":-9223372036854775808,"EndFrame":9223372036854775807,)"
      R"("Coordinates":[7,{"Range":[9,1],"Head":"x"},{"Range":"y"},)"
      R"({"Range":[-9223372036854775808,9223372036854775807]}]}]})");
  wxJSONValue const other = JsonFromUtf8(
      R"({"Objects":[{"Id":3,"StartFrame":5,"EndFrame":2,"Coordinates":{"Range":[1,1]}}]})");
  EXPECT_NE(CompareDocuments(nonsense, other).kind, Change::Kind::None);
  EXPECT_NE(CompareDocuments(other, nonsense).kind, Change::Kind::None);
  EXPECT_EQ(CompareDocuments(nonsense, nonsense).kind, Change::Kind::None);
  EXPECT_EQ(CompareDocuments(JsonFromUtf8("[1,2]"), wxJSONValue(7)).kind, Change::Kind::None);
}

}  // namespace

}  // namespace framenote::test
