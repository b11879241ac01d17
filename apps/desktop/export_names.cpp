// SPDX-License-Identifier: MIT
#include "desktop/export_names.h"

#include <algorithm>

#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/regex.h>

#include "project/path_text.h"

namespace {

constexpr int kFrameDigits = 6;

bool HasExtension(ExportFormat const &format, wxString const &extension) {
  return std::find(format.extensions.begin(), format.extensions.end(), extension.Lower()) !=
         format.extensions.end();
}

bool IsKnownExtension(wxString const &extension) {
  for (BurnOutput const output : {BurnOutput::Picture, BurnOutput::Video}) {
    for (ExportFormat const &format : FormatsOf(output)) {
      if (HasExtension(format, extension)) return true;
    }
  }
  return false;
}

/// The name's place of a number with what parts it from the rest; the same in OutputPathOf.
wxString WithoutNumberPlace(wxString const &name) {
  wxString plain = name;
  wxRegEx("[-_ ]?%(0[1-9])?d").ReplaceFirst(&plain, "");
  return plain;
}

bool HasNumberPlace(wxString const &name) {
  return WithoutNumberPlace(name) != name;
}

}  // namespace

std::vector<ExportFormat> const &FormatsOf(BurnOutput output) {
  static std::vector<ExportFormat> const pictures = {
      {"png", {"png"}}, {"jpeg", {"jpg", "jpeg"}}, {"bmp", {"bmp"}}, {"tiff", {"tif", "tiff"}}};
  static std::vector<ExportFormat> const videos = {{"ffv1", {"mkv"}, VideoCodec::FFV1},
                                                   {"h264-mp4", {"mp4", "mov"}, VideoCodec::H264},
                                                   {"h264-mkv", {"mkv"}, VideoCodec::H264}};
  return output == BurnOutput::Video ? videos : pictures;
}

wxString LabelOf(ExportFormat const &format) {
  wxString const id = format.id;
  if (id == "png") return wxGetTranslation("PNG (lossless)");
  if (id == "jpeg") return wxGetTranslation("JPEG (small, loses detail)");
  if (id == "bmp") return wxGetTranslation("BMP (lossless, large)");
  if (id == "tiff") return wxGetTranslation("TIFF (lossless)");
  if (id == "ffv1") return wxGetTranslation("Matroska, FFV1 (lossless, large)");
  if (id == "h264-mp4") return wxGetTranslation("MP4, H.264 (small, plays everywhere)");
  return wxGetTranslation("Matroska, H.264 (small)");
}

wxString SuggestedName(std::string const &source, BurnOutput output, ExportFormat const &format,
                       std::int64_t frame) {
  wxString stem = wxFileName(ShownPath(source)).GetName();
  // A source called "50%d" would make one picture a sequence.
  stem.Replace("%", "_");
  stem += "-annotated";
  if (output == BurnOutput::Pictures) stem += wxString::Format("-%%0%dd", kFrameDigits);
  if (output == BurnOutput::Picture && frame >= 0) {
    wxString const number = wxString::FromUTF8(std::to_string(frame));
    int const missing = std::max(0, kFrameDigits - static_cast<int>(number.length()));
    stem += "-" + wxString('0', static_cast<std::size_t>(missing)) + number;
  }
  return stem + "." + format.extensions.front();
}

wxString NameForFormat(wxString const &path, BurnOutput output, ExportFormat const &format) {
  wxFileName file(path);
  wxString name = file.GetFullName();
  wxString extension = file.GetExt();
  if (IsKnownExtension(extension)) {
    name = file.GetName();
  } else {
    extension.clear();
  }
  if (output == BurnOutput::Pictures && !HasNumberPlace(name)) {
    name += wxString::Format("-%%0%dd", kFrameDigits);
  }
  if (output != BurnOutput::Pictures) name = WithoutNumberPlace(name);
  if (!HasExtension(format, extension)) extension = format.extensions.front();
  file.SetFullName(name + "." + extension);
  return file.GetFullPath();
}

int FormatOfName(wxString const &path, BurnOutput output, int preferred) {
  std::vector<ExportFormat> const &formats = FormatsOf(output);
  wxString const extension = wxFileName(path).GetExt();
  bool const isPreferred = preferred >= 0 && preferred < static_cast<int>(formats.size()) &&
                           HasExtension(formats[static_cast<std::size_t>(preferred)], extension);
  if (isPreferred) return preferred;
  auto const found = std::find_if(formats.begin(), formats.end(), [&](ExportFormat const &format) {
    return HasExtension(format, extension);
  });
  return found == formats.end() ? -1 : static_cast<int>(found - formats.begin());
}

wxString ReportNameOf(wxString const &path) {
  wxFileName file(path);
  file.SetName(WithoutNumberPlace(file.GetName()) + "-report");
  file.SetExt("json");
  return file.GetFullPath();
}
