// SPDX-License-Identifier: MIT
// framenote-burn: a document and its media in, the media with the annotations burnt in out.
#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "burn/burn.h"
#include "burn/burn_options.h"
#include "burn/displayless.h"
#include "burn/progress_output.h"
#include "media/media_error.h"
#include "project/file_error.h"

namespace {

enum ExitCode {
  kDone = 0,
  kInputError = 1,
  kArgumentError = 2,
  kOutputError = 3,
  kInterrupted = 130  // as shells count a program that ended by SIGINT
};

std::atomic<bool> isInterrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

/// A first signal lets the burn clean up after itself.
void StopOnSignals() {
  struct sigaction action {};
  action.sa_handler = [](int) { isInterrupted = true; };
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

/// Each frame takes pictures of some megabytes and gives them back. The C library would return them
/// to the system each time, which then clears them anew: 30 ms a frame of 1920 x 1080, measured.
void KeepFreedMemory() {
#ifdef __GLIBC__
  constexpr int kLargestInHeap = 32 << 20;  // the most that is taken
  constexpr int kMostKept = 256 << 20;
  mallopt(M_MMAP_THRESHOLD, kLargestInHeap);
  mallopt(M_TRIM_THRESHOLD, kMostKept);
#endif
}

/// Exactly one line, whatever the names in the message hold.
void PrintLine(std::string message) {
  for (char &letter : message) {
    if (letter == '\n' || letter == '\r') letter = '?';
  }
  std::fprintf(stderr, "framenote-burn: %s\n", message.c_str());
}

int Fail(ExitCode code, std::string const &message) {
  PrintLine(message);
  return code;
}

/// What a report lists in full.
std::string DamageText(std::vector<std::int64_t> const &frames) {
  constexpr std::size_t kMostNamed = 5;
  bool const isOne = frames.size() == 1;
  std::string text = isOne ? "frame" : std::to_string(frames.size()) + " frames";
  text += isOne ? " " : " are damaged: ";
  for (std::size_t i = 0; i < std::min(frames.size(), kMostNamed); ++i) {
    if (i > 0) text += ", ";
    text += std::to_string(frames[i]);
  }
  if (isOne) return text + " is damaged";
  return frames.size() > kMostNamed ? text + " ..." : text;
}

void Warn(BurnResult const &result) {
  std::string const start = "warning: '" + result.source + "': ";
  if (!result.damagedFrames.empty()) PrintLine(start + DamageText(result.damagedFrames));
  if (!result.problem.empty()) PrintLine(start + result.problem);
}

ExitCode CodeOf(MediaError const &error, BurnOptions const &options) {
  if (error.Problem() == MediaProblem::Cancelled) return kInterrupted;
  bool const isOutput =
      error.Problem() == MediaProblem::WriteFailed || error.Path() == options.output;
  return isOutput ? kOutputError : kInputError;
}

int Run(BurnOptions const &options) {
  KeepFreedMemory();
  DisplaylessSession const session;
  if (!session.IsOk()) return Fail(kInputError, "wxWidgets did not start");
  ProgressOutput output(options.progress);
  auto const show = [&output](BurnProgress const &progress) {
    output.Show(progress);
    return !isInterrupted;
  };
  try {
    BurnResult const result = Burn(options, show);
    output.ShowDone(options, result);
    Warn(result);
  } catch (ArgumentError const &error) {
    return Fail(kArgumentError, error.what());
  } catch (FileError const &error) {
    return Fail(kOutputError, error.what());
  } catch (MediaError const &error) {
    return Fail(CodeOf(error, options), error.what());
  } catch (std::exception const &error) {
    return Fail(kInputError, error.what());
  }
  return kDone;
}

}  // namespace

int main(int argc, char **argv) {
  StopOnSignals();
  std::string error;
  BurnOptions const options =
      ParseBurnOptions(std::vector<std::string>(argv + 1, argv + argc), error);
  if (!error.empty()) return Fail(kArgumentError, error);
  switch (options.action) {
    case BurnOptions::Action::ShowHelp:
      std::fputs(BurnUsage().c_str(), stdout);
      return kDone;
    case BurnOptions::Action::ShowVersion:
      std::puts("framenote-burn " FRAMENOTE_VERSION);
      return kDone;
    case BurnOptions::Action::Burn:
      break;
  }
  return Run(options);
}
