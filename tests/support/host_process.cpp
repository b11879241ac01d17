// SPDX-License-Identifier: MIT
#include "support/host_process.h"

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace framenote::test {

HostProcess::HostProcess(Arguments const &arguments) {
  std::vector<char *> words;
  for (std::string const &argument : arguments)
    words.push_back(const_cast<char *>(argument.c_str()));
  words.push_back(nullptr);
  m_pid = fork();
  if (m_pid != 0) return;
  execv(words.front(), words.data());
  constexpr int kNotStarted = 127;
  _exit(kNotStarted);
}

HostProcess::~HostProcess() {
  end(SIGTERM);
}

bool HostProcess::IsRunning() {
  if (m_pid > 0 && waitpid(m_pid, nullptr, WNOHANG) != 0) m_pid = -1;
  return m_pid > 0;
}

void HostProcess::Kill() {
  end(SIGKILL);
}

void HostProcess::end(int signal) {
  if (!IsRunning()) return;
  kill(m_pid, signal);
  waitpid(m_pid, nullptr, 0);
  m_pid = -1;
}

}  // namespace framenote::test
