// SPDX-License-Identifier: MIT
#include "desktop/history.h"

#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/document_edits.h"
#include "framenote/annotation_events.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

using std::chrono::milliseconds;

/// A tool and its history, as a host has them, with a clock that the test sets.
class HistoryOfATool : public testing::Test {
protected:
  HistoryOfATool() {
    m_tool.Tool().OnJsonChanged();
    m_history.Reset(Now());
  }

  ToolDriver &Driver() { return m_tool.Driver(); }
  AnnotationTool &Tool() { return m_tool.Tool(); }

  History::State Now() {
    int selected = -1;
    int index = 0;
    for (IAnnotationObject const *object : Tool().AnnotationObjects()) {
      if (object == Driver().Selected()) selected = index;
      ++index;
    }
    return {Tool().GetJSON(), selected, Tool().GetMediaInfo().frameIndex};
  }
  /// Records what the tool has; 5 seconds after the change before, unless a test says otherwise.
  bool Record(milliseconds pause = milliseconds(5000), char const *mergeKey = "") {
    m_time += pause;
    return m_history.Record(Now(), mergeKey);
  }
  /// Shows a state as a host does.
  void Show(History::State const &state) {
    History::State const shown = state;
    wxJSONValue document(wxJSONTYPE_OBJECT);
    document.Set("Annotate", shown.annotations);
    Tool().FromJSON(document, 10);
    Driver().GoToFrame(shown.frame);
    Tool().UpdateTextMacrosMap({});
    if (shown.selectedIndex >= 0) {
      Tool().SelectObject(static_cast<std::size_t>(shown.selectedIndex));
    }
    EXPECT_TRUE(Tool().GetJSON().IsSameAs(shown.annotations))
        << JsonToUtf8(shown.annotations) << "\n"
        << Driver().DocumentText();
    EXPECT_FALSE(m_history.Record(Now()));
  }
  void Undo() { Show(m_history.Undo()); }
  void Redo() { Show(m_history.Redo()); }
  /// An arrow, and the step of having drawn it.
  void DrawArrow() {
    m_tool.Perform(Types::Arrow, Edit::Draw);
    ASSERT_TRUE(Record());
  }
  void MoveArrow() {
    m_tool.Perform(Types::Arrow, Edit::Move);
    ASSERT_TRUE(Record());
  }
  std::string UndoName() const { return m_history.UndoName().utf8_string(); }
  std::string RedoName() const { return m_history.RedoName().utf8_string(); }

  EditedTool m_tool;
  std::chrono::steady_clock::time_point m_time;
  History m_history{[this] { return m_time; }};
};

class HistoryOfEachKind : public HistoryOfATool, public testing::WithParamInterface<Kind> {};

INSTANTIATE_TEST_SUITE_P(, HistoryOfEachKind, testing::ValuesIn(kKinds),
                         [](auto const &parameter) { return parameter.param.name; });

TEST_P(HistoryOfEachKind, GoesBackAndForthThroughEveryEdit) {
  std::vector<NamedEdit> const edits = EditsOf(GetParam().type);
  std::vector<wxJSONValue> documents{m_tool.Document()};
  for (NamedEdit const &edit : edits) {
    m_tool.Perform(GetParam().type, edit.edit);
    EXPECT_TRUE(Record()) << edit.name;
    EXPECT_EQ(UndoName(), std::string("Undo ") + edit.name);
    documents.push_back(m_tool.Document());
  }
  for (std::size_t i = edits.size(); i-- > 0;) {
    ASSERT_TRUE(m_history.CanUndo());
    EXPECT_EQ(UndoName(), std::string("Undo ") + edits[i].name);
    Undo();
    EXPECT_TRUE(m_tool.Document().IsSameAs(documents[i])) << edits[i].name;
    EXPECT_EQ(RedoName(), std::string("Redo ") + edits[i].name);
    // The first edit draws the object.
    EXPECT_EQ(Driver().Selected() != nullptr, i > 0) << edits[i].name;
  }
  EXPECT_FALSE(m_history.CanUndo());
  for (std::size_t i = 0; i < edits.size(); ++i) {
    ASSERT_TRUE(m_history.CanRedo());
    Redo();
    EXPECT_TRUE(m_tool.Document().IsSameAs(documents[i + 1])) << edits[i].name;
    EXPECT_EQ(Driver().Selected() != nullptr, i + 1 < edits.size()) << edits[i].name;
  }
  EXPECT_FALSE(m_history.CanRedo());
}

