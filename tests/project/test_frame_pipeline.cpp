// SPDX-License-Identifier: MIT
#include "project/frame_pipeline.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "project/bounded_queue.h"
#include "project/fake_media.h"

namespace framenote::test {
namespace {

using Numbers = std::vector<std::int64_t>;

/// Frames of one pixel that hold their numbers.
class NumberedMedia : public FakeMedia {
public:
  explicit NumberedMedia(std::int64_t frames) : FakeMedia(EvenTimes(frames, 1), {1, 25}) {}

  MediaFrame Read(std::int64_t frame) override {
    if (frame == m_failsAt) throw std::runtime_error("reading");
    ++m_read;
    MediaFrame read;
    read.picture = Picture(1, 1);
    read.picture.Pixels()[0] = static_cast<unsigned char>(frame);
    return read;
  }

  std::int64_t m_failsAt = -1;
  std::atomic<int> m_read{0};
};

/// A still, read where the pipeline runs.
class StillMedia : public FakeMedia {
public:
  StillMedia() : FakeMedia(EvenTimes(1, 1), {1, 1}) { m_still.kind = MediaInfo::Kind::Still; }
  MediaInfo const &Info() const override { return m_still; }
  MediaFrame Read(std::int64_t) override {
    m_reader = std::this_thread::get_id();
    MediaFrame read;
    read.picture = Picture(1, 1);
    return read;
  }

