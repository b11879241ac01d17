// SPDX-License-Identifier: MIT
#include <memory>

#include <wx/tglbtn.h>

#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

/// The copy that the event queue would hand out, with the original gone.
template <class Event>
std::unique_ptr<Event> Cloned(std::unique_ptr<Event> original) {
  return std::unique_ptr<Event>(dynamic_cast<Event *>(original->Clone()));
}

template <class Event, class... Arguments>
std::unique_ptr<Event> ClonedOf(Arguments &&...arguments) {
  return Cloned(std::make_unique<Event>(std::forward<Arguments>(arguments)...));
}

TEST(AnnotationEventClone, StartedKeepsTheFrame) {
  auto const event = ClonedOf<AnnotationStartedEvent>(wxEVT_ANN_STARTED, 5000000000);
  EXPECT_EQ(event->GetEventType(), wxEVT_ANN_STARTED);
  EXPECT_EQ(event->GetId(), 0);
  EXPECT_EQ(event->FrameIndex(), 5000000000);
}

TEST(AnnotationEventClone, ObjectSelectedKeepsFrameAndNewness) {
  auto const event =
      ClonedOf<AnnotationObjectSelectedEvent>(wxEVT_ANN_OBJECT_SELECTED, 5000000001, true);
  EXPECT_EQ(event->GetEventType(), wxEVT_ANN_OBJECT_SELECTED);
  EXPECT_EQ(event->FrameIndex(), 5000000001);
  EXPECT_TRUE(event->IsNew());
}

TEST(AnnotationEventClone, ObjectDeselectedKeepsItsType) {
  auto const event = ClonedOf<AnnotationObjectDeselectedEvent>(wxEVT_ANN_OBJECT_DESELECTED);
  EXPECT_EQ(event->GetEventType(), wxEVT_ANN_OBJECT_DESELECTED);
  EXPECT_EQ(event->GetId(), 0);
}

TEST(AnnotationEventClone, JsonChangedKeepsItsValueWhenTheSourceChanges) {
  wxJSONValue json(wxJSONTYPE_OBJECT);
  json.Set("Objects", 7);
  auto original = std::make_unique<AnnotationJsonChangedEvent>(wxEVT_ANN_JSON_CHANGED, json);
  json.Set("Objects", 8);
  auto const event = Cloned(std::move(original));
  EXPECT_EQ(event->Json().ItemAt("Objects").AsInt(), 7);
  EXPECT_EQ(event->Key(), "Annotate");
}

TEST(AnnotationEventClone, FrameRangeChangedOwnsItsRanges) {
  AnnotationFrameRangeChangedEvent::Ranges ranges = {{1, 2, *wxRED}, {3, 4, *wxBLUE}};
  auto original =
      std::make_unique<AnnotationFrameRangeChangedEvent>(wxEVT_ANN_FRAME_RANGE_CHANGED, ranges, 1);
  auto const *const data = original->FrameRanges().data();
  std::unique_ptr<AnnotationFrameRangeChangedEvent> const event(
      dynamic_cast<AnnotationFrameRangeChangedEvent *>(original->Clone()));
  ranges.clear();
  EXPECT_NE(event->FrameRanges().data(), data);
  original.reset();
  ASSERT_EQ(event->FrameRanges().size(), 2U);
  EXPECT_EQ(event->FrameRanges()[1], std::make_tuple(std::int64_t{3}, std::int64_t{4}, *wxBLUE));
  EXPECT_EQ(event->SelectedIndex(), 1);
}

TEST(AnnotationEventClone, GoToFrameKeepsDirectionAndFrame) {
  auto const event =
      ClonedOf<AnnotationGoToFrameEvent>(wxEVT_ANN_GOTO_FRAME, AnnotationGoToFrameEvent::ToEnd, -1);
  EXPECT_EQ(event->Direction(), AnnotationGoToFrameEvent::ToEnd);
  EXPECT_EQ(event->FrameIndex(), -1);
  EXPECT_EQ(static_cast<int>(AnnotationGoToFrameEvent::ToStart), 0);
  EXPECT_EQ(static_cast<int>(AnnotationGoToFrameEvent::ToEnd), 1);
}

TEST(AnnotationEventClone, TextEditionEventsKeepTheirTypes) {
  auto const started = ClonedOf<AnnotationTextEditionStartedEvent>(wxEVT_ANN_TEXT_EDITION_STARTED);
  EXPECT_EQ(started->GetEventType(), wxEVT_ANN_TEXT_EDITION_STARTED);
  auto const finished =
      ClonedOf<AnnotationTextEditionFinishedEvent>(wxEVT_ANN_TEXT_EDITION_FINISHED);
  EXPECT_EQ(finished->GetEventType(), wxEVT_ANN_TEXT_EDITION_FINISHED);
}

