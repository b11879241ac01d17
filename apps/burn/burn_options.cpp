// SPDX-License-Identifier: MIT
#include "burn_options.h"

#include <charconv>
#include <cstddef>

namespace {

/// Takes the value of an option; returns what is wrong with it, or "".
using Setter = std::string (*)(BurnOptions &options, std::string const &value);

struct Option {
  char const *name;
  bool takesValue;
  Setter set;
};

std::string SetFrame(BurnOptions &options, std::string const &value) {
  char const *const end = value.data() + value.size();
  auto const [stop, error] = std::from_chars(value.data(), end, options.frame);
  if (error != std::errc() || stop != end || options.frame < 0) {
    return "--frame wants a number from 0 on, not '" + value + "'";
  }
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

std::string MissingPath(BurnOptions const &options) {
  if (options.action != BurnOptions::Action::Burn) return {};
  if (options.document.empty()) return "--document is missing";
  if (options.input.empty()) return "--input is missing";
  if (options.output.empty()) return "--output is missing";
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
  error = MissingPath(options);
  return options;
}

std::string BurnUsage() {
  return "Usage: framenote-burn --document DOC --input PICTURE --output PICTURE\n"
         "                      [--frame N] [--painter gc|dc] [--extend]\n"
         "                      [--macro NAME=VALUE]...\n"
         "\n"
         "Burns the annotations of a document into a picture.\n"
         "\n"
         "  --document DOC    text file with the JSON object that holds \"Annotate\"\n"
         "  --input PICTURE   the picture\n"
         "  --output PICTURE  the result: .png, .jpg, .bmp or .tif by its name\n"
         "  --frame N         the frame whose annotations are burnt in; 0 if not given\n"
         "  --painter gc|dc   anti-aliased (gc, as if not given) or in whole pixels (dc)\n"
         "  --extend          let annotations beyond the picture enlarge the result\n"
         "  --macro NAME=VALUE\n"
         "                    replace NAME in texts by VALUE; may be given many times\n"
         "  --help            show this text\n"
         "  --version         show the version\n"
         "\n"
         "Exit codes: 0 done, 1 an input cannot be read, 2 wrong arguments, 3 the output\n"
         "cannot be written.\n";
}
