// SPDX-License-Identifier: MIT
#include "project/output_name.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <optional>

#include <wx/translation.h>

#include "media/message.h"

namespace {

std::string ExtensionOf(std::string const &path) {
  std::string extension = std::filesystem::path(path).extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char letter) { return std::tolower(letter); });
  return extension;
}

/// The place of a number in a file's name.
struct NumberPlace {
  std::size_t begin;
  std::size_t length;
  std::size_t digits;
};

std::optional<NumberPlace> FindNumberPlace(std::string const &path) {
  std::size_t const slash = path.rfind('/');
  std::size_t const name = slash == std::string::npos ? 0 : slash + 1;
  for (std::size_t at = path.find('%', name); at != std::string::npos;
       at = path.find('%', at + 1)) {
    if (path.compare(at, 2, "%d") == 0) return NumberPlace{at, 2, 1};
    bool const hasDigits = at + 3 < path.size() && path[at + 1] == '0' && path[at + 2] >= '1' &&
                           path[at + 2] <= '9' && path[at + 3] == 'd';
    if (hasDigits) return NumberPlace{at, 4, static_cast<std::size_t>(path[at + 2] - '0')};
  }
  return std::nullopt;
}

}  // namespace

BurnOutput BurnOutputOf(std::string const &path) {
  std::string const extension = ExtensionOf(path);
  if (extension == ".mkv" || extension == ".mp4" || extension == ".mov") return BurnOutput::Video;
  if (PictureTypeOf(path) == wxBITMAP_TYPE_INVALID) return BurnOutput::Unknown;
  return FindNumberPlace(path) ? BurnOutput::Pictures : BurnOutput::Picture;
}

std::string UnknownOutputText(std::string const &path) {
  char const *const text =
      wxTRANSLATE("output '%s' is of no known kind: .png, .jpg, .bmp, .tif, .mkv, .mp4 or .mov");
  return Message(text, {path}).Translated();
}

bool IsMatroska(std::string const &path) {
  return ExtensionOf(path) == ".mkv";
}

wxBitmapType PictureTypeOf(std::string const &path) {
  std::string const extension = ExtensionOf(path);
  if (extension == ".png") return wxBITMAP_TYPE_PNG;
  if (extension == ".jpg" || extension == ".jpeg") return wxBITMAP_TYPE_JPEG;
  if (extension == ".bmp") return wxBITMAP_TYPE_BMP;
  if (extension == ".tif" || extension == ".tiff") return wxBITMAP_TYPE_TIFF;
  return wxBITMAP_TYPE_INVALID;
}

std::string OutputPathOf(std::string const &path, std::int64_t frame) {
  std::optional<NumberPlace> const place = FindNumberPlace(path);
  if (!place) return path;
  std::string number = std::to_string(frame);
  if (number.size() < place->digits) number.insert(0, place->digits - number.size(), '0');
  return path.substr(0, place->begin) + number + path.substr(place->begin + place->length);
}