TEST(AnnotationEventClone, ToolEventsKeepButtonIdAndTool) {
  wxObject button;
  auto const selected =
      ClonedOf<AnnotationToolSelectedEvent>(wxEVT_ANN_TOOL_SELECTED, &button, 4711, Types::Magnify);
  EXPECT_EQ(selected->GetEventObject(), &button);
  EXPECT_EQ(selected->GetId(), 4711);
  EXPECT_EQ(selected->ToolModeId(), Types::Magnify);
  auto const deselected = ClonedOf<AnnotationToolDeselectedEvent>(wxEVT_ANN_TOOL_DESELECTED,
                                                                  &button, 4712, Types::Text);
  EXPECT_EQ(deselected->GetEventObject(), &button);
  EXPECT_EQ(deselected->GetId(), 4712);
  EXPECT_EQ(deselected->ToolModeId(), Types::Text);
}

TEST(AnnotationEventClone, ToolEventsCanBeMadeEmpty) {
  EXPECT_EQ(AnnotationToolSelectedEvent().GetEventObject(), nullptr);
  EXPECT_EQ(AnnotationToolDeselectedEvent().GetEventObject(), nullptr);
}

TEST(AnnotationEventTypes, AreAllDifferent) {
  std::set<wxEventType> const types = {wxEVT_ANN_STARTED,
                                       wxEVT_ANN_OBJECT_SELECTED,
                                       wxEVT_ANN_OBJECT_DESELECTED,
                                       wxEVT_ANN_JSON_CHANGED,
                                       wxEVT_ANN_FRAME_RANGE_CHANGED,
                                       wxEVT_ANN_GOTO_FRAME,
                                       wxEVT_ANN_TEXT_EDITION_STARTED,
                                       wxEVT_ANN_TEXT_EDITION_FINISHED,
                                       wxEVT_ANN_TOOL_SELECTED,
                                       wxEVT_ANN_TOOL_DESELECTED};
  EXPECT_EQ(types.size(), 10U);
}

TEST(AnnotationEventPosting, IsNeverInPlace) {
  ToolDriver driver;
  bool isHandled = false;
  driver.Sink().Bind(wxEVT_ANN_JSON_CHANGED, [&isHandled](AnnotationJsonChangedEvent &event) {
    isHandled = true;
    event.Skip();
  });
  driver.DrawShape({20, 20}, {120, 80});
  EXPECT_FALSE(isHandled);
  driver.Sink().Pump();
  EXPECT_TRUE(isHandled);
}

TEST(AnnotationEventPosting, JsonKeepsItsValueAfterTheToolHasChanged) {
  ToolDriver driver;
  driver.DrawShape({20, 20}, {120, 80});
  driver.Sink().Pump();
  wxJSONValue const early = driver.Sink().Last(wxEVT_ANN_JSON_CHANGED)->Json();
  driver.Tool().ClearAllAnnotations();
  EXPECT_EQ(early.ItemAt("Objects").Size(), 1);
  EXPECT_EQ(driver.Sink().Last(wxEVT_ANN_JSON_CHANGED)->Json().ItemAt("Objects").Size(), 0);
}

TEST(AnnotationEventPosting, NeedsASink) {
  auto tool =
      std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
  tool->UpdateMediaInfo({0, 10, false});
  tool->OnObjectSelected(true);
  tool->SendAnnotationFrameRangeChangedEvent();
  tool->SendAnnotationTextEditionStartedEvent();
  tool->SendAnnotationTextEditionFinishedEvent();
  tool->SendAnnotationToolSelectedEvent(nullptr, Types::Shape);
  tool->SendAnnotationToolDeselectedEvent(nullptr, Types::Shape);
  tool->GoToObject(GoToObjectDirection::Next);
  tool->OnJsonChanged();
  EXPECT_TRUE(tool->GetJSON().HasMember("Objects"));
}

TEST(AnnotationEventPosting, ToolEventsCarryThePalettesButton) {
  ToolDriver driver;
  driver.Tool().SendAnnotationToolSelectedEvent(nullptr, Types::Pencil);
  auto const *selected = driver.Sink().Last(wxEVT_ANN_TOOL_SELECTED);
  ASSERT_NE(selected, nullptr);
  EXPECT_EQ(selected->ToolModeId(), Types::Pencil);
  driver.Tool().SendAnnotationToolDeselectedEvent(nullptr, Types::Arrow);
  auto const *deselected = driver.Sink().Last(wxEVT_ANN_TOOL_DESELECTED);
  ASSERT_NE(deselected, nullptr);
  EXPECT_EQ(deselected->ToolModeId(), Types::Arrow);
}

TEST(AnnotationEventPosting, TextEditionEventsCarryNothing) {
  ToolDriver driver;
  driver.Tool().SendAnnotationTextEditionStartedEvent();
  driver.Tool().SendAnnotationTextEditionFinishedEvent();
  EXPECT_EQ(driver.Sink().Types(), (std::vector<wxEventType>{wxEVT_ANN_TEXT_EDITION_STARTED,
                                                             wxEVT_ANN_TEXT_EDITION_FINISHED}));
}

}  // namespace

}  // namespace framenote::test
