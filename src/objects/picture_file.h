// SPDX-License-Identifier: MIT
#pragma once

#include <wx/image.h>
#include <wx/string.h>

#include "framenote/export.h"

namespace framenote {

/// The picture in a file of a format that the host has registered. Invalid, without a message, if
/// it cannot be read, is no regular file, or is larger than `kMaxPicturePixels` and
/// `kMaxPictureSide` allow.
FRAMENOTE_API wxImage ReadPictureFile(wxString const &path);

/// More than any camera gives; what is larger is a mistake or an attack.
constexpr long long kMaxPicturePixels = 1LL << 28;
/// The longest side that drawing surfaces take.
constexpr int kMaxPictureSide = 32766;

}  // namespace framenote
