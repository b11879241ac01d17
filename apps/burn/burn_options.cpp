// SPDX-License-Identifier: MIT
#include "burn/burn_options.h"

#include <charconv>
#include <cstddef>

#include "project/project_file.h"

namespace {

/// Takes the value of an option; returns what is wrong with it, or "".
using Setter = std::string (*)(BurnOptions &options, std::string const &value);

struct Option {
  char const *name;
  bool takesValue;
  Setter set;
};

/// A whole number and nothing else.
template <class Number>
bool ReadNumber(std::string const &text, Number &number) {
  char const *const end = text.data() + text.size();
  auto const [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

std::string SetFrame(BurnOptions &options, std::string const &value) {
  std::int64_t frame = 0;
  if (!ReadNumber(value, frame) || frame < 0) {
    return "--frame wants a number from 0 on, not '" + value + "'";
  }
  options.frame = frame;
  return {};
}

std::string SetFrames(BurnOptions &options, std::string const &value) {
  std::size_t const dash = value.find('-');
  FrameRange range;
  bool const isRange = dash != std::string::npos &&
                       ReadNumber(value.substr(0, dash), range.first) &&
                       ReadNumber(value.substr(dash + 1), range.last);
  if (!isRange || range.last < range.first) {
    return "--frames wants the first and the last, as 0-99, not '" + value + "'";
  }
  options.range = range;
  return {};
}

std::string SetCodec(BurnOptions &options, std::string const &value) {
  if (value != "h264" && value != "ffv1") return "--codec wants h264 or ffv1, not '" + value + "'";
  options.codec = value == "h264" ? VideoCodec::H264 : VideoCodec::FFV1;
  return {};
}

std::string SetQuality(BurnOptions &options, std::string const &value) {
  constexpr int kWorst = 51;
  if (!ReadNumber(value, options.quality) || options.quality < 0 || options.quality > kWorst) {
    return "--quality wants 0 (best) to 51, not '" + value + "'";
  }
  return {};
}

std::string SetAudio(BurnOptions &options, std::string const &value) {
  if (value != "keep" && value != "drop") return "--audio wants keep or drop, not '" + value + "'";
  options.keepAudio = value == "keep";
  return {};
}

std::string SetMetadata(BurnOptions &options, std::string const &value) {
  if (value != "keep" && value != "drop") {
    return "--metadata wants keep or drop, not '" + value + "'";
  }
  options.keepMetadata = value == "keep";
  return {};
}

std::string SetProgress(BurnOptions &options, std::string const &value) {
  if (value != "line" && value != "json") {
    return "--progress wants line or json, not '" + value + "'";
  }
  using Form = BurnOptions::ProgressForm;
  options.progress = value == "json" ? Form::Json : Form::Line;
  return {};
}

std::string SetQuiet(BurnOptions &options, std::string const &) {
  options.progress = BurnOptions::ProgressForm::None;
  return {};
}

std::string SetPainter(BurnOptions &options, std::string const &value) {
  if (value != "gc" && value != "dc") return "--painter wants gc or dc, not '" + value + "'";
  options.withDeviceContext = value == "dc";
  return {};
}

template <std::string BurnOptions::*Path>
std::string SetPath(BurnOptions &options, std::string const &value) {
  options.*Path = value;
  return {};
}

std::string SetExtend(BurnOptions &options, std::string const &) {
  options.extend = true;
  return {};
}

std::string AddMacro(BurnOptions &options, std::string const &value) {
  std::size_t const equals = value.find('=');
  if (equals == std::string::npos || equals == 0) {
    return "--macro wants NAME=VALUE, not '" + value + "'";
  }
  options.macros.emplace_back(value.substr(0, equals), value.substr(equals + 1));
  return {};
}

template <BurnOptions::Action Action>
std::string SetAction(BurnOptions &options, std::string const &) {
  options.action = Action;
  return {};
}

constexpr Option kOptions[] = {
    {"--document", true, SetPath<&BurnOptions::document>},
    {"--input", true, SetPath<&BurnOptions::input>},
    {"--output", true, SetPath<&BurnOptions::output>},
    {"--frame", true, SetFrame},
    {"--frames", true, SetFrames},
    {"--codec", true, SetCodec},
    {"--quality", true, SetQuality},
    {"--audio", true, SetAudio},
    {"--metadata", true, SetMetadata},
    {"--report", true, SetPath<&BurnOptions::report>},
    {"--progress", true, SetProgress},
    {"--quiet", false, SetQuiet},
    {"--painter", true, SetPainter},
    {"--extend", false, SetExtend},
    {"--macro", true, AddMacro},
    {"--help", false, SetAction<BurnOptions::Action::ShowHelp>},
    {"--version", false, SetAction<BurnOptions::Action::ShowVersion>},
};

Option const *FindOption(std::string const &name) {
  for (Option const &option : kOptions) {
    if (name == option.name) return &option;
  }
  return nullptr;
}

bool EndsWith(std::string const &text, std::string const &end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// What does not go together; "" if all does.
std::string Contradiction(BurnOptions const &options) {
  if (options.action != BurnOptions::Action::Burn) return {};
  if (options.document.empty()) return "--document is missing";
  // A project names the media that it was made on.
  if (options.input.empty() && !EndsWith(options.document, kProjectExtension)) {
    return "--input is missing";
  }
  if (options.output.empty()) return "--output is missing";
  if (options.frame && options.range) return "--frame and --frames exclude each other";
  return {};
}

}  // namespace

BurnOptions ParseBurnOptions(std::vector<std::string> const &arguments, std::string &error) {
  BurnOptions options;
  error.clear();
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    // Both --name value and --name=value.
    std::string const &argument = arguments[i];
    std::size_t const equals = argument.find('=');
    std::string const name = argument.substr(0, equals);
    Option const *const option = FindOption(name);
    bool const hasOwnValue = equals != std::string::npos;
    if (option == nullptr || (hasOwnValue && !option->takesValue)) {
      error = "unknown argument '" + argument + "'";
      return options;
    }
    if (option->takesValue && !hasOwnValue && i + 1 == arguments.size()) {
      error = name + " wants a value";
      return options;
    }
    std::string value;
    if (hasOwnValue) value = argument.substr(equals + 1);
    if (option->takesValue && !hasOwnValue) value = arguments[++i];
    error = option->set(options, value);
    if (!error.empty()) return options;
  }
  error = Contradiction(options);
  return options;
}

std::string BurnUsage() {
  return R"(Usage: framenote-burn --document DOC [--input MEDIA] --output OUT [OPTION]...

Burns the annotations of a document into a picture or a video.

  --document DOC    a project, or a text file with the JSON object that holds "Annotate"
  --input MEDIA     the picture or video; if it is left out, the one that the project names
  --output OUT      the result, by its name: .png, .jpg, .bmp or .tif for a picture; the same
                    with %06d in its name for a picture of each frame; .mkv, .mp4 or .mov
  --frame N         the one frame to burn; of a picture, the frame of the document that it
                    stands for; 0 if not given
  --frames A-B      burn the frames A to B of a video, both included; all if not given
  --painter gc|dc   anti-aliased (gc, as if not given) or in whole pixels (dc)
  --extend          let annotations beyond the picture enlarge the result
  --macro NAME=VALUE
                    replace NAME in texts by VALUE; may be given many times. Known without it:
                    %frame%, %time%, %date%, %file% and %size%
  --codec h264|ffv1 of a video: ffv1 keeps every pixel (.mkv alone; there it is as if given),
                    h264 makes small files (as if given for .mp4 and .mov)
  --quality N       of h264: 0 (best) to 51; 17 if not given
  --audio keep|drop copy the sound as it is (as if given), or leave it out
  --metadata keep|drop
                    copy title, date, device and the like, or leave them out (as if given)
  --report FILE     write a report: hashes of the source, the document, the output and each
                    frame, the settings, and what each hide region covers
  --progress line|json
                    a line on a terminal (as if given), or JSON objects, a line each, on
                    standard output
  --quiet           no progress
  --help            show this text
  --version         show the version

The source is never written to. The output appears when it is whole; a run that fails or is
interrupted leaves none.

Exit codes: 0 done, 1 an input cannot be read, 2 wrong arguments, 3 the output cannot be
written, 130 interrupted.
)";
}