TEST_P(HistoryOfEachKind, RestoredObjectLeftAloneIsNoStep) {
  for (Edit const edit : {Edit::Draw, Edit::Range, Edit::Look}) {
    m_tool.Perform(GetParam().type, edit);
    Record();
  }
  Driver().GoToFrame(2);
  m_tool.Perform(GetParam().type, Edit::Move);
  Record();
  Driver().GoToFrame(4);
  Record();
  Undo();
  Redo();
  for (int frame : {2, 4, 0, 3}) {
    Tool().Deactivate();
    Driver().GoToFrame(frame);
    Tool().SelectObject(0);
    ASSERT_NE(Driver().Selected(), nullptr);
    EXPECT_FALSE(Record()) << frame;
  }
}

TEST_F(HistoryOfATool, IsEmptyAtFirst) {
  EXPECT_FALSE(m_history.CanUndo());
  EXPECT_FALSE(m_history.CanRedo());
  EXPECT_FALSE(m_history.IsModified());
  EXPECT_EQ(UndoName(), "Undo");
  EXPECT_EQ(RedoName(), "Redo");
  EXPECT_EQ(m_history.Undo().selectedIndex, -1);
  EXPECT_TRUE(m_history.Redo().annotations.IsSameAs(m_tool.Document()));
}

TEST_F(HistoryOfATool, TheSameDocumentIsNoStep) {
  DrawArrow();
  Driver().Tool().Deactivate();
  Driver().GoToFrame(3);
  EXPECT_FALSE(Record());
  EXPECT_EQ(m_history.Current().selectedIndex, -1);
  EXPECT_EQ(m_history.Current().frame, 3);
  EXPECT_TRUE(m_history.CanUndo());
}

TEST_F(HistoryOfATool, LateEventOfAnUndoneChangeIsNoStep) {
  DrawArrow();
  Driver().Sink().Clear();
  MoveArrow();
  Undo();
  Driver().Sink().Pump();
  ASSERT_GT(Driver().Sink().Count(wxEVT_ANN_JSON_CHANGED), 1U);
  EXPECT_FALSE(Record());
  EXPECT_TRUE(m_history.CanRedo());
  EXPECT_EQ(RedoName(), "Redo move arrow");
}

TEST_F(HistoryOfATool, NewStepDropsWhatCouldBeRedone) {
  DrawArrow();
  MoveArrow();
  Undo();
  m_tool.ChangeLook(Types::Arrow, 5);
  EXPECT_TRUE(Record());
  EXPECT_FALSE(m_history.CanRedo());
  EXPECT_EQ(UndoName(), "Undo change look of arrow");
  Undo();
  EXPECT_EQ(UndoName(), "Undo add arrow");
}

TEST_F(HistoryOfATool, ResetForgetsEverything) {
  DrawArrow();
  MoveArrow();
  Undo();
  m_history.Reset(Now());
  EXPECT_FALSE(m_history.CanUndo());
  EXPECT_FALSE(m_history.CanRedo());
  EXPECT_FALSE(m_history.IsModified());
}

// --- What comes into view ---

TEST_F(HistoryOfATool, UndoShowsTheFrameThatItChanges) {
  DrawArrow();
  Tool().SetSelectedsAnnotationEnd(9);
  Record();
  Driver().GoToFrame(3);
  MoveArrow();
  Driver().Tool().Deactivate();
  Driver().GoToFrame(8);
  Record();
  EXPECT_EQ(m_history.Undo().frame, 3);
  EXPECT_EQ(m_history.Redo().frame, 3);
}

TEST_F(HistoryOfATool, FrameInWhichAStepWasDoneIsKeptIfItShowsTheStep) {
  DrawArrow();
  Tool().SetSelectedsAnnotationEnd(9);
  Record();
  Driver().GoToFrame(6);
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  EXPECT_EQ(m_history.Undo().frame, 6);
  EXPECT_EQ(m_history.Undo().frame, 0);
}

