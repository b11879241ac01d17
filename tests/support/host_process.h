// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace framenote::test {

/// A program, from its start until it is ended; it knows nothing of being watched.
class HostProcess {
public:
  using Arguments = std::vector<std::string>;

  /// The path of the program first.
  explicit HostProcess(Arguments const &arguments);
  HostProcess(HostProcess const &) = delete;
  HostProcess &operator=(HostProcess const &) = delete;
  ~HostProcess();

  bool IsRunning();
  /// Ends it as no program can help, and waits until it is gone.
  void Kill();

private:
  void end(int signal);

  pid_t m_pid = -1;
};

}  // namespace framenote::test
