// SPDX-License-Identifier: MIT
#include "burn/burn_options.h"

#include <charconv>
#include <cstddef>

#include <wx/translation.h>

#include "project/command_line.h"
#include "project/project_file.h"

namespace {

/// A whole number and nothing else.
template <class Number>
bool ReadNumber(std::string const &text, Number &number) {
  char const *const end = text.data() + text.size();
  auto const [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

Message SetFrame(BurnOptions &options, std::string const &value) {
  std::int64_t frame = 0;
  if (!ReadNumber(value, frame) || frame < 0) {
    return {wxTRANSLATE("--frame wants a number from 0 on, not '%s'"), {value}};
  }
  options.frame = frame;
  return {};
}

Message SetFrames(BurnOptions &options, std::string const &value) {
  std::size_t const dash = value.find('-');
  FrameRange range;
  bool const isRange = dash != std::string::npos &&
                       ReadNumber(value.substr(0, dash), range.first) &&
                       ReadNumber(value.substr(dash + 1), range.last);
  if (!isRange || range.last < range.first) {
    return {wxTRANSLATE("--frames wants the first and the last, as 0-99, not '%s'"), {value}};
  }
  options.range = range;
  return {};
}

Message SetCodec(BurnOptions &options, std::string const &value) {
  if (value != "h264" && value != "ffv1") {
    return {wxTRANSLATE("--codec wants h264 or ffv1, not '%s'"), {value}};
  }
  options.codec = value == "h264" ? VideoCodec::H264 : VideoCodec::FFV1;
  return {};
}

Message SetQuality(BurnOptions &options, std::string const &value) {
  constexpr int kWorst = 51;
  if (!ReadNumber(value, options.quality) || options.quality < 0 || options.quality > kWorst) {
    return {wxTRANSLATE("--quality wants 0 (best) to 51, not '%s'"), {value}};
  }
  return {};
}

Message SetAudio(BurnOptions &options, std::string const &value) {
  if (value != "keep" && value != "drop") {
    return {wxTRANSLATE("--audio wants keep or drop, not '%s'"), {value}};
  }
  options.keepAudio = value == "keep";
  return {};
}

Message SetMetadata(BurnOptions &options, std::string const &value) {
  if (value != "keep" && value != "drop") {
    return {wxTRANSLATE("--metadata wants keep or drop, not '%s'"), {value}};
  }
  options.keepMetadata = value == "keep";
  return {};
}

Message SetProgress(BurnOptions &options, std::string const &value) {
  if (value != "line" && value != "json") {
    return {wxTRANSLATE("--progress wants line or json, not '%s'"), {value}};
  }
  using Form = BurnOptions::ProgressForm;
  options.progress = value == "json" ? Form::Json : Form::Line;
  return {};
}

Message SetQuiet(BurnOptions &options, std::string const &) {
  options.progress = BurnOptions::ProgressForm::None;
  return {};
}

Message SetPainter(BurnOptions &options, std::string const &value) {
  if (value != "gc" && value != "dc") {
    return {wxTRANSLATE("--painter wants gc or dc, not '%s'"), {value}};
  }
  options.withDeviceContext = value == "dc";
  return {};
}

template <std::string BurnOptions::*Path>
Message SetPath(BurnOptions &options, std::string const &value) {
  options.*Path = value;
  return {};
}

Message SetExtend(BurnOptions &options, std::string const &) {
  options.extend = true;
  return {};
}

Message AddMacro(BurnOptions &options, std::string const &value) {
  std::size_t const equals = value.find('=');
  if (equals == std::string::npos || equals == 0) {
    return {wxTRANSLATE("--macro wants NAME=VALUE, not '%s'"), {value}};
  }
  options.macros.emplace_back(value.substr(0, equals), value.substr(equals + 1));
  return {};
}

Message RefuseOperand(BurnOptions &, std::string const &operand) {
  return UnknownArgument(operand);
}

template <BurnOptions::Action Action>
Message SetAction(BurnOptions &options, std::string const &) {
  options.action = Action;
  return {};
}

CommandOptions<BurnOptions> const kOptions = {
    {{"--document", "DOC",
      // TRANSLATORS: this and the next are descriptions of options. Lines break where you break
      // them; keep them below 78 columns. Words of options, such as gc, ffv1 and keep, stay.
      wxTRANSLATE("a project, or a text file with the JSON object that holds \"Annotate\"")},
     SetPath<&BurnOptions::document>},
    {{"--input", "MEDIA",
      wxTRANSLATE("the picture or video; if it is left out, the one that the project names")},
     SetPath<&BurnOptions::input>},
    {{"--output", "OUT",
      wxTRANSLATE("the result, by its name: .png, .jpg, .bmp or .tif for a picture; the same\n"
                  "with %06d in its name for a picture of each frame; .mkv, .mp4 or .mov")},
     SetPath<&BurnOptions::output>},
    {{"--frame", "N",
      wxTRANSLATE("the one frame to burn; of a picture, the frame of the document that it\n"
                  "stands for; 0 if not given")},
     SetFrame},
    {{"--frames", "A-B",
      wxTRANSLATE("burn the frames A to B of a video, both included; all if not given")},
     SetFrames},
    {{"--painter", "gc|dc",
      wxTRANSLATE("anti-aliased (gc, as if not given) or in whole pixels (dc)")},
     SetPainter},
    {{"--extend", nullptr, wxTRANSLATE("let annotations beyond the picture enlarge the result")},
     SetExtend},
    {{"--macro", "NAME=VALUE",
      wxTRANSLATE("replace NAME in texts by VALUE; may be given many times. Known without it:\n"
                  "%frame%, %time%, %date%, %file% and %size%")},
     AddMacro},
    {{"--codec", "h264|ffv1",
      wxTRANSLATE("of a video: ffv1 keeps every pixel (.mkv alone; there it is as if given),\n"
                  "h264 makes small files (as if given for .mp4 and .mov)")},
     SetCodec},
    {{"--quality", "N", wxTRANSLATE("of h264: 0 (best) to 51; 17 if not given")}, SetQuality},
    {{"--audio", "keep|drop",
      wxTRANSLATE("copy the sound as it is (as if given), or leave it out")},
     SetAudio},
    {{"--metadata", "keep|drop",
      wxTRANSLATE("copy title, date, device and the like, or leave them out (as if given)")},
     SetMetadata},
    {{"--report", "FILE",
      wxTRANSLATE("write a report: hashes of the source, the document, the output and each\n"
                  "frame, the settings, and what each hide region covers")},
     SetPath<&BurnOptions::report>},
    {{"--progress", "line|json",
      wxTRANSLATE("a line on a terminal (as if given), or JSON objects, a line each, on\n"
                  "standard output")},
     SetProgress},
    {{"--quiet", nullptr, wxTRANSLATE("no progress")}, SetQuiet},
    {{"--help", nullptr, wxTRANSLATE("show this text")}, SetAction<BurnOptions::Action::ShowHelp>},
    {{"--version", nullptr, wxTRANSLATE("show the version")},
     SetAction<BurnOptions::Action::ShowVersion>},
};

bool EndsWith(std::string const &text, std::string const &end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

Message Missing(char const *option) {
  return {wxTRANSLATE("%s is missing"), {option}};
}

/// What does not go together, if anything.
Message Contradiction(BurnOptions const &options) {
  if (options.action != BurnOptions::Action::Burn) return {};
  if (options.document.empty()) return Missing("--document");
  // A project names the media that it was made on.
  if (options.input.empty() && !EndsWith(options.document, kProjectExtension)) {
    return Missing("--input");
  }
  if (options.output.empty()) return Missing("--output");
  if (options.frame && options.range) {
    return {wxTRANSLATE("%s and %s exclude each other"), {"--frame", "--frames"}};
  }
  return {};
}

}  // namespace

Message ReadBurnOptions(std::vector<std::string> const &arguments, BurnOptions &options) {
  Message const problem = ReadCommandLine(arguments, kOptions, options, RefuseOperand);
  return problem.IsEmpty() ? Contradiction(options) : problem;
}

std::string BurnOptionLines() {
  return UsageLines(kOptions);
}
