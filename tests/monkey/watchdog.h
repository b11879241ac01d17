// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace framenote::test {

/// Ends the process, as failed, if it is not told of a step for far too long: a loop that never
/// ends must neither look like a success nor keep the machine waiting.
class Watchdog {
public:
  Watchdog();
  Watchdog(Watchdog const &) = delete;
  Watchdog &operator=(Watchdog const &) = delete;
  ~Watchdog();

  /// Another step begins; `report` is printed if it does not end.
  void Tell(std::string report);

private:
  void watch();

  std::mutex m_mutex;
  std::condition_variable m_isTold;
  std::string m_report;
  int m_steps = 0;
  bool m_isOver = false;
  std::thread m_thread;  ///< last: it uses the others
};

}  // namespace framenote::test
