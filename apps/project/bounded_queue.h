// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

/// Hands values from one thread to another, in order, and makes the faster one wait.
template <class Value>
class BoundedQueue {
public:
  explicit BoundedQueue(std::size_t capacity) : m_capacity(capacity) {}
  BoundedQueue(BoundedQueue const &) = delete;
  BoundedQueue &operator=(BoundedQueue const &) = delete;

  /// Waits for room. False if the queue is closed; the value is lost then.
  bool Put(Value value) {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isClosed || m_values.size() < m_capacity; });
    if (m_isClosed) return false;
    m_values.push_back(std::move(value));
    m_changed.notify_all();
    return true;
  }
  /// Waits for a value. Nothing once the queue is closed and what was put in is taken.
  std::optional<Value> Take() {
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isClosed || !m_values.empty(); });
    if (m_values.empty()) return std::nullopt;
    std::optional<Value> value(std::move(m_values.front()));
    m_values.pop_front();
    m_changed.notify_all();
    return value;
  }
  /// Nothing more comes in.
  void Close() {
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_isClosed = true;
    m_changed.notify_all();
  }
  /// Closes, and forgets what was put in.
  void Abandon() {
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_isClosed = true;
    m_values.clear();
    m_changed.notify_all();
  }

private:
  std::size_t const m_capacity;
  std::mutex m_mutex;
  std::condition_variable m_changed;
  std::deque<Value> m_values;
  bool m_isClosed = false;
};
