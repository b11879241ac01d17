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

/// The markers at both ends of an object that has no box; `offset` is the caller's, unchanged.
FRAMENOTE_API void DrawEndMarkers(std::unique_ptr<IAnnPainter> &painter,
                                  wxPoint2DDouble const &first, wxPoint2DDouble const &last,
                                  wxPoint2DDouble const &offset, double scale, bool selected);

/// Picture points as screen points: each plus `offset`, times `scale`.
FRAMENOTE_API std::vector<wxPoint2DDouble> OnScreen(std::vector<wxPoint2DDouble> points,
                                                    wxPoint2DDouble const &offset, double scale);

}  // namespace framenote
