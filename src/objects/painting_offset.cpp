// SPDX-License-Identifier: MIT
#include "objects/painting_offset.h"

#include <algorithm>

#include "painters/ann_painter_device_context.h"

namespace framenote {

wxPoint2DDouble PaintingOffset(std::unique_ptr<IAnnPainter> const &painter,
                               wxPoint2DDouble const &offset) {
  if (dynamic_cast<AnnPainterDeviceContext const *>(painter.get()) == nullptr) return offset;
  return {std::max(offset.m_x, 0.0), std::max(offset.m_y, 0.0)};
}

std::vector<wxPoint2DDouble> OnScreen(std::vector<wxPoint2DDouble> points,
                                      wxPoint2DDouble const &offset, double scale) {
  for (wxPoint2DDouble &point : points) point = (point + offset) * scale;
  return points;
}

}  // namespace framenote
