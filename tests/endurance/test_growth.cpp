// SPDX-License-Identifier: MIT
// What documents of many objects, and objects of many runs, cost: at most in proportion.
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "support/large_document.h"

namespace framenote::test {

namespace {

#ifdef NDEBUG
constexpr int kFew = 1000;
#else
constexpr int kFew = 100;
#endif
constexpr int kTimes = 10;
/// Work that goes with the square of the number would have ten; measured: up to 2.5.
constexpr double kMostRatio = 4.0;
/// Seconds; a shorter time is not worth comparing.
constexpr double kShortest = 20e-6;
constexpr int kTries = 5;

/// The processor's, whatever else the machine does.
double SecondsOf(std::function<void()> const &work) {
  std::clock_t const start = std::clock();
  work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Seconds, of several tries the least.
struct Cost {
  double ofWork = std::numeric_limits<double>::max();
  double ofVisit = std::numeric_limits<double>::max();

  /// How many visits of all that is there the work costs: caches matter to both alike.
  double Visits() const { return std::max(ofWork, kShortest) / std::max(ofVisit, 1e-6); }
};

using Work = void (LargeDocument::*)();

Cost CostOf(LargeDocument &document, Work work) {
  Cost cost;
  for (int i = 0; i < kTries; ++i) {
    cost.ofVisit = std::min(cost.ofVisit, SecondsOf([&] { document.Visit(); }));
    cost.ofWork = std::min(cost.ofWork, SecondsOf([&] { (document.*work)(); }));
  }
  return cost;
}

struct NamedWork {
  char const *name;
  Work work;
};

std::vector<NamedWork> const kWorks = {{"Load", &LargeDocument::Load},
                                       {"Paint", &LargeDocument::Paint},
                                       {"Point", &LargeDocument::Point},
                                       {"PressAtTheBack", &LargeDocument::PressAtTheBack},
                                       {"SelectEnds", &LargeDocument::SelectEnds},
                                       {"Drag", &LargeDocument::Drag},
                                       {"ChangeLook", &LargeDocument::ChangeLook},
                                       {"DeleteAndPaste", &LargeDocument::DeleteAndPaste},
                                       {"StepFrame", &LargeDocument::StepFrame},
                                       {"Save", &LargeDocument::Save}};

void ExpectProportion(LargeDocument &few, LargeDocument &many) {
  for (auto const &[name, work] : kWorks) {
    Cost const ofFew = CostOf(few, work);
    Cost const ofMany = CostOf(many, work);
    double const ratio = ofMany.Visits() / ofFew.Visits();
    std::printf("%s: %.3f ms, then %.3f ms; in visits %.1f times\n", name, 1e3 * ofFew.ofWork,
                1e3 * ofMany.ofWork, ratio);
    EXPECT_LE(ratio, kMostRatio) << name;
  }
}

TEST(Growth, OfManyObjectsIsInProportion) {
  LargeDocument few = LargeDocument::OfObjects(kFew);
  LargeDocument many = LargeDocument::OfObjects(kFew * kTimes);
  ASSERT_EQ(many.Driver().ObjectCount(), static_cast<std::size_t>(kFew * kTimes));
  ExpectProportion(few, many);
}

TEST(Growth, OfManyRunsIsInProportion) {
  LargeDocument few = LargeDocument::OfRuns(kFew);
  LargeDocument many = LargeDocument::OfRuns(kFew * kTimes);
  ExpectProportion(few, many);
}

}  // namespace

}  // namespace framenote::test
