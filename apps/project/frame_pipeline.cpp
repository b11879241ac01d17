// SPDX-License-Identifier: MIT
#include "project/frame_pipeline.h"

#include <exception>
#include <functional>
#include <thread>
#include <utility>

#include "project/bounded_queue.h"

namespace {

/// Enough to bridge a frame that takes longer; pictures of 4K take 25 MB each.
constexpr std::size_t kFramesBetweenSteps = 3;

struct ReadFrame {
  std::int64_t number;
  MediaFrame frame;
};

struct BurntFrame {
  std::int64_t number;
  Picture picture;
};

using ReadFrames = BoundedQueue<ReadFrame>;
using BurntFrames = BoundedQueue<BurntFrame>;

/// A thread that keeps what it threw until it is asked.
class Worker {
public:
  /// `stop` makes `work` end soon, from any thread.
  template <class Work>
  Worker(Work work, std::function<void()> stop)
      : m_stop(std::move(stop)), m_thread([this, work = std::move(work)] {
          try {
            work();
          } catch (...) {
            m_failure = std::current_exception();
          }
        }) {}
  Worker(Worker const &) = delete;
  Worker &operator=(Worker const &) = delete;
  ~Worker() {
    if (!m_thread.joinable()) return;
    m_stop();
    m_thread.join();
  }

  /// Waits for the end.
  void Join() { m_thread.join(); }
  /// REQUIRES: Join has returned.
  void Rethrow() const {
    if (m_failure) std::rethrow_exception(m_failure);
  }

private:
  std::function<void()> m_stop;
  std::exception_ptr m_failure;  // before the thread, which writes it
  std::thread m_thread;
};

/// Does something on whatever way out.
template <class Work>
struct AtEnd {
  Work work;
  ~AtEnd() { work(); }
};
template <class Work>
AtEnd(Work) -> AtEnd<Work>;

void ReadAll(MediaSource &source, FrameRange const &range, ReadFrames &read) {
  for (std::int64_t frame = range.first; frame <= range.last; ++frame) {
    if (!read.Put({frame, source.Read(frame)})) return;
  }
}

void WriteAll(FrameSteps const &steps, BurntFrames &burnt) {
  while (std::optional<BurntFrame> const next = burnt.Take()) {
    steps.write(next->number, next->picture);
  }
}

/// False if it was stopped by the progress.
bool BurnAll(FrameSteps const &steps, ReadFrames &read, BurntFrames &burnt) {
  std::int64_t done = 0;
  while (std::optional<ReadFrame> next = read.Take()) {
    Picture picture = steps.burn(next->number, std::move(next->frame));
    // Closed early: the writer has failed, and says why when it has ended.
    if (!burnt.Put({next->number, std::move(picture)})) return true;
    if (steps.progress && !steps.progress(++done)) return false;
  }
  return true;
}

/// A still: the toolkit decodes it, which belongs to the thread that runs the pipeline.
bool RunInOneThread(MediaSource &source, FrameRange const &range, FrameSteps const &steps) {
  for (std::int64_t frame = range.first; frame <= range.last; ++frame) {
    steps.write(frame, steps.burn(frame, source.Read(frame)));
    if (steps.progress && !steps.progress(frame - range.first + 1)) return false;
  }
  return true;
}

}  // namespace

bool RunFramePipeline(MediaSource &source, FrameRange const &range, FrameSteps const &steps) {
  if (source.Info().kind == MediaInfo::Kind::Still) return RunInOneThread(source, range, steps);
  ReadFrames read(kFramesBetweenSteps);
  BurntFrames burnt(kFramesBetweenSteps);
  // What burns must never wait for a thread that has ended.
  Worker reader(
      [&] {
        AtEnd const close{[&] { read.Close(); }};
        ReadAll(source, range, read);
      },
      [&] { read.Abandon(); });
  Worker writer(
      [&] {
        AtEnd const abandon{[&] { burnt.Abandon(); }};
        WriteAll(steps, burnt);
      },
      [&] { burnt.Abandon(); });
  if (!BurnAll(steps, read, burnt)) return false;
  read.Abandon();
  burnt.Close();
  reader.Join();
  writer.Join();
  reader.Rethrow();
  writer.Rethrow();
  return true;
}
