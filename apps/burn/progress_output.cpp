// SPDX-License-Identifier: MIT
#include "burn/progress_output.h"

#include <cstdio>
#include <string>

#include <wx/translation.h>

#include "burn/terminal.h"
#include "media/message.h"
#include "project/path_text.h"
#include "talbase/json_text.h"

namespace {

using Form = BurnOptions::ProgressForm;

/// The point is the same in every language.
std::string FixedText(double value, int decimals) {
  return wxString::FromCDouble(value, decimals).utf8_string();
}

void PrintLine(wxJSONValue const &value) {
  std::puts(JsonToUtf8(value).c_str());
  std::fflush(stdout);
}

}  // namespace

ProgressOutput::ProgressOutput(Form form) : m_form(form) {
  // Without a terminal the line would only fill a log.
  if (m_form == Form::Line && !IsErrorOutputTerminal()) m_form = Form::None;
}

ProgressOutput::~ProgressOutput() {
  endLine();
}

void ProgressOutput::endLine() {
  if (m_isLineOpen) std::fputc('\n', stderr);
  m_isLineOpen = false;
}

void ProgressOutput::Show(BurnProgress const &progress) {
  // Files are being looked through, before or after the frames.
  if (progress.frames == 0 || progress.done == m_done) return;
  m_done = progress.done;
  if (m_form == Form::Line) {
    // TRANSLATORS: frames done, all frames, per cent, frames in a second, seconds left.
    Message const line(
        wxTRANSLATE("%s of %s frames, %s %%, %s frames/s, %s s left"),
        {std::to_string(progress.done), std::to_string(progress.frames),
         std::to_string(100 * progress.done / progress.frames),
         FixedText(progress.framesPerSecond, 1), FixedText(progress.secondsLeft, 0)});
    std::fprintf(stderr, "\r%s   ", line.Translated().c_str());
    std::fflush(stderr);
    m_isLineOpen = true;
  } else if (m_form == Form::Json) {
    wxJSONValue line(wxJSONTYPE_OBJECT);
    line.Set("done", static_cast<long long>(progress.done));
    line.Set("frames", static_cast<long long>(progress.frames));
    line.Set("framesPerSecond", progress.framesPerSecond);
    line.Set("secondsLeft", progress.secondsLeft);
    PrintLine(line);
  }
}

void ProgressOutput::ShowDone(BurnOptions const &options, BurnResult const &result) {
  endLine();
  if (m_form != Form::Json) return;
  wxJSONValue line(wxJSONTYPE_OBJECT);
  line.Set("result", "done");
  line.Set("output", JsonOfPath(options.output));
  if (!options.report.empty()) line.Set("report", JsonOfPath(options.report));
  line.Set("damagedFrames", static_cast<unsigned long long>(result.damagedFrames.size()));
  PrintLine(line);
}
