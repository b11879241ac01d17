// SPDX-License-Identifier: MIT
#pragma once

#include "media/picture.h"

/// How stored pixels become an upright picture: mirrored left to right first, then turned
/// clockwise. All eight ways of laying a picture on its sides.
struct PictureTurn {
  int quarters = 0;         ///< of a full turn, clockwise: 0 to 3
  bool isMirrored = false;  ///< before the turn

  bool IsNone() const { return quarters == 0 && !isMirrored; }
  /// Whether width and height change places.
  bool IsSideways() const { return quarters % 2 != 0; }
};

/// Of an EXIF orientation; none for values beyond 1 to 8.
PictureTurn TurnOfExif(int orientation);
/// Of the matrix ((a, b), (c, d)) that sends (x, y) to (ax + cy, bx + dy), with y downward; none
/// for one that is not one of the eight, such as a slant. Only signs count.
PictureTurn TurnOfMatrix(double a, double b, double c, double d);
/// Every pixel in its new place, none changed. REQUIRES: the picture has pixels.
Picture Turned(Picture picture, PictureTurn const &turn);
