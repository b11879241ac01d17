// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <wx/stream.h>

#include "framenote/export.h"

namespace framenote {

/// Width and height of a picture in pixels; from a file, so that they may be anything.
struct PictureExtent {
  long long width = 0;   ///< pixels
  long long height = 0;  ///< pixels
};

/// What the header of a PNG, JPEG, GIF or BMP file says, read from the beginning of `file` without
/// decoding: a file of a megabyte may hold a picture that takes gigabytes. Empty for another
/// format, and for a header that is cut off.
FRAMENOTE_API std::optional<PictureExtent> ExtentInHeader(wxInputStream &file);

}  // namespace framenote
