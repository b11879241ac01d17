// SPDX-License-Identifier: MIT
#include "objects/ann_shape.h"

#include <array>

#include "modes/ann_shape_tool_mode.h"
#include "objects/recorded_object_impl.h"
#include "objects/shape_geometry.h"
#include "painters/drawing_tools.h"

template class framenote::RecordedObject<AnnShape, AnnShapeToolMode, AnnShapeProperties,
                                         AnnShapeCoordinates>;

using framenote::IsVisible;

namespace {

/// Picture pixels within which a handle is hit at any zoom.
constexpr double kLeastResizeTolerance = 0.5;
constexpr double kLeastRotationTolerance = 1.0;

/// The points at which the handles 1 to 8 are hit.
constexpr std::array<wxPoint2DDouble AnnShapePoints::*, 8> kHandlePoints = {
    &AnnShapePoints::m_topLeft,     &AnnShapePoints::m_topResizePoint,
    &AnnShapePoints::m_topRight,    &AnnShapePoints::m_rightResizePoint,
    &AnnShapePoints::m_bottomRight, &AnnShapePoints::m_bottomResizePoint,
    &AnnShapePoints::m_bottomLeft,  &AnnShapePoints::m_leftResizePoint};

}  // namespace

const std::vector<wxStockCursor> AnnShape::m_resizeCursors = {wxCURSOR_SIZENWSE, wxCURSOR_SIZENS,
                                                              wxCURSOR_SIZENESW, wxCURSOR_SIZEWE};

AnnShape::AnnShape(std::shared_ptr<AnnShapeToolMode> const &mode, wxRect const &rect,
                   std::int64_t frame)
    : RecordedObject(mode, frame, [&](std::int64_t frameCount, AnnShapeProperties const &) {
        return AnnShapeCoordinates(frameCount, frame, rect);
      }) {
  deriveCurrentRecord([this](AnnShapePoints &record) { settleAfterEdit(record); });
  initJSONValOfNewObject();
}

AnnShape::AnnShape(std::shared_ptr<AnnShapeToolMode> const &mode, wxJSONValue const &json)
    : RecordedObject(mode, json, [&](std::int64_t frameCount, AnnShapeProperties const &look) {
        double const arm = m_rotationArmLength / framenote::UsableScale(mode->GetToolScale());
        auto const derive = [arm](AnnShapePoints &record, int thickness) {
          bool const reflected = framenote::IsReflected(record);
          framenote::FindResizePoints(record);
          framenote::FindRotationPoint(record, reflected, arm);
          framenote::CalculateInnerCoordinates(thickness, record, reflected);
        };
        return AnnShapeCoordinates(json.ItemAt(coordinatesKey), frameCount, derive,
                                   look.GetThickness());
      }) {
  deriveCurrentRecord(
      [this](AnnShapePoints &record) { UpdateRotationState(getAngleFromPosition(record)); });
}

AnnShape::AnnShape(AnnShape const &other) = default;
AnnShape::~AnnShape() = default;

bool AnnShape::IsJSONValid(wxJSONValue const &json) {
  return json.IsValid() && json.HasMember(coordinatesKey) && json.ItemAt(coordinatesKey).IsValid();
}

void AnnShape::initFromJSONVal() {}

void AnnShape::onCornersDragged(bool) {}

std::mutex &AnnShape::GetCoordinatesMutex() const {
  return m_coordinates.GetMutex();
}

bool AnnShape::IsAtResizePoint(wxPoint2DInt const &point, wxStockCursor &cursor) {
  m_activeHandle = 0;
  auto const record = currentRecord();
  if (!record) return false;
  double const tolerance = handleTolerance(kLeastResizeTolerance);
  for (std::size_t i = 0; i < kHandlePoints.size(); ++i) {
    if (!((*record.*kHandlePoints[i]).GetDistance(wxPoint2DDouble(point)) <= tolerance)) continue;
    m_activeHandle = static_cast<int>(i) + 1;
    // Opposite handles share a cursor, so four places make a full turn.
    std::size_t const turned = static_cast<std::size_t>((m_rotationState % 4 + 4) % 4) + i;
    cursor = m_resizeCursors[turned % 4];
    return true;
  }
  return false;
}

bool AnnShape::IsAtRotationPoint(wxPoint2DInt const &point) {
  // The handle must follow a change of the view's scale.
  deriveCurrentRecord([this](AnnShapePoints &record) { FindRotationPoint(record, false); });
  auto const record = currentRecord();
  if (!record) return false;
  double const tolerance = handleTolerance(kLeastRotationTolerance);
  return record->m_rotationPoint.GetDistance(wxPoint2DDouble(point)) <= tolerance;
}

