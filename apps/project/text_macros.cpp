// SPDX-License-Identifier: MIT
#include "project/text_macros.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>

#include <wx/datetime.h>
#include <wx/translation.h>

#include "media/media_source.h"
#include "media/system_file.h"
#include "project/path_text.h"
#include "project/time_code.h"

namespace {

constexpr char const *kFrame = "%frame%";
constexpr char const *kTime = "%time%";
constexpr char const *kDate = "%date%";
constexpr char const *kFile = "%file%";
constexpr char const *kSize = "%size%";

/// Empty if the file is gone.
wxString DateOf(std::string const &path) {
  std::optional<std::time_t> const changed = system_file::ChangedAt(path);
  if (!changed) return {};
  return wxDateTime(*changed).ToUTC().FormatISOCombined() + "Z";
}

wxString SizeOf(MediaInfo const &info) {
  return wxString::FromUTF8(std::to_string(info.width) + "x" + std::to_string(info.height));
}

}  // namespace

AnnotationToolConfig::TextMacrosConfig OfferedMacros() {
  AnnotationToolConfig::TextMacrosConfig offered;
  offered.macroLabel = wxGetTranslation("Macro");
  offered.macros = {{wxGetTranslation("Frame Number"), kFrame},
                    {wxGetTranslation("Time of the Frame"), kTime},
                    {wxGetTranslation("Date of the File"), kDate},
                    {wxGetTranslation("Name of the File"), kFile},
                    {wxGetTranslation("Size of the Picture"), kSize}};
  offered.showMacroValues = true;
  return offered;
}

AnnotationTool::MacroPairs MacroValues(MediaSource const &source, std::int64_t frame) {
  std::string const name = std::filesystem::path(source.Path()).filename().string();
  return {{kFrame, wxString::FromUTF8(std::to_string(frame))},
          {kTime, wxString::FromUTF8(FormatTimeCode(source, frame))},
          {kDate, DateOf(source.Path())},
          {kFile, TextOfPath(name)},
          {kSize, SizeOf(source.Info())}};
}
