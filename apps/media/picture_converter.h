// SPDX-License-Identifier: MIT
#pragma once

#include "media/libav.h"
#include "media/picture.h"

/// Turns pictures into what an encoder takes. The same picture always gives the same bytes, on any
/// number of threads and any processor.
class PictureConverter {
public:
  /// `width` and `height` are those of the result; `format` is AV_PIX_FMT_0RGB32, which is exact,
  /// or planar YUV. That is made with `matrix` and limited range and, where chroma is halved, with
  /// chroma on the left column, halfway between two rows. Throws std::bad_alloc;
  /// std::invalid_argument for what swscale cannot do.
  PictureConverter(int width, int height, AVPixelFormat format, AVColorSpace matrix);

  /// In YUV, a picture smaller than the result goes to its upper left, and its last column and row
  /// are repeated beyond. The frame is good until the next call. REQUIRES: the picture is not
  /// larger than the result, and for RGB of the same size.
  AVFrame &Convert(Picture const &picture);

private:
  void TakeIn(Picture const &picture);
  void Spread(Picture const &picture);

  libav::Owned<SwsContext> m_scaler;  ///< and m_from: for YUV only
  libav::Owned<AVFrame> m_from;
  libav::Owned<AVFrame> m_to;
};
