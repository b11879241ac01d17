// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <new>

#include <wx/bitmap.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

#include "framenote/export.h"
#include "talcore/pixel_view.h"

/// Between the toolkit's pictures and the pixels that kernels work on. Usable on any thread: a
/// picture that several threads see is only read, by its pixels.
namespace framenote {

constexpr int kPictureChannels = 3;  ///< red, green, blue

/// The picture from its origin; an empty rectangle for an invalid one.
FRAMENOTE_API wxRect RectOfPicture(wxImage const &picture);
/// The pixels of a picture; valid as long as it is. REQUIRES: the picture is Ok.
FRAMENOTE_API PixelView PixelsOf(wxImage const &picture);
FRAMENOTE_API PixelArea AreaOf(wxRect const &rect);  ///< The same rectangle for a kernel.
/// The integer middle of a rectangle, each coordinate truncated toward zero.
FRAMENOTE_API wxPoint CentreOf(wxRect const &rect);

/// A bitmap with pixels of its own: workers must not count the references of one that others see.
/// For the GUI thread.
FRAMENOTE_API wxBitmap UnsharedCopy(wxBitmap const &bitmap);

/// Pixels of a size to render to, for the calling thread until its next call. A small picture is
/// made many times a second, and fresh memory would cost more than its pixels.
/// Throws std::bad_alloc if there is no memory for them.
FRAMENOTE_API wxImage ScratchImage(wxSize const &size);

/// A bitmap of the part of a picture that has a function Render. The part must not be empty.
/// Throws std::bad_alloc if there is no memory for it: a part that is to be hidden must not be left
/// out in silence.
template <class Picture>
wxBitmap RenderedBitmap(Picture const &picture, wxRect const &part) {
  wxImage image = ScratchImage(part.GetSize());
  picture.Render(AreaOf(part), image.GetData(),
                 static_cast<std::size_t>(part.width) * kPictureChannels);
  wxBitmap bitmap(image, -1, 1.0);
  if (!bitmap.IsOk()) throw std::bad_alloc();
  return bitmap;
}

}  // namespace framenote
