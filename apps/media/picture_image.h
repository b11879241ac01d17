// SPDX-License-Identifier: MIT
#pragma once

#include <wx/image.h>

#include "media/picture.h"

/// The image that takes the picture's pixels over; not OK for a picture without any.
wxImage ToImage(Picture &&picture);
/// A copy of the image's colours; its alpha and mask stay behind. Without pixels if it is not OK.
Picture ToPicture(wxImage const &image);
