// SPDX-License-Identifier: MIT
// Runs that are stopped, killed, or have no room, and outputs that must not be written.
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "burn/video_fixture.h"

namespace framenote::test {

namespace {

class BurnInterrupted : public BurnVideo {
protected:
  void SetUp() override {
    BurnVideo::SetUp();
    // Long enough to be caught in the middle of.
    Ffmpeg("-f lavfi -i testsrc2=s=640x480:r=25:d=12 -c:v libx264 -preset ultrafast in.mp4");
    m_before = Names();
  }

  /// Runs the program and sends it `signal` after `delay`.
  Outcome Interrupt(Arguments const &arguments, int signal, std::chrono::milliseconds delay) {
    return Interrupt(arguments, signal, [delay] { std::this_thread::sleep_for(delay); });
  }

  /// Runs the program and sends it `signal` once `wait` is over.
  Outcome Interrupt(Arguments const &arguments, int signal, std::function<void()> const &wait) {
    pid_t group = 0;
    Outcome const outcome = RunProgram(
        arguments, [] { setpgid(0, 0); },
        [&](pid_t child) {
          group = child;
          wait();
          kill(child, signal);
        });
    EXPECT_EQ(kill(-group, 0), -1) << "a process is left";
    EXPECT_EQ(errno, ESRCH);
    return outcome;
  }

  Lines m_before;
};

TEST_F(BurnInterrupted, ASignalStopsAndLeavesNothing) {
  std::mt19937 random(1);
  std::uniform_int_distribution<int> delays(0, 900);
  fs::create_directory(In("pictures"));
  for (int const signal : {SIGINT, SIGTERM}) {
    for (char const *name : {"out.mkv", "out.mp4", "out-%06d.bmp", "out.mkv", "out.mkv"}) {
      auto const delay = std::chrono::milliseconds(delays(random));
      Outcome const outcome = Interrupt(VideoArguments("in.mp4", std::string("pictures/") + name,
                                                       {"--report", In("pictures/report.json")}),
                                        signal, delay);
      // Before the program has begun the signal ends it as any other.
      bool const isEarly = outcome.code == -signal;
      EXPECT_TRUE(isEarly || outcome.code == 130) << outcome.code << outcome.err;
      if (!isEarly) {
        EXPECT_NE(outcome.err.find("stopped"), std::string::npos) << outcome.err;
      }
      EXPECT_TRUE(fs::is_empty(In("pictures"))) << name << delay.count();
    }
  }
}

TEST_F(BurnInterrupted, ASignalWhileItWritesStopsAndLeavesNothing) {
  fs::create_directory(In("pictures"));
  auto const untilItWrites = [this] {
    for (int i = 0; i < 60'000 && fs::is_empty(In("pictures")); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  };
  for (char const *name : {"out.mkv", "out.mp4", "out-%06d.bmp"}) {
    Outcome const outcome =
        Interrupt(VideoArguments("in.mp4", std::string("pictures/") + name), SIGINT, untilItWrites);
    EXPECT_EQ(outcome.code, 130) << outcome.err;
    EXPECT_NE(outcome.err.find("stopped"), std::string::npos) << outcome.err;
    EXPECT_TRUE(fs::is_empty(In("pictures"))) << name;
  }
}

TEST_F(BurnInterrupted, BeingKilledLeavesNothingUnderTheOutputsName) {
  WriteAll(In("out.mkv"), "what was there");
  Outcome const outcome =
      Interrupt(VideoArguments("in.mp4", "out.mkv"), SIGKILL, std::chrono::milliseconds(600));
  EXPECT_EQ(outcome.code, -SIGKILL);
  EXPECT_EQ(ReadAll(In("out.mkv")), "what was there");
  Interrupt(VideoArguments("in.mp4", "new.mkv"), SIGKILL, std::chrono::milliseconds(600));
  EXPECT_FALSE(fs::exists(In("new.mkv")));
}

TEST_F(BurnInterrupted, WithoutRoomItGivesThreeAndLeavesNothing) {
  auto const limitFiles = [] {
    rlimit const limit = {300'000, 300'000};
    setrlimit(RLIMIT_FSIZE, &limit);
  };
  for (char const *name : {"out.mkv", "out.mp4", "out-%d.bmp"}) {
    ExpectFailure(
        RunProgram(VideoArguments("in.mp4", name, {"--report", In("report.json")}), limitFiles), 3,
        "File too large");
    EXPECT_EQ(Names(), m_before) << name;
  }
}

TEST_F(BurnInterrupted, AReportThatCannotBeWrittenCostsNoWork) {
  ExpectFailure(
      RunProgram(VideoArguments("in.mp4", "out.mkv", {"--report", In("none/report.json")})), 3,
      "No such file");
  EXPECT_EQ(Names(), m_before);
}

TEST_F(BurnInterrupted, NothingThatIsReadIsWrittenTo) {
  Output("cp in.mp4 source.mp4; ln -s source.mp4 link.mp4; ln source.mp4 hard.mp4");
  Output("cp in.png 0.png");
  std::string const source = ReadAll(In("source.mp4"));
  std::string const document = ReadAll(In("doc.json"));
  for (char const *name : {"source.mp4", "link.mp4", "hard.mp4"}) {
    ExpectFailure(RunProgram(VideoArguments("source.mp4", name)), 2, "is the source");
    ExpectFailure(RunProgram(VideoArguments("link.mp4", name)), 2, "is the source");
    ExpectFailure(RunProgram(VideoArguments("source.mp4", "out.mkv", {"--report", In(name)})), 2,
                  "is the source");
  }
  ExpectFailure(RunProgram(VideoArguments("0.png", "%d.png")), 2, "is the source");
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--report", In("doc.json")})), 2,
                "is the document");
  ExpectFailure(RunProgram(VideoArguments("in.mp4", "out.mkv", {"--report", In("out.mkv")})), 2,
                "is the output");
  EXPECT_TRUE(ReadAll(In("source.mp4")) == source);
  EXPECT_EQ(ReadAll(In("doc.json")), document);
  EXPECT_FALSE(fs::exists(In("out.mkv")));
}

}  // namespace

}  // namespace framenote::test
