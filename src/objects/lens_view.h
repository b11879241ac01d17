// SPDX-License-Identifier: MIT
#pragma once

#include <wx/bitmap.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

#include "framenote/export.h"
#include "talcore/enlarged_picture.h"

/// What a lens shows of a picture. Picture pixels throughout.
namespace framenote {

/// A zoom that enlarges and whose sizes can be worked with: 1 to 100; 1 for what is no number.
FRAMENOTE_API double UsableZoom(double zoom);
/// The method of a document's number; the nearest pixel for a number without one.
FRAMENOTE_API ZoomMethod ZoomMethodOf(int method);
/// The pixels of `part`, which lies in the picture.
FRAMENOTE_API PixelView PartOf(PixelView const &picture, wxRect const &part);

/// `lens` where its content is taken from, `shift` away from it, cut off where a lens is so large
/// that it could only be seen in part.
FRAMENOTE_API wxRect LensView(wxImage const &picture, wxRect const &lens, wxPoint const &shift);

/// What is to be painted, and where.
struct FRAMENOTE_API LensImage {
  wxBitmap bitmap;  ///< null where there is nothing
  wxRect rect;      ///< in picture pixels
};

/// The part of `picture`, which covers `area`, that `view` shows when it is enlarged about the
/// centre of `source`, as far as the enlarged picture reaches. Null where it does not.
FRAMENOTE_API LensImage EnlargeInLens(PixelView const &picture, wxRect const &area,
                                      wxRect const &source, wxRect const &view, double zoom,
                                      ZoomMethod method);

}  // namespace framenote
