// SPDX-License-Identifier: MIT
#include "project/command_line.h"

#include <algorithm>
#include <iterator>

#include <wx/translation.h>

namespace {

/// Where descriptions begin.
constexpr std::size_t kIndent = 20;

struct SplitArgument {
  std::string name;
  std::string value;
  bool hasValue;  ///< --name=VALUE
};

SplitArgument Split(std::string const &argument) {
  std::size_t const equals = argument.find('=');
  if (equals == std::string::npos) return {argument, {}, false};
  return {argument.substr(0, equals), argument.substr(equals + 1), true};
}

bool IsOperand(std::string const &argument) {
  return argument.empty() || argument.front() != '-';
}

}  // namespace

std::string UsageLines(CommandOptionText const &option) {
  if (option.description == nullptr) return {};
  std::string const gap(kIndent, ' ');
  std::string lines = std::string("  ") + option.name;
  if (option.value != nullptr) lines += std::string(" ") + option.value;
  lines += lines.size() < kIndent ? std::string(kIndent - lines.size(), ' ') : "\n" + gap;
  std::string description = wxGetTranslation(wxString::FromUTF8(option.description)).utf8_string();
  for (std::size_t at = description.find('\n'); at != std::string::npos;
       at = description.find('\n', at + 1)) {
    description.insert(at + 1, gap);
  }
  return lines + description + "\n";
}

Message UnknownArgument(std::string const &argument) {
  return {wxTRANSLATE("unknown argument '%s'"), {argument}};
}

Message ReadArguments(std::vector<std::string> const &arguments,
                      std::vector<CommandOptionText> const &options, ArgumentTaker const &take) {
  bool areOperands = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::size_t place = options.size();
    std::string value = arguments[i];
    if (!areOperands && value == "--") {
      areOperands = true;
      continue;
    }
    if (!areOperands && !IsOperand(value)) {
      SplitArgument const split = Split(value);
      auto const option =
          std::find_if(options.begin(), options.end(),
                       [&split](CommandOptionText const &one) { return split.name == one.name; });
      if (option == options.end() || (split.hasValue && option->value == nullptr)) {
        return UnknownArgument(arguments[i]);
      }
      bool const isNext = option->value != nullptr && !split.hasValue;
      if (isNext && i + 1 == arguments.size()) {
        return {wxTRANSLATE("%s wants a value"), {split.name}};
      }
      place = static_cast<std::size_t>(std::distance(options.begin(), option));
      value = isNext ? arguments[++i] : split.value;
    }
    Message problem = take(place, value);
    if (!problem.IsEmpty()) return problem;
  }
  return {};
}
