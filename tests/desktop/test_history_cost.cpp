// SPDX-License-Identifier: MIT
// What the steps of a long document cost in time and memory.
#include <ctime>
#include <utility>
#include <vector>

#include <malloc.h>

#include <gtest/gtest.h>

#include "desktop/history.h"
#include "talbase/json_conversions.h"

namespace framenote::test {

namespace {

/// A document of arrows on a video of a thousand frames, written as a tool does: the list of
/// objects is made anew for each change, the objects that did not change are shared.
class LongDocument {
public:
  explicit LongDocument(int objects) {
    for (int i = 0; i < objects; ++i) m_objects.push_back(Arrow({{0, 999}}, i));
  }
  void Move(std::size_t index, int x) { m_objects[index] = Arrow({{0, 999}}, x); }
  /// The geometry of the frames up to `last` differs from frame to frame.
  void Follow(std::size_t index, int last) {
    std::vector<std::pair<int, int>> runs;
    for (int frame = 0; frame <= last; ++frame) runs.emplace_back(frame, frame);
    m_objects[index] = Arrow(runs, 0);
  }
  wxJSONValue Document() const {
    wxJSONValue objects(wxJSONTYPE_ARRAY);
    for (wxJSONValue const &object : m_objects) objects.Append(object);
    wxJSONValue document(wxJSONTYPE_OBJECT);
    document.Set("ExtensionColor", "#FFFFFFFF");
    document.Set("Objects", std::move(objects));
    return document;
  }

private:
  static wxJSONValue Arrow(std::vector<std::pair<int, int>> const &runs, int x) {
    wxJSONValue coordinates(wxJSONTYPE_ARRAY);
    for (auto const &[first, last] : runs) {
      wxJSONValue run(wxJSONTYPE_OBJECT);
      run.Set("Head", ToJson(wxPoint2DInt(x + first, 7)));
      run.Set("Tail", ToJson(wxPoint2DInt(x + first, 90)));
      run.Set("Range", ToJson(std::vector<std::int64_t>{first, last}));
      coordinates.Append(std::move(run));
    }
    wxJSONValue arrow(wxJSONTYPE_OBJECT);
    arrow.Set("Id", 3);
    arrow.Set("StartFrame", 0);
    arrow.Set("EndFrame", runs.back().second);
    arrow.Set("Coordinates", std::move(coordinates));
    return arrow;
  }

  std::vector<wxJSONValue> m_objects;
};

/// What the program has from the allocator, in bytes; 0 under a sanitizer, which has its own.
std::size_t BytesInUse() {
  return mallinfo2().uordblks;
}

/// The processor's, whatever else the machine does.
double SecondsSince(std::clock_t start) {
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(HistoryCost, ManyStepsOfALongDocumentShareIt) {
  constexpr int kSteps = 10000;
  LongDocument document(1000);
  History history;
  history.Reset({document.Document(), -1, 0});
  std::size_t const before = BytesInUse();
  double seconds = 0.0;
  for (int i = 0; i < kSteps; ++i) {
    document.Move(static_cast<std::size_t>(i * 7 % 1000), 1000 + i);
    History::State const state{document.Document(), -1, 0};
    std::clock_t const start = std::clock();
    ASSERT_TRUE(history.Record(state));
    seconds += SecondsSince(start);
  }
  std::size_t const bytes = BytesInUse() - before;
  RecordProperty("milliseconds", static_cast<int>(seconds * 1000));
  RecordProperty("bytesPerStep", static_cast<int>(bytes / kSteps));
  // A list of 1000 objects alone takes 16,000 bytes.
  EXPECT_LT(bytes / kSteps, 3000U);
#ifdef NDEBUG
  // Measured: 0.5 to 0.7 seconds.
  EXPECT_LT(seconds, 2.0);
#endif
  for (int i = 0; i < kSteps; ++i) history.Undo();
  EXPECT_TRUE(history.Current().annotations.IsSameAs(LongDocument(1000).Document()));
}

TEST(HistoryCost, ForgottenStepsLeaveNothing) {
  constexpr int kSteps = 2000;
  LongDocument document(10);
  History history;
  history.Reset({document.Document(), -1, 0});
  std::size_t const before = BytesInUse();
  for (int i = 0; i < kSteps; ++i) {
    document.Move(static_cast<std::size_t>(i % 10), 1000 + i);
    ASSERT_TRUE(history.Record({document.Document(), -1, 0}));
  }
  history.Reset({document.Document(), -1, 0});
  // The room of the steps alone would be some 500,000 bytes.
  EXPECT_LT(BytesInUse(), before + 50000);
}

TEST(HistoryCost, FollowingAnObjectFrameByFrameSharesItsRuns) {
  LongDocument document(10);
  document.Follow(3, 0);
  History history;
  history.Reset({document.Document(), 3, 0});
  std::size_t const before = BytesInUse();
  for (int frame = 1; frame < 1000; ++frame) {
    document.Follow(3, frame);
    ASSERT_TRUE(history.Record({document.Document(), 3, frame}, wxString::Format("%d", frame)));
  }
  std::size_t const bytes = BytesInUse() - before;
  RecordProperty("bytesPerStep", static_cast<int>(bytes / 1000));
  // The runs alone, kept whole for each step, would take some 300,000 bytes on average.
  EXPECT_LT(bytes / 1000, 5000U);
}

}  // namespace

}  // namespace framenote::test