TEST_F(HistoryOfATool, PositionThatTookARangeAlongGoesBackWithIt) {
  DrawArrow();
  Driver().GoToFrame(5);
  Record();
  EXPECT_EQ(m_history.Undo().frame, 0);
  EXPECT_EQ(m_history.Redo().frame, 5);
}

TEST_F(HistoryOfATool, SelectsTheObjectThatAStepIsAbout) {
  m_tool.Draw(Types::Shape, {20, 20}, {60, 60});
  Record();
  DrawArrow();
  Tool().SelectObject(1);
  m_tool.Move({5, 5});
  Record();
  Tool().SelectObject(0);
  Record();
  EXPECT_EQ(m_history.Undo().selectedIndex, 1);
  // The arrow is not in the document then.
  EXPECT_EQ(m_history.Undo().selectedIndex, -1);
  EXPECT_EQ(m_history.Redo().selectedIndex, 0);
}

TEST_F(HistoryOfATool, FollowsAnObjectThroughTheOrder) {
  m_tool.Draw(Types::Shape, {20, 20}, {60, 60});
  Record();
  DrawArrow();
  for (auto const command : {AnnotationCommand::SendBackward, AnnotationCommand::BringForward}) {
    m_tool.Run(command);
    Record();
    int const place = Now().selectedIndex;
    EXPECT_EQ(m_history.Undo().selectedIndex, 1 - place);
    EXPECT_EQ(m_history.Redo().selectedIndex, place);
  }
}

TEST_F(HistoryOfATool, ClearedObjectsComeBackWithTheSelection) {
  m_tool.Draw(Types::Shape, {20, 20}, {60, 60});
  Record();
  DrawArrow();
  Tool().SelectObject(1);
  Record();
  Tool().ClearAllAnnotations();
  EXPECT_TRUE(Record());
  EXPECT_EQ(UndoName(), "Undo clear all");
  Undo();
  EXPECT_EQ(Driver().ObjectCount(), 2U);
  EXPECT_EQ(Driver().Selected(), Driver().Object(1));
  Redo();
  EXPECT_TRUE(Tool().IsEmpty());
}

// --- One step for what belongs together ---

TEST_F(HistoryOfATool, QuickChangesOfOneLookAreOneStep) {
  DrawArrow();
  wxJSONValue const drawn = m_tool.Document();
  m_tool.ChangeLook(Types::Arrow, 5);
  EXPECT_TRUE(Record());
  for (int thickness = 6; thickness < 20; ++thickness) {
    m_tool.ChangeLook(Types::Arrow, thickness);
    EXPECT_FALSE(Record(milliseconds(1000)));
  }
  Undo();
  EXPECT_TRUE(m_tool.Document().IsSameAs(drawn));
}

TEST_F(HistoryOfATool, SlowChangesOfOneLookAreTwoSteps) {
  DrawArrow();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  m_tool.ChangeLook(Types::Arrow, 6);
  EXPECT_TRUE(Record(milliseconds(1001)));
}

TEST_F(HistoryOfATool, QuickChangesOfTwoLooksAreTwoSteps) {
  m_tool.Draw(Types::Arrow, {20, 20}, {60, 60});
  Record();
  DrawArrow();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  Tool().SelectObject(1);
  m_tool.ChangeLook(Types::Arrow, 6);
  EXPECT_TRUE(Record(milliseconds(10)));
}

TEST_F(HistoryOfATool, QuickChangesOfTwoKindsAreTwoSteps) {
  DrawArrow();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  m_tool.Move({3, 3});
  EXPECT_TRUE(Record(milliseconds(10)));
  m_tool.ChangeLook(Types::Arrow, 6);
  EXPECT_TRUE(Record(milliseconds(10)));
}

TEST_F(HistoryOfATool, QuickMovesAreOneStepWithAKeyOnly) {
  DrawArrow();
  m_tool.Move({1, 0});
  EXPECT_TRUE(Record(milliseconds(10)));
  m_tool.Move({1, 0});
  EXPECT_TRUE(Record(milliseconds(10)));
  m_tool.Move({1, 0});
  EXPECT_TRUE(Record(milliseconds(10), "arrow key"));
  m_tool.Move({1, 0});
  EXPECT_FALSE(Record(milliseconds(10), "arrow key"));
  m_tool.Move({0, 1});
  EXPECT_TRUE(Record(milliseconds(10), "another key"));
}

