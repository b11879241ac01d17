// SPDX-License-Identifier: MIT
#include "objects/object_painting.h"

#include <algorithm>

#include "objects/annotation_object.h"
#include "painters/ann_painter_device_context.h"

namespace framenote {

wxPoint2DDouble PaintingOffset(std::unique_ptr<IAnnPainter> const &painter,
                               wxPoint2DDouble const &offset) {
  if (dynamic_cast<AnnPainterDeviceContext const *>(painter.get()) == nullptr) return offset;
  return {std::max(offset.m_x, 0.0), std::max(offset.m_y, 0.0)};
}

void DrawEndMarkers(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &first,
                    wxPoint2DDouble const &last, wxPoint2DDouble const &offset, double scale,
                    bool selected) {
  auto const points = OnScreen({first, last}, PaintingOffset(painter, offset), scale);
  painter->DrawOutline(points, IAnnotationObject::m_pointMarkerRadius, selected,
                       IAnnotationObject::m_outlineWithoutLines);
}

std::vector<wxPoint2DDouble> OnScreen(std::vector<wxPoint2DDouble> points,
                                      wxPoint2DDouble const &offset, double scale) {
  for (wxPoint2DDouble &point : points) point = (point + offset) * scale;
  return points;
}

}  // namespace framenote
