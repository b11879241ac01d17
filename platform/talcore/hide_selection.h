// SPDX-License-Identifier: MIT
#pragma once

#include "framenote/export.h"

struct _IplImage;  // NOLINT(bugprone-reserved-identifier): OpenCV's own name
using IplImage = _IplImage;

/// Fills `destination` with the whole of `source` blurred (`effect` 0) or pixelated (any other).
/// Both are pictures of three channels of 8 bits, of one size; for anything else nothing happens.
/// `strength` counts pixels, whatever the picture's size: below 1 it acts as 1, a larger one hides
/// more, up to a picture of one colour.
FRAMENOTE_API void tcvHideSelection(IplImage const *source, IplImage *destination, int effect,
                                    int strength);
