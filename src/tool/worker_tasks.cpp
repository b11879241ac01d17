// SPDX-License-Identifier: MIT
#include "tool/worker_tasks.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

namespace framenote {

namespace {

/// Work that is done by then needs no threads: to start them costs as much.
constexpr std::chrono::microseconds kShortWork(500);

/// Hands out the tasks.
class TaskQueue {
public:
  explicit TaskQueue(std::vector<std::function<void()>> const &tasks) : m_tasks(tasks) {}

  /// Runs the next task; false if there was none.
  bool WorkOnOne() {
    std::size_t const i = m_next++;
    if (i >= m_tasks.size()) return false;
    try {
      m_tasks[i]();
    } catch (...) {
      std::lock_guard<std::mutex> const lock(m_mutex);
      if (!m_exception) m_exception = std::current_exception();
    }
    return true;
  }

  void WorkOnAll() {
    while (WorkOnOne()) {
    }
  }

  std::size_t Left() const { return m_tasks.size() - std::min(m_next.load(), m_tasks.size()); }

  void RethrowIfAny() const {
    if (m_exception) std::rethrow_exception(m_exception);
  }

private:
  std::vector<std::function<void()>> const &m_tasks;
  std::atomic<std::size_t> m_next{0};
  std::mutex m_mutex;
  std::exception_ptr m_exception;
};

}  // namespace

void RunTasks(std::vector<std::function<void()>> const &tasks) {
  TaskQueue queue(tasks);
  auto const start = std::chrono::steady_clock::now();
  while (queue.Left() > 0 && std::chrono::steady_clock::now() - start < kShortWork) {
    queue.WorkOnOne();
  }
  std::size_t const processors = std::max(1U, std::thread::hardware_concurrency());
  std::size_t const threads = std::min(processors, queue.Left());
  std::vector<std::thread> helpers;
  while (helpers.size() + 1 < threads) {
    try {
      helpers.emplace_back([&queue] { queue.WorkOnAll(); });
    } catch (std::system_error const &) {
      break;  // The machine has no thread left; those that run do it all.
    }
  }
  queue.WorkOnAll();
  for (std::thread &helper : helpers) helper.join();
  queue.RethrowIfAny();
}

}  // namespace framenote
