// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>

#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_magnify.h"
#include "objects/object_painting.h"
#include "objects/picture_pixels.h"
#include "objects/shape_geometry.h"
#include "painters/ann_painter.h"

namespace {

using Points = std::vector<wxPoint2DDouble>;

constexpr std::size_t kCorners = 4;
/// Of the marker on the centre of what is shown, in screen pixels.
constexpr double kCentreRadius = 5.0;

/// The middles of the points of two polygons, closed.
Points ClosedMiddles(Points const &a, Points const &b) {
  Points middles;
  for (std::size_t i = 0; i < kCorners; ++i) middles.push_back((a[i] + b[i]) * 0.5);
  middles.push_back(middles.front());
  return middles;
}

Points SideMiddles(Points const &corners) {
  Points middles;
  for (std::size_t i = 0; i < kCorners; ++i) {
    middles.push_back((corners[i] + corners[(i + 1) % kCorners]) * 0.5);
  }
  return middles;
}

/// Corners in clockwise order on the screen.
Points Clockwise(Points corners, bool reflected) {
  if (reflected) {
    std::swap(corners[0], corners[1]);
    std::swap(corners[2], corners[3]);
  }
  return corners;
}

}  // namespace

/// The outline of what the lens shows: its form, reduced, with a border of the same width.
struct AnnMagnify::SourceOutline {
  Points outer;
  Points inner;
  Points curve;         ///< the outer corners and the middles of the sides
  Points sourceMiddle;  ///< the middle of the border about the source, closed
  Points lensMiddle;    ///< the same about the lens
  bool isTiny;          ///< the border leaves no inside
};

bool AnnMagnify::sourceOutline(AnnShapePoints const &record, wxPoint2DDouble const &offset,
                               SourceOutline &outline) const {
  bool const reflected = IsReflected(record);
  Points const lens = Clockwise(GetCorners(record, {0.0, 0.0}), reflected);
  Points const lensInner = Clockwise(GetInnerCorners(record, {0.0, 0.0}), reflected);
  wxPoint2DDouble const lensCentre = (lens[0] + lens[2]) * 0.5;
  wxPoint2DDouble const wanted = getCenterPoint();
  wxRect const source = getIntersectionWithImage(GetRounded(wanted - lensCentre));
  if (source.IsEmpty()) return false;
  // Near the picture's edge the lens shows another centre than the wanted one.
  wxPoint2DDouble const fixed(framenote::CentreOf(source));
  wxPoint2DDouble const shown = fixed - (fixed - wanted) / zoom();
  auto const reduced = [&](wxPoint2DDouble const &point) {
    return (point - lensCentre) / zoom() + shown + offset;
  };
  for (std::size_t i = 0; i < kCorners; ++i) {
    outline.outer.push_back(reduced(lens[i]));
    outline.inner.push_back(outline.outer[i] + (lensInner[i] - lens[i]));
  }
  outline.curve = outline.outer;
  for (wxPoint2DDouble const &middle : {record.m_topResizePoint, record.m_rightResizePoint,
                                        record.m_bottomResizePoint, record.m_leftResizePoint}) {
    outline.curve.push_back(reduced(middle));
  }
  if (reflected) std::swap(outline.curve[5], outline.curve[7]);
  outline.sourceMiddle = ClosedMiddles(outline.outer, outline.inner);
  outline.lensMiddle = ClosedMiddles(lens, lensInner);
  for (wxPoint2DDouble &point : outline.lensMiddle) point += offset;
  double const thickness = m_look.GetThickness();
  outline.isTiny = outline.outer[0].GetDistance(outline.outer[1]) / 2.0 <= thickness ||
                   outline.outer[0].GetDistance(outline.outer[3]) / 2.0 <= thickness;
  return true;
}

void AnnMagnify::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  auto const record = currentRecord();
  if (!painter || !record) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  AnnMagnifyProperties::BorderType const border = m_look.GetBorderType();
  bool const joins = border == AnnMagnifyProperties::PointToZoomedArea2Lines ||
                     border == AnnMagnifyProperties::PointToZoomedArea3Lines ||
                     border == AnnMagnifyProperties::PointToZoomedArea4Lines;
  SourceOutline outline;
  if (joins && !isCenterPointAtDefaultPosition() && sourceOutline(*record, shift, outline)) {
    switch (m_look.GetShape()) {
      case AnnShapeProperties::Rectangle:
        drawSourceRectangle(*painter, outline);
        break;
      case AnnShapeProperties::Ellipse:
        drawSourceEllipse(*painter, outline);
        break;
    }
  }
  if (m_subBitmap.IsOk()) {
    painter->DrawBitmap(wxPoint2DDouble(m_subBitmapRect.GetPosition()) + shift, m_subBitmap);
  }
  if (border != AnnMagnifyProperties::Transparent) {
    drawBorder(*painter, *record, shift,
               {m_look.GetShape(), m_look.GetBorderColor(), m_look.GetThickness()});
  }
}