  std::thread::id m_reader;

private:
  MediaInfo m_still;
};

std::size_t ThreadCount() {
  auto const tasks = std::filesystem::directory_iterator("/proc/self/task");
  return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

class FramePipeline : public testing::Test {
protected:
  FramePipeline() {
    m_steps.burn = [this](std::int64_t frame, MediaFrame &&read) {
      m_burnt.push_back(frame);
      EXPECT_EQ(read.picture.Pixels()[0], static_cast<unsigned char>(frame));
      return std::move(read.picture);
    };
    m_steps.write = [this](std::int64_t frame, Picture const &picture) {
      EXPECT_EQ(picture.Pixels()[0], static_cast<unsigned char>(frame));
      m_written.push_back(frame);
    };
  }
  ~FramePipeline() override {
    // A thread that was waited for may stay in the list for a moment.
    for (int i = 0; i < 100 && ThreadCount() != m_threads; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ(ThreadCount(), m_threads) << "a thread is left";
  }

  /// What running throws.
  std::string FailureOf(MediaSource &media) {
    try {
      RunFramePipeline(media, {0, media.Info().frameCount - 1}, m_steps);
    } catch (std::runtime_error const &error) {
      return error.what();
    }
    return "nothing";
  }

  std::size_t m_threads = ThreadCount();
  FrameSteps m_steps;
  Numbers m_burnt;
  Numbers m_written;
};

TEST_F(FramePipeline, KeepsTheOrderAndTheRange) {
  NumberedMedia media(100);
  Numbers told;
  m_steps.progress = [&](std::int64_t done) {
    told.push_back(done);
    return true;
  };
  EXPECT_TRUE(RunFramePipeline(media, {3, 7}, m_steps));
  EXPECT_EQ(m_burnt, (Numbers{3, 4, 5, 6, 7}));
  EXPECT_EQ(m_written, (Numbers{3, 4, 5, 6, 7}));
  EXPECT_EQ(told, (Numbers{1, 2, 3, 4, 5}));
  EXPECT_EQ(media.m_read, 5);
}

TEST_F(FramePipeline, KeepsTheOrderWhicheverStepIsSlow) {
  for (int slow = 0; slow < 2; ++slow) {
    NumberedMedia media(40);
    Numbers written;
    FrameSteps steps = m_steps;
    auto const rest = [] { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
    steps.burn = [&](std::int64_t, MediaFrame &&read) {
      if (slow == 0) rest();
      return std::move(read.picture);
    };
    steps.write = [&](std::int64_t frame, Picture const &) {
      if (slow == 1) rest();
      written.push_back(frame);
    };
    EXPECT_TRUE(RunFramePipeline(media, {0, 39}, steps));
    ASSERT_EQ(written.size(), 40u);
    EXPECT_TRUE(std::is_sorted(written.begin(), written.end()));
  }
}

TEST_F(FramePipeline, BurnsWhereItIsRunAndReadsAndWritesElsewhere) {
  NumberedMedia media(3);
  auto const here = std::this_thread::get_id();
  m_steps.burn = [&](std::int64_t, MediaFrame &&read) {
    EXPECT_EQ(std::this_thread::get_id(), here);
    return std::move(read.picture);
  };
  m_steps.write = [&](std::int64_t, Picture const &) {
    EXPECT_NE(std::this_thread::get_id(), here);
  };
  EXPECT_TRUE(RunFramePipeline(media, {0, 2}, m_steps));
}

TEST_F(FramePipeline, AStillStaysInOneThread) {
  StillMedia still;
  auto const here = std::this_thread::get_id();
  std::thread::id writer;
  m_steps.burn = [](std::int64_t, MediaFrame &&read) { return std::move(read.picture); };
  m_steps.write = [&](std::int64_t, Picture const &) { writer = std::this_thread::get_id(); };
  EXPECT_TRUE(RunFramePipeline(still, {0, 0}, m_steps));
  EXPECT_EQ(still.m_reader, here);
  EXPECT_EQ(writer, here);
}

TEST_F(FramePipeline, StopsWhereItIsTold) {
  NumberedMedia media(100);
  m_steps.progress = [](std::int64_t done) { return done < 10; };
  EXPECT_FALSE(RunFramePipeline(media, {0, 99}, m_steps));
  EXPECT_EQ(m_burnt.size(), 10u);
  EXPECT_LE(m_written.size(), 10u);
}

TEST_F(FramePipeline, AStepThatThrowsEndsItWithWhatItThrew) {
  for (std::int64_t const frame : {0, 20, 99}) {
    NumberedMedia unreadable(100);
    unreadable.m_failsAt = frame;
    m_written.clear();
    EXPECT_EQ(FailureOf(unreadable), "reading");
    NumberedMedia media(100);
    FrameSteps const good = m_steps;
    m_steps.burn = [&](std::int64_t at, MediaFrame &&read) {
      if (at == frame) throw std::runtime_error("burning");
      return std::move(read.picture);
    };
    EXPECT_EQ(FailureOf(media), "burning");
    m_steps = good;
    m_steps.write = [&](std::int64_t at, Picture const &) {
      if (at == frame) throw std::runtime_error("writing");
    };
    EXPECT_EQ(FailureOf(media), "writing");
    m_steps = good;
    m_steps.progress = [&](std::int64_t done) -> bool {
      if (done == frame + 1) throw std::runtime_error("telling");
      return true;
    };
    EXPECT_EQ(FailureOf(media), "telling");
    m_steps = good;
  }
}

TEST_F(FramePipeline, WhatWasReadBeforeAFailureIsWritten) {
  NumberedMedia media(100);
  media.m_failsAt = 5;
  EXPECT_EQ(FailureOf(media), "reading");
  EXPECT_EQ(m_burnt, (Numbers{0, 1, 2, 3, 4}));
}

TEST_F(FramePipeline, HoldsAFewFramesHoweverFastTheyAreRead) {
  NumberedMedia media(200);
  std::atomic<int> written{0};
  int most = 0;
  m_steps.write = [&](std::int64_t, Picture const &) {
    std::this_thread::sleep_for(std::chrono::microseconds(200));
    most = std::max(most, media.m_read - written);
    ++written;
  };
  EXPECT_TRUE(RunFramePipeline(media, {0, 199}, m_steps));
  // Three in each of two queues, and one in each of three hands.
  EXPECT_LE(most, 9);
  EXPECT_EQ(written, 200);
}

TEST(BoundedQueueTest, GivesWhatItHeldAfterItIsClosedAndNothingOnceAbandoned) {
  BoundedQueue<int> queue(2);
  EXPECT_TRUE(queue.Put(1));
  EXPECT_TRUE(queue.Put(2));
  queue.Close();
  EXPECT_FALSE(queue.Put(3));
  EXPECT_EQ(queue.Take(), 1);
  queue.Abandon();
  EXPECT_EQ(queue.Take(), std::nullopt);
}

}  // namespace
}  // namespace framenote::test
