// SPDX-License-Identifier: MIT
#include "monkey/watchdog.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace framenote::test {

namespace {

/// A step takes a tenth of a second, and with dialogs, under the slowest sanitizer, some ten.
constexpr std::chrono::seconds kPatience(120);

}  // namespace

Watchdog::Watchdog() : m_thread(&Watchdog::watch, this) {}

Watchdog::~Watchdog() {
  {
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_isOver = true;
  }
  m_isTold.notify_one();
  m_thread.join();
}

void Watchdog::Tell(std::string report) {
  {
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_report = std::move(report);
    ++m_steps;
  }
  m_isTold.notify_one();
}

void Watchdog::watch() {
  std::unique_lock<std::mutex> lock(m_mutex);
  while (!m_isOver) {
    int const before = m_steps;
    auto const isTold = [&] { return m_isOver || m_steps != before; };
    if (m_isTold.wait_for(lock, kPatience, isTold)) continue;
    std::fprintf(stderr, "no end after %d s:\n%s\n", static_cast<int>(kPatience.count()),
                 m_report.c_str());
    std::abort();
  }
}

}  // namespace framenote::test
