// SPDX-License-Identifier: MIT
// Someone at the desktop host who knows nothing of it. FRAMENOTE_MONKEY_STEPS and
// FRAMENOTE_MONKEY_SEED say how long and which steps; FRAMENOTE_MONKEY_TRACE is a file that every
// step is written to.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "framenote/annotation_tool.h"
#include "monkey/monkey.h"
#include "monkey/monkey_actions.h"
#include "monkey/monkey_invariants.h"

namespace framenote::test {

namespace {

constexpr int kShortRun = 1500;
constexpr int kStepsPerUndo = 40;
constexpr int kStepsPerStrangers = 5;
/// A document of more objects is given up: the steps should go on reaching each of them.
constexpr std::size_t kMostObjects = 30;
/// The history has no limit; after so many steps another file starts a new one.
constexpr int kStepsPerHistory = 2500;
constexpr int kStepsPerMemory = 10000;
/// Of memory in use, from one 10,000 steps to the next, once the first are done.
constexpr double kMostGrowth = 40.0;
/// Letters that are kept of complaints.
constexpr std::size_t kMostTold = 20000;

int NumberFrom(char const *variable, int otherwise) {
  char const *const text = std::getenv(variable);
  return text != nullptr && *text != '\0' ? std::atoi(text) : otherwise;
}

class MonkeyTest : public testing::Test {
protected:
  void SetUp() override {
    std::printf("seed %d, %d steps\n", m_seed, m_steps);
    m_monkey = std::make_unique<Monkey>(static_cast<unsigned>(m_seed));
    m_invariants = std::make_unique<MonkeyInvariants>(*m_monkey);
  }

  void Step(int number) {
    if (number % kStepsPerHistory == 0 || TooManyObjects()) {
      m_monkey->BeginStep(number, "give up");
      m_monkey->OpenFile("clip.mkv");
    } else {
      MonkeyAction const &action = m_actions.Choose(*m_monkey);
      m_monkey->BeginStep(number, action.name);
      action.run(*m_monkey);
    }
    if (number % kStepsPerStrangers == 0) m_monkey->CloseStrangers();
    // Now and then a press is left for a step or two.
    if (m_monkey->Input().IsPressed() && m_monkey->Chance(60)) {
      m_monkey->Input().ReleaseAll();
      m_monkey->Pump();
    }
  }

  bool TooManyObjects() const { return m_monkey->Tool().AnnotationObjects().size() > kMostObjects; }

  /// What is wrong after a step; empty if nothing is.
  std::string Problem(int number) {
    std::string problem = m_invariants->Check();
    if (problem.empty() && number % kStepsPerUndo == 0) problem = m_invariants->CheckUndo();
    for (std::string const &text : m_monkey->Dialogs().TakeErrors()) problem += "\ntold: " + text;
    if (HasFailure()) problem += "\nan assertion failed";
    return problem;
  }

  /// A complaint fails the run at its end: what holds always may go on holding.
  void KeepComplaints(int number) {
    for (std::string const &text : m_complaints.Take()) {
      if (m_complained.size() > kMostTold) return;
      m_complained += "step " + std::to_string(number) + ": " + text + "\n" + m_monkey->LastSteps();
    }
  }

  std::string GrownMemory(int number) {
    if (number % kStepsPerMemory != 0) return {};
    double const now = ResidentMegabytes();
    std::printf("step %d: %.1f MB\n", number, now);
    double const growth = now - m_megabytes;
    bool const isFirst = m_megabytes == 0.0;
    m_megabytes = now;
    if (isFirst || growth <= kMostGrowth) return {};
    return std::to_string(growth) + " MB more in use than 10,000 steps ago";
  }

  int m_seed = NumberFrom("FRAMENOTE_MONKEY_SEED", 1);
  int m_steps = NumberFrom("FRAMENOTE_MONKEY_STEPS", kShortRun);
  Complaints m_complaints;
  MonkeyActions m_actions;
  std::unique_ptr<Monkey> m_monkey;
  std::unique_ptr<MonkeyInvariants> m_invariants;
  double m_megabytes = 0.0;
  std::string m_complained;
};

TEST_F(MonkeyTest, NoStepBreaksWhatHoldsAlways) {
  using Clock = std::chrono::steady_clock;
  Clock::time_point const begin = Clock::now();
  for (int number = 1; number <= m_steps; ++number) {
    Step(number);
    KeepComplaints(number);
    std::string const problem = Problem(number) + GrownMemory(number);
    ASSERT_EQ(problem, "") << "seed " << m_seed << ", step " << number << "; the last steps:\n"
                           << m_monkey->LastSteps() << m_complained;
  }
  double const seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  EXPECT_EQ(m_complained, "") << "seed " << m_seed;
  std::printf("%.1f steps/s, %.1f MB in use\n", m_steps / seconds, ResidentMegabytes());
}

}  // namespace

}  // namespace framenote::test
