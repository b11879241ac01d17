// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "media/libav.h"
#include "media/picture.h"
#include "media/picture_turn.h"

/// How the numbers of a stream stand for colours.
struct ColourTags {
  AVColorSpace matrix = AVCOL_SPC_UNSPECIFIED;  ///< never unspecified once resolved
  bool isGuessed = false;
  bool isFullRange = false;
};

/// What the stream says, and where it does not: BT.709 from 720 lines up, else BT.601; RGB formats
/// have no matrix, and the "yuvj" ones the full range.
ColourTags ResolveColours(AVColorSpace matrix, AVColorRange range, AVPixelFormat format,
                          int height);
/// Such as "bt709"; "gbr" for RGB.
std::string MatrixName(AVColorSpace matrix);

/// Makes upright RGB pictures of decoded frames, each by its own tags. Alpha is dropped, and more
/// than 8 bits are rounded.
class FrameConverter {
public:
  /// Pictures have this size before they are turned; frames of another are scaled to it.
  FrameConverter(int width, int height, PictureTurn const &turn);

  /// Throws MediaError that names `path`: Unsupported for a pixel format without a conversion.
  Picture Convert(AVFrame const &frame, std::string const &path);

private:
  void Prepare(AVFrame const &frame, std::string const &path);

  int m_width;
  int m_height;
  PictureTurn m_turn;
  libav::ScalerPtr m_scaler;
  libav::FramePtr m_target;  ///< what it writes to, kept for the next frame
  /// What the scaler was made for.
  int m_format = AV_PIX_FMT_NONE;
  int m_frameWidth = 0;
  int m_frameHeight = 0;
  ColourTags m_colours;
};
