// SPDX-License-Identifier: MIT
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "objects/object_painting.h"
#include "objects/recorded_object_impl.h"
#include "painters/ann_painter.h"
#include "painters/drawing_tools.h"

using framenote::IsVisible;

namespace {

/// Where the top side's middle stands among the resize points.
constexpr std::size_t kTopMiddle = 4;

/// The closed centre line of the border: a line of the border's width along it covers what lies
/// between the outline and the inner polygon.
std::vector<wxPoint2DDouble> CentreLine(std::vector<wxPoint2DDouble> const &outer,
                                        std::vector<wxPoint2DDouble> const &inner) {
  std::vector<wxPoint2DDouble> line;
  for (std::size_t i = 0; i < outer.size(); ++i) line.push_back((outer[i] + inner[i]) * 0.5);
  line.push_back(line.front());
  return line;
}

}  // namespace

void AnnShape::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  if (!painter) return;
  auto const record = currentRecord();
  if (!record) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  switch (m_properties.GetShape()) {
    case AnnShapeProperties::Rectangle:
      drawRectangle(*painter, *record, shift);
      break;
    case AnnShapeProperties::Ellipse:
      drawEllipse(*painter, *record, shift);
      break;
  }
}

void AnnShape::drawRectangle(IAnnPainter &painter, AnnShapePoints const &record,
                             wxPoint2DDouble const &offset) const {
  bool const fill = IsVisible(m_properties.GetFillColor());
  auto const corners = GetCorners(record, offset);
  if (!IsVisible(m_properties.GetBorderColor())) {
    if (fill) painter.DrawPolygon(corners, m_properties.GetFillColor());
  } else if (fill && !IsFillCoveredByBorder(record)) {
    painter.DrawPolygonWithBorder(corners, GetInnerCorners(record, offset), m_properties);
  } else {
    drawBorder(painter, record, offset, border());
  }
}

void AnnShape::drawEllipse(IAnnPainter &painter, AnnShapePoints const &record,
                           wxPoint2DDouble const &offset) const {
  bool const fill = IsVisible(m_properties.GetFillColor());
  auto const outer = GetResizePoints(record, offset);
  if (!IsVisible(m_properties.GetBorderColor())) {
    if (fill) painter.DrawEllipseCurves(outer, m_properties.GetFillColor());
  } else if (fill && !IsFillCoveredByBorder(record)) {
    painter.DrawEllipseWithBorderCurves(outer, GetInnerCorners(record, offset), m_properties);
  } else {
    drawBorder(painter, record, offset, border());
  }
}

AnnShape::Border AnnShape::border() const {
  return {m_properties.GetShape(), m_properties.GetBorderColor(), m_properties.GetThickness()};
}

void AnnShape::drawBorder(IAnnPainter &painter, AnnShapePoints const &record,
                          wxPoint2DDouble const &offset, Border const &border) const {
  bool const covers = IsFillCoveredByBorder(record);
  auto const inner = GetInnerCorners(record, offset);
  switch (border.shape) {
    case AnnShapeProperties::Rectangle: {
      auto const corners = GetCorners(record, offset);
      if (covers) {
        painter.DrawPolygon(corners, border.colour);
      } else {
        painter.DrawBorderOfPolygon(CentreLine(corners, inner), border.colour, border.thickness);
      }
      break;
    }
    case AnnShapeProperties::Ellipse: {
      auto const outer = GetResizePoints(record, offset);
      if (covers) {
        painter.DrawEllipseCurves(outer, border.colour);
      } else {
        painter.DrawBorderOfEllipseCurves(outer, inner, border.colour);
      }
      break;
    }
  }
}

void AnnShape::DrawFocused(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                           double scale) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  auto const points = framenote::OnScreen(GetResizePoints(*record, {0.0, 0.0}),
                                          framenote::PaintingOffset(painter, offset), scale);
  painter->DrawOutline(points, m_pointMarkerRadius, m_outlineFocused, m_outlineWithLines);
}

void AnnShape::DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                            double scale) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  auto const points = framenote::OnScreen(GetResizePoints(*record, {0.0, 0.0}), shift, scale);
  wxPoint2DDouble const foot = points[kTopMiddle];
  wxPoint2DDouble const arm = (record->m_rotationPoint + shift) * scale - foot;
  // A shape collapsed to a point has its handle on the foot; there is no direction to stretch.
  bool const hasDirection = arm.GetVectorLength() > 0.0;
  wxPoint2DDouble const handle =
      hasDirection ? foot + framenote::WithLength(arm, m_rotationArmLength) : foot;
  painter->DrawCircleOnStick(foot, handle, m_pointMarkerRadius);
  painter->DrawOutline(points, m_pointMarkerRadius, m_outlineSelected, m_outlineWithLines);
}
