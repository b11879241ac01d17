// SPDX-License-Identifier: MIT
// framenote-burn: a document and its media in, the media with the annotations burnt in out.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <wx/translation.h>

#include "burn/burn.h"
#include "burn/burn_options.h"
#include "burn/burn_usage.h"
#include "burn/displayless.h"
#include "burn/freed_memory.h"
#include "burn/progress_output.h"
#include "burn/stop_signals.h"
#include "burn/terminal.h"
#include "media/media_error.h"
#include "media/media_error_text.h"
#include "media/message.h"
#include "project/file_error.h"
#include "project/project_error.h"
#include "project/user_language.h"

namespace {

enum ExitCode {
  kDone = 0,
  kInputError = 1,
  kArgumentError = 2,
  kOutputError = 3,
  kInterrupted = 130  // as shells count a program that ended by SIGINT
};

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
  std::string names;
  for (std::size_t i = 0; i < std::min(frames.size(), kMostNamed); ++i) {
    if (i > 0) names += ", ";
    names += std::to_string(frames[i]);
  }
  if (frames.size() > kMostNamed) names += " ...";
  if (frames.size() == 1) {
    // TRANSLATORS: the number of the frame, from 0 on.
    return Message(wxTRANSLATE("frame %s is damaged"), {names}).Translated();
  }
  // TRANSLATORS: how many frames; their numbers, as "3, 5, 6".
  return FilledText(wxPLURAL("%s frame is damaged: %s", "%s frames are damaged: %s",
                             static_cast<unsigned>(frames.size())),
                    {std::to_string(frames.size()), names});
}

void Warn(std::string const &source, std::string const &problem) {
  // TRANSLATORS: a file; what is wrong with it.
  PrintLine(Message(wxTRANSLATE("warning: '%s': %s"), {source, problem}).Translated());
}

void Warn(BurnResult const &result, std::string const &document) {
  if (result.objectsLeftOut > 0) {
    // TRANSLATORS: how many objects; said of a document.
    Message const text(wxTRANSLATE("objects that cannot be read, or would leave no trace, are left "
                                   "out: %s"),
                       {std::to_string(result.objectsLeftOut)});
    Warn(document, text.Translated());
  }
  if (!result.damagedFrames.empty()) Warn(result.source, DamageText(result.damagedFrames));
  if (!result.problem.IsEmpty()) Warn(result.source, result.problem.Translated());
}

ExitCode CodeOf(MediaError const &error, BurnOptions const &options) {
  if (error.Problem() == MediaProblem::Cancelled) return kInterrupted;
  bool const isOutput =
      error.Problem() == MediaProblem::WriteFailed || error.Path() == options.output;
  return isOutput ? kOutputError : kInputError;
}

int Run(BurnOptions const &options) {
  KeepFreedMemory();
  ProgressOutput output(options.progress);
  auto const show = [&output](BurnProgress const &progress) {
    output.Show(progress);
    return !IsStopAskedFor();
  };
  try {
    BurnResult const result = Burn(options, show);
    output.ShowDone(options, result);
    Warn(result, options.document);
  } catch (ArgumentError const &error) {
    return Fail(kArgumentError, error.what());
  } catch (FileError const &error) {
    return Fail(kOutputError, FileErrorText(error).utf8_string());
  } catch (MediaError const &error) {
    return Fail(CodeOf(error, options), MediaErrorText(error).utf8_string());
  } catch (ProjectError const &error) {
    return Fail(kInputError, ProjectErrorText(error).utf8_string());
  } catch (std::exception const &error) {
    return Fail(kInputError, error.what());
  }
  return kDone;
}

}  // namespace

int main(int argc, char **argv) {
  NoteStopSignals();
  PrepareTerminal();
  DisplaylessSession const session;
  if (!session.IsOk()) return Fail(kInputError, "wxWidgets did not start");
  UseUserLanguage();
  BurnOptions options;
  Message const problem = ReadBurnOptions({argv + 1, argv + argc}, options);
  if (!problem.IsEmpty()) return Fail(kArgumentError, problem.Translated());
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
