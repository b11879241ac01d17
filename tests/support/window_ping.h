// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>

namespace framenote::test {

/// Asks another program's window whether its event loop goes round, as window managers do
/// (_NET_WM_PING). A program that answers has read every event that was sent before.
class WindowPing {
public:
  /// `window`: its identifier at the X server.
  explicit WindowPing(unsigned long window);
  WindowPing(WindowPing const &) = delete;
  WindowPing &operator=(WindowPing const &) = delete;
  ~WindowPing();

  /// Asks, and waits for the answer; false if none comes in time.
  bool IsAnswered(std::chrono::milliseconds patience);

private:
  struct Server;

  bool isAnswerThere() const;

  std::unique_ptr<Server> m_server;
  unsigned long m_window;
  long m_number = 0;  ///< of the last question
};

}  // namespace framenote::test
