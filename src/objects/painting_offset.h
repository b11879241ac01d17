// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <wx/geometry.h>

#include "framenote/export.h"

class IAnnPainter;

namespace framenote {

/// The offset that an object or a preview paints with: a device context cannot start left of or
/// above its origin, so there each coordinate is raised to at least 0.
FRAMENOTE_API wxPoint2DDouble PaintingOffset(std::unique_ptr<IAnnPainter> const &painter,
                                             wxPoint2DDouble const &offset);

/// Picture points as screen points: each plus `offset`, times `scale`.
FRAMENOTE_API std::vector<wxPoint2DDouble> OnScreen(std::vector<wxPoint2DDouble> points,
                                                    wxPoint2DDouble const &offset, double scale);

}  // namespace framenote
