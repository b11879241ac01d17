// SPDX-License-Identifier: MIT
#include "burn/stop_signals.h"

#include <atomic>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <initializer_list>
#endif

namespace {

std::atomic<bool> isStopAskedFor{false};
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

#ifdef _WIN32

/// Called on a thread of its own.
BOOL WINAPI NoteStop(DWORD event) {
  isStopAskedFor = true;
  // The system ends the program, when the window was closed or the user logs off, as soon as this
  // returns; the main thread ends it earlier, or the system does after some seconds.
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

#endif

}  // namespace

#ifdef _WIN32

void NoteStopSignals() {
  SetConsoleCtrlHandler(NoteStop, TRUE);
}

#else

void NoteStopSignals() {
  struct sigaction action {};
  action.sa_handler = [](int) { isStopAskedFor = true; };
  action.sa_flags = SA_RESTART;
  for (int const signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction former {};
    sigaction(signal, nullptr, &former);
    // What the caller had ignored, as nohup does, stays so.
    if (former.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
  // A file beyond the size limit, or a reader of our output that has gone, is then a failed write,
  // which is reported and cleaned up after.
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

#endif

bool IsStopAskedFor() {
  return isStopAskedFor;
}
