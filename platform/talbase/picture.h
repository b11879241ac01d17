// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <wx/gdicmn.h>
#include <wx/image.h>

#include "framenote/export.h"

struct _IplImage;  // NOLINT(bugprone-reserved-identifier): OpenCV's own name
using IplImage = _IplImage;

/// A picture whose pixels image kernels can work on. Channels are interleaved, in the order of the
/// toolkit's images: red, green, blue. A copy shares the pixels.
class FRAMENOTE_API Image {
public:
  /// `depth` is the number of bits of a channel as image kernels count it (8 for bytes). With null
  /// `data` the picture owns new pixels, all zero; else it works on the caller's, whose rows lie
  /// `step` bytes apart (0: no padding) and which must outlive it. A size or channel count that is
  /// not positive, a depth other than 8, a step shorter than a row, or more than 2 GiB of pixels
  /// give an empty picture.
  Image(wxSize const &size, int depth, int channels, void *data, int step);

  wxSize Size() const;   ///< in pixels; (0, 0) for an empty picture
  int Depth() const;     ///< bits of a channel; 0 for an empty picture
  int Channels() const;  ///< 0 for an empty picture
  ///@{
  /// Null for an empty picture; the picture stays the owner.
  operator IplImage *();
  operator IplImage const *() const;
  ///@}

private:
  std::shared_ptr<IplImage> m_image;
};

/// A copy of the image's red, green and blue; an empty picture if it is invalid or too large.
FRAMENOTE_API Image WxImageToImage(wxImage const &image);
/// A copy of a picture of three 8-bit channels; an invalid image for anything else.
FRAMENOTE_API wxImage IplImageToWxImage(IplImage const *picture);