TEST_F(HistoryOfATool, QuickStepsWithARangeInTowAreOneStep) {
  DrawArrow();
  Driver().GoToFrame(1);
  EXPECT_TRUE(Record());
  Driver().GoToFrame(2);
  EXPECT_FALSE(Record(milliseconds(100)));
  EXPECT_EQ(UndoName(), "Undo change range of arrow");
  m_history.Undo();
  EXPECT_EQ(UndoName(), "Undo add arrow");
}

TEST_F(HistoryOfATool, TypingIsOneStep) {
  m_tool.Perform(Types::Text, Edit::Draw);
  Record();
  auto const type = [&](char const *text) {
    Driver().ObjectAs<AnnText>()->SetTextAndParse(wxString(text), {});
    m_tool.FinishEdit();
  };
  type("abcd");
  EXPECT_TRUE(Record());
  type("abcde");
  EXPECT_FALSE(Record(milliseconds(300)));
  EXPECT_EQ(UndoName(), "Undo edit text");
  Undo();
  EXPECT_EQ(Driver().ObjectAs<AnnText>()->GetText(), "abc");
}

TEST_F(HistoryOfATool, FirstTextOfABoxBelongsToTheBox) {
  Driver().UseTool(Types::Text);
  m_history.BeginGesture();
  Driver().Drag({100, 100}, {200, 160});
  EXPECT_TRUE(Record());
  m_history.EndGesture();
  Driver().ObjectAs<AnnText>()->SetTextAndParse(wxString("abc"), {});
  m_tool.FinishEdit();
  EXPECT_FALSE(Record());
  EXPECT_EQ(UndoName(), "Undo add text");
  Driver().ObjectAs<AnnText>()->SetTextAndParse(wxString("abcd"), {});
  m_tool.FinishEdit();
  EXPECT_TRUE(Record());
  EXPECT_EQ(UndoName(), "Undo edit text");
}

TEST_F(HistoryOfATool, BoxThatNeverSaysAnythingLeavesNoStep) {
  Driver().UseTool(Types::Text);
  Driver().Drag({100, 100}, {200, 160});
  EXPECT_TRUE(Record());
  EXPECT_TRUE(m_history.IsModified());
  Tool().Deactivate();
  EXPECT_FALSE(Record());
  EXPECT_FALSE(m_history.CanUndo());
  EXPECT_FALSE(m_history.IsModified());
}

TEST_F(HistoryOfATool, EmptyBoxThatWasUndoneIsNotRedone) {
  Driver().UseTool(Types::Text);
  Driver().Drag({100, 100}, {200, 160});
  Record();
  Undo();
  EXPECT_TRUE(Tool().IsEmpty());
  EXPECT_FALSE(m_history.CanRedo());
}

TEST_F(HistoryOfATool, GestureIsOneStep) {
  DrawArrow();
  wxJSONValue const drawn = m_tool.Document();
  m_history.BeginGesture();
  for (int frame = 0; frame < 5; ++frame) {
    Driver().GoToFrame(frame);
    m_tool.Move({4, 2});
    EXPECT_EQ(Record(), frame == 0);
  }
  m_history.EndGesture();
  EXPECT_EQ(m_history.UndoName(), "Undo move arrow");
  m_tool.Move({4, 2});
  EXPECT_TRUE(Record(milliseconds(1)));
  Undo();
  Undo();
  EXPECT_TRUE(m_tool.Document().IsSameAs(drawn));
}

TEST_F(HistoryOfATool, GestureTakesNothingFromBeforeIt) {
  DrawArrow();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  m_history.BeginGesture();
  m_tool.ChangeLook(Types::Arrow, 6);
  EXPECT_TRUE(Record(milliseconds(1)));
  m_history.BeginGesture();
  m_tool.ChangeLook(Types::Arrow, 7);
  EXPECT_FALSE(Record());
  m_history.EndGesture();
  m_tool.ChangeLook(Types::Arrow, 8);
  EXPECT_FALSE(Record());
  m_history.EndGesture();
  m_history.EndGesture();
  m_tool.ChangeLook(Types::Arrow, 9);
  EXPECT_TRUE(Record(milliseconds(1)));
}