void AnnMagnify::drawSourceRectangle(IAnnPainter &painter, SourceOutline const &outline) const {
  strokeLines(painter, outline.sourceMiddle, outline.lensMiddle);
  if (outline.isTiny) {
    Points closed = outline.outer;
    closed.push_back(closed.front());
    painter.DrawPolygon(closed, m_look.GetBorderColor());
  } else {
    painter.DrawBorderOfPolygon(outline.sourceMiddle, m_look.GetBorderColor(),
                                m_look.GetThickness());
  }
}

void AnnMagnify::drawSourceEllipse(IAnnPainter &painter, SourceOutline const &outline) const {
  Points const source = SideMiddles(outline.sourceMiddle);
  Points const lens = SideMiddles(outline.lensMiddle);
  for (std::size_t const side : sidesToJoin(outline.sourceMiddle, source, lens)) {
    painter.DrawLine(source[side], lens[side], m_look.GetBorderColor(), m_look.GetThickness());
  }
  if (outline.isTiny) {
    painter.DrawEllipseCurves(outline.curve, m_look.GetBorderColor());
  } else {
    painter.DrawBorderOfEllipseCurves(outline.curve, outline.inner, m_look.GetBorderColor());
  }
}

bool AnnMagnify::isInsideAngle(wxPoint2DDouble const &vertex, wxPoint2DDouble const &a,
                               wxPoint2DDouble const &b, wxPoint2DDouble const &x) {
  double const from = (a - vertex).GetVectorAngle();
  double to = (b - vertex).GetVectorAngle();
  if (to < from) to += 360.0;
  double const angle = (x - vertex).GetVectorAngle();
  auto const isBetween = [&](double value) { return from < value && value < to; };
  return isBetween(angle) || isBetween(angle + 360.0);
}

// A line that would run through the rectangle at one of its ends is left out: at either end with
// two lines, at the source with three. REQUIRES: a border type with lines.
void AnnMagnify::strokeLines(IAnnPainter &painter, Points const &source, Points const &lens) const {
  auto const crosses = [](Points const &corners, std::size_t i, wxPoint2DDouble const &end) {
    return isInsideAngle(corners[i], corners[(i + 1) % kCorners], corners[(i + 3) % kCorners], end);
  };
  auto const isJoined = [&](std::size_t i) {
    switch (m_look.GetBorderType()) {
      case AnnMagnifyProperties::PointToZoomedArea2Lines:
        return !crosses(source, i, lens[i]) && !crosses(lens, i, source[i]);
      case AnnMagnifyProperties::PointToZoomedArea3Lines:
        return !crosses(source, i, lens[i]);
      default:
        return true;
    }
  };
  for (std::size_t i = 0; i < kCorners; ++i) {
    if (!isJoined(i)) continue;
    painter.DrawLine(source[i], lens[i], m_look.GetBorderColor(), m_look.GetThickness());
  }
}

std::vector<std::size_t> AnnMagnify::sidesToJoin(Points const &corners, Points const &source,
                                                 Points const &lens) const {
  std::vector<std::size_t> sides;
  AnnMagnifyProperties::BorderType const border = m_look.GetBorderType();
  bool const allLines = border == AnnMagnifyProperties::PointToZoomedArea4Lines;
  bool const twoLines = border == AnnMagnifyProperties::PointToZoomedArea2Lines;
  for (std::size_t i = 0; i < kCorners; ++i) {
    // The line starts outwards from its side.
    bool const qualifies =
        !isInsideAngle(source[i], corners[(i + 1) % kCorners], corners[i], lens[i]);
    if (!allLines && !qualifies) continue;
    if (twoLines && sides.size() == 2) {
      // A pair of opposite sides is kept once it is found.
      if (sides[1] == sides[0] + 2) break;
      sides.pop_back();
    }
    sides.push_back(i);
  }
  return sides;
}

void AnnMagnify::DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                              double scale) const {
  AnnShape::DrawSelected(painter, offset, scale);
  if (!painter || !currentRecord()) return;
  wxPoint2DDouble const shift = framenote::PaintingOffset(painter, offset);
  painter->DrawCircle((getCenterPoint() + shift) * scale, kCentreRadius, *wxCYAN, *wxBLACK);
}
