// SPDX-License-Identifier: MIT
#include "media/exif_orientation.h"

#include <exception>

#include <exiv2/exiv2.hpp>

int ExifOrientation(std::string_view file) {
  constexpr int kUpright = 1;
  Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
  try {
    auto const image = Exiv2::ImageFactory::open(reinterpret_cast<Exiv2::byte const *>(file.data()),
                                                 static_cast<long>(file.size()));
    image->readMetadata();
    Exiv2::ExifData const &exif = image->exifData();
    auto const found = exif.findKey(Exiv2::ExifKey("Exif.Image.Orientation"));
    if (found == exif.end() || found->count() == 0) return kUpright;
    float const value = found->toFloat();
    return value >= 1.0f && value <= 8.0f ? static_cast<int>(value) : kUpright;
  } catch (std::exception const &) {
    // Damaged metadata must not cost the picture.
    return kUpright;
  }
}
