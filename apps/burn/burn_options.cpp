// SPDX-License-Identifier: MIT
#include "burn/burn_options.h"

#include <charconv>
#include <cstddef>

#include <wx/translation.h>

#include "media/message.h"
#include "project/project_file.h"

namespace {

/// Takes the value of an option; returns what is wrong with it, or "".
using Setter = std::string (*)(BurnOptions &options, std::string const &value);

struct Option {
  char const *name;
  bool takesValue;
  Setter set;
};

std::string NotWanted(char const *text, std::string const &value) {
  return Message(text, {value}).Translated();
}

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
    return NotWanted(wxTRANSLATE("--frame wants a number from 0 on, not '%s'"), value);
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
    return NotWanted(wxTRANSLATE("--frames wants the first and the last, as 0-99, not '%s'"),
                     value);
  }
  options.range = range;
  return {};
}

std::string SetCodec(BurnOptions &options, std::string const &value) {
  if (value != "h264" && value != "ffv1") {
    return NotWanted(wxTRANSLATE("--codec wants h264 or ffv1, not '%s'"), value);
  }
  options.codec = value == "h264" ? VideoCodec::H264 : VideoCodec::FFV1;
  return {};
}

std::string SetQuality(BurnOptions &options, std::string const &value) {
  constexpr int kWorst = 51;
  if (!ReadNumber(value, options.quality) || options.quality < 0 || options.quality > kWorst) {
    return NotWanted(wxTRANSLATE("--quality wants 0 (best) to 51, not '%s'"), value);
  }
  return {};
}

std::string SetAudio(BurnOptions &options, std::string const &value) {
  if (value != "keep" && value != "drop") {
    return NotWanted(wxTRANSLATE("--audio wants keep or drop, not '%s'"), value);
  }
  options.keepAudio = value == "keep";
  return {};
}

std::string SetMetadata(BurnOptions &options, std::string const &value) {
  if (value != "keep" && value != "drop") {
    return NotWanted(wxTRANSLATE("--metadata wants keep or drop, not '%s'"), value);
  }
  options.keepMetadata = value == "keep";
  return {};
}

std::string SetProgress(BurnOptions &options, std::string const &value) {
  if (value != "line" && value != "json") {
    return NotWanted(wxTRANSLATE("--progress wants line or json, not '%s'"), value);
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
  if (value != "gc" && value != "dc") {
    return NotWanted(wxTRANSLATE("--painter wants gc or dc, not '%s'"), value);
  }
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
    return NotWanted(wxTRANSLATE("--macro wants NAME=VALUE, not '%s'"), value);
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

std::string Missing(char const *option) {
  return Message(wxTRANSLATE("%s is missing"), {option}).Translated();
}

/// What does not go together; "" if all does.
std::string Contradiction(BurnOptions const &options) {
  if (options.action != BurnOptions::Action::Burn) return {};
  if (options.document.empty()) return Missing("--document");
  // A project names the media that it was made on.
  if (options.input.empty() && !EndsWith(options.document, kProjectExtension)) {
    return Missing("--input");
  }
  if (options.output.empty()) return Missing("--output");
  if (options.frame && options.range) {
    return Message(wxTRANSLATE("%s and %s exclude each other"), {"--frame", "--frames"})
        .Translated();
  }
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
      error = Message(wxTRANSLATE("unknown argument '%s'"), {argument}).Translated();
      return options;
    }
    if (option->takesValue && !hasOwnValue && i + 1 == arguments.size()) {
      error = Message(wxTRANSLATE("%s wants a value"), {name}).Translated();
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