TEST_F(HistoryOfATool, GestureThatComesBackLeavesNoStep) {
  DrawArrow();
  m_history.BeginGesture();
  m_tool.Move({4, 2});
  EXPECT_TRUE(Record());
  m_tool.Move({-4, -2});
  EXPECT_FALSE(Record());
  EXPECT_EQ(UndoName(), "Undo add arrow");
  m_tool.Move({1, 1});
  EXPECT_TRUE(Record());
  m_history.EndGesture();
  EXPECT_EQ(UndoName(), "Undo move arrow");
}

TEST_F(HistoryOfATool, NothingGoesIntoAStepThatWasUndone) {
  DrawArrow();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  Undo();
  Redo();
  m_tool.ChangeLook(Types::Arrow, 6);
  EXPECT_TRUE(Record(milliseconds(1)));
}

// --- Whether there is something to save ---

TEST_F(HistoryOfATool, SavedDocumentIsFoundAgain) {
  DrawArrow();
  MoveArrow();
  EXPECT_TRUE(m_history.IsModified());
  m_history.MarkSaved();
  EXPECT_FALSE(m_history.IsModified());
  Undo();
  EXPECT_TRUE(m_history.IsModified());
  Redo();
  EXPECT_FALSE(m_history.IsModified());
  MoveArrow();
  EXPECT_TRUE(m_history.IsModified());
  Undo();
  EXPECT_FALSE(m_history.IsModified());
}

TEST_F(HistoryOfATool, SavedDocumentOfADroppedBranchIsNeverFoundAgain) {
  DrawArrow();
  MoveArrow();
  m_history.MarkSaved();
  Undo();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  EXPECT_TRUE(m_history.IsModified());
  Undo();
  EXPECT_TRUE(m_history.IsModified());
  Undo();
  EXPECT_TRUE(m_history.IsModified());
  m_history.MarkSaved();
  EXPECT_FALSE(m_history.IsModified());
}

TEST_F(HistoryOfATool, SavedDocumentIsNotMergedAway) {
  DrawArrow();
  m_tool.ChangeLook(Types::Arrow, 5);
  Record();
  m_history.MarkSaved();
  m_tool.ChangeLook(Types::Arrow, 6);
  EXPECT_TRUE(Record(milliseconds(1)));
  EXPECT_TRUE(m_history.IsModified());
  Undo();
  EXPECT_FALSE(m_history.IsModified());
}

TEST_F(HistoryOfATool, SelectingDoesNotModify) {
  DrawArrow();
  m_history.MarkSaved();
  Tool().Deactivate();
  Record();
  Tool().SelectObject(0);
  Record();
  EXPECT_FALSE(m_history.IsModified());
}

TEST_F(HistoryOfATool, RecoveredDocumentIsNotSaved) {
  m_history.ForgetSaved();
  EXPECT_TRUE(m_history.IsModified());
  DrawArrow();
  Undo();
  EXPECT_TRUE(m_history.IsModified());
}

// --- Differences ---

TEST(ValueDelta, MakesEachValueFromTheOther) {
  std::vector<char const *> const texts = {"null",
                                           "7",
                                           "7.0",
                                           R"("text")",
                                           "[]",
                                           "[1,2,3,4,5,6,7]",
                                           "[1,2,3,9,5,6,7]",
                                           "[1,2,3,[4],5,6,7]",
                                           "[1,2,3,[4,5,6,7,8],5,6,7]",
                                           "[1,2,3,[4,5,9,7,8],5,6,7]",
                                           "[2,3,4,5,6,7]",
                                           "[1,2,3,4,5,6,7,8,9]",
                                           "{}",
                                           R"({"a":1,"b":{"c":[1,2,3,4,5,6]}})",
                                           R"({"b":{"c":[1,2,3,0,5,6],"d":null},"a":1})",
                                           R"({"a":null})"};
  for (char const *from : texts) {
    for (char const *to : texts) {
      wxJSONValue const before = JsonFromUtf8(from);
      wxJSONValue const after = JsonFromUtf8(to);
      ValueDelta const delta = ValueDelta::Between(before, after);
      EXPECT_TRUE(delta.AfterOf(before).IsSameAs(after)) << from << " to " << to;
      EXPECT_TRUE(delta.BeforeOf(after).IsSameAs(before)) << from << " to " << to;
    }
  }
}

}  // namespace

}  // namespace framenote::test