bool AnnShape::Contains(wxPoint2DInt const &point) const {
  auto const record = currentRecord();
  if (!record) return false;
  wxPoint const pixel(point.m_x, point.m_y);
  if (IsPoint(*record)) return pixel == GetRounded(record->m_topLeft);
  switch (m_properties.GetShape()) {
    case AnnShapeProperties::Rectangle:
      return rectangleContains(*record, pixel);
    case AnnShapeProperties::Ellipse:
      return ellipseContains(*record, pixel);
  }
  return false;
}

bool AnnShape::boxContains(wxPoint2DInt const &point) const {
  auto const record = currentRecord();
  if (!record) return false;
  wxPoint const pixel(point.m_x, point.m_y);
  if (IsPoint(*record)) return pixel == GetRounded(record->m_topLeft);
  auto const corners = framenote::RoundToPixels(GetCorners(*record, {0.0, 0.0}));
  return framenote::QuadrilateralContains(pixel, corners[0], corners[1], corners[2], corners[3]);
}

bool AnnShape::isHollow(AnnShapePoints const &record) const {
  return !IsVisible(m_properties.GetFillColor()) && !IsFillCoveredByBorder(record);
}

bool AnnShape::rectangleContains(AnnShapePoints const &record, wxPoint const &point) const {
  using framenote::RoundToPixels;
  using framenote::TriangleArea;
  auto const outer = RoundToPixels(GetCorners(record, {0.0, 0.0}));
  if (!framenote::QuadrilateralContains(point, outer[0], outer[1], outer[2], outer[3])) {
    return false;
  }
  if (!isHollow(record)) return true;
  auto const inner = RoundToPixels(GetInnerCorners(record, {0.0, 0.0}));
  double const around =
      TriangleArea(inner[0], inner[1], point) + TriangleArea(inner[1], inner[2], point) +
      TriangleArea(inner[2], inner[3], point) + TriangleArea(inner[3], inner[0], point);
  return framenote::QuadrilateralArea(inner[0], inner[1], inner[2], inner[3]) < around;
}

bool AnnShape::ellipseContains(AnnShapePoints const &record, wxPoint const &point) const {
  wxPoint const sum = GetRounded(record.m_topLeft) + GetRounded(record.m_bottomRight);
  wxPoint const centre = sum / 2;
  // In doubles, as a pointer may be anywhere.
  wxPoint2DDouble const fromCentre(double(point.x) - centre.x, double(point.y) - centre.y);
  wxPoint2DDouble const v =
      framenote::Turned(fromCentre, -framenote::DegreesFromRadians(m_rotationAngle));
  wxSize const size = GetSize(record);
  auto const distance = [&v](double a, double b) {
    return (v.m_x / a) * (v.m_x / a) + (v.m_y / b) * (v.m_y / b);
  };
  int const a = size.x / 2;
  int const b = size.y / 2;
  if (!(distance(a, b) <= 1.0)) return false;
  int const thickness = framenote::UsableThickness(m_properties.GetThickness());
  return !isHollow(record) || distance(a - thickness, b - thickness) > 1.0;
}

bool AnnShape::WouldDisappear() const {
  auto const record = currentRecord();
  return !record || IsPoint(*record) || IsLine(*record) || isFullyTransparent();
}

bool AnnShape::isFullyTransparent() const {
  return !IsVisible(m_properties.GetBorderColor()) && !IsVisible(m_properties.GetFillColor());
}

wxColour AnnShape::GetDominantColor() {
  wxColour const border = m_properties.GetBorderColor();
  wxColour const fill = m_properties.GetFillColor();
  if (!IsVisible(border)) return IsVisible(fill) ? fill : m_defaultColor;
  if (!IsVisible(fill)) return border;
  auto const record = currentRecord();
  return !record || IsFillCoveredByBorder(*record) ? border : fill;
}

wxPoint2DInt AnnShape::GetPastePoint() {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  return wxPoint2DInt(
      GetRounded(m_coordinates.CoordsAt(m_toolMode->GetToolCurrentFrame()).m_topLeft));
}

void AnnShape::setBorderLook(wxColour const &colour, int thickness) {
  m_properties.SetBorderColor(colour);
  m_properties.SetThickness(thickness);
  deriveCurrentRecord([this](AnnShapePoints &record) {
    CalculateInnerCoordinates(m_properties.GetThickness(), record, false);
  });
}

void AnnShape::UpdateProperties() {
  RecordedObject::UpdateProperties();
  deriveCurrentRecord([this](AnnShapePoints &record) {
    CalculateInnerCoordinates(m_properties.GetThickness(), record, false);
  });
}
