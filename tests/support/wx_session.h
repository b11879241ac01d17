// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class wxEventLoop;
class wxEventLoopActivator;

namespace framenote {

/// wxWidgets with an application object and an active event loop, for as long as the session
/// lives. The program that makes it drives the loop itself; it needs a display.
class WxSession {
public:
  /// Starts wxWidgets; it takes its own arguments out of `argc` and `argv`.
  WxSession(int &argc, char **argv);
  /// Stops wxWidgets; windows that are left go with it.
  ~WxSession();
  WxSession(WxSession const &) = delete;
  WxSession &operator=(WxSession const &) = delete;

  /// Whether wxWidgets started; false without a display.
  bool IsOk() const { return m_loop != nullptr; }

private:
  std::unique_ptr<wxEventLoop> m_loop;
  std::unique_ptr<wxEventLoopActivator> m_activator;
};

}  // namespace framenote
