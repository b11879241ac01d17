// SPDX-License-Identifier: MIT
#include "desktop/start_options.h"

#include <wx/translation.h>

#include "desktop/toolkit_options.h"
#include "project/command_line.h"

namespace {

Message SetDocument(StartOptions &options, std::string const &value) {
  options.document = value;
  return {};
}

Message SetFile(StartOptions &options, std::string const &value) {
  if (!options.file.empty()) return UnknownArgument(value);
  options.file = value;
  return {};
}

template <StartOptions::Action Action>
Message SetAction(StartOptions &options, std::string const &) {
  options.action = Action;
  return {};
}

CommandOption<StartOptions> LeftToToolkit(CommandOptionText const &option) {
  std::string const name = option.name;
  return {option, [name](StartOptions &options, std::string const &value) {
            options.toolkit.push_back(value.empty() ? name : name + "=" + value);
            return Message();
          }};
}

CommandOptions<StartOptions> const kOptions = {
    {{"--document", "DOC", wxTRANSLATE("show the annotations of this document on it")},
     SetDocument},
    {{"--help", nullptr, wxTRANSLATE("show this text")}, SetAction<StartOptions::Action::ShowHelp>},
    {{"--version", nullptr, wxTRANSLATE("show the version")},
     SetAction<StartOptions::Action::ShowVersion>},
    {{"-h", nullptr, nullptr}, SetAction<StartOptions::Action::ShowHelp>},
};

constexpr CommandOptionText kFile = {"FILE", nullptr, wxTRANSLATE("picture, video or project")};

std::string Translated(char const *key) {
  return wxGetTranslation(wxString::FromUTF8(key)).utf8_string();
}

}  // namespace

Message ReadStartOptions(std::vector<std::string> const &arguments, StartOptions &options) {
  CommandOptions<StartOptions> table = kOptions;
  for (CommandOptionText const &option : ToolkitOptions()) {
    table.push_back(LeftToToolkit(option));
  }
  Message problem = ReadCommandLine(arguments, table, options, SetFile);
  if (!problem.IsEmpty() || options.action != StartOptions::Action::ShowWindow) return problem;
  if (!options.document.empty() && options.file.empty()) {
    return {wxTRANSLATE("%s is missing"), {kFile.name}};
  }
  return {};
}

std::string StartUsage() {
  return Translated(wxTRANSLATE("Usage:")) + " framenote [--document DOC] [FILE]\n\n" +
         Translated(wxTRANSLATE("Marks up still pictures and video frames.")) + "\n\n" +
         UsageLines(kFile) + UsageLines(kOptions);
}
