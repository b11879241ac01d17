// SPDX-License-Identifier: MIT
#include <cmath>

#include "coordinates/pixel_geometry.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_shape.h"
#include "objects/recorded_object_impl.h"
#include "objects/shape_geometry.h"

using framenote::DegreesFromRadians;
using framenote::Turned;
using framenote::WithLength;

/// A corner, in the record and as it was remembered at the start of the drag.
struct AnnShape::Corner {
  wxPoint2DDouble AnnShapePoints::*now;
  wxPoint2DDouble AnnShape::*then;
};

/// The corners by name.
struct AnnShape::Corners {
  static constexpr Corner kTopLeft = {&AnnShapePoints::m_topLeft, &AnnShape::m_rememberedTopLeft};
  static constexpr Corner kTopRight = {&AnnShapePoints::m_topRight,
                                       &AnnShape::m_rememberedTopRight};
  static constexpr Corner kBottomRight = {&AnnShapePoints::m_bottomRight,
                                          &AnnShape::m_rememberedBottomRight};
  static constexpr Corner kBottomLeft = {&AnnShapePoints::m_bottomLeft,
                                         &AnnShape::m_rememberedBottomLeft};
};

//   1---2---3     A corner drag writes the corner and its two neighbours; the opposite corner
//   |       |     stays. The signs bring the pointer's offset, in the shape's own axes, to the
//   8       4     direction from the corner to its neighbours; `turn` is the sense in which a
//   |       |     neighbour follows from the other one when a side has collapsed.
//   7---6---5
struct AnnShape::CornerRule {
  int handle;
  Corner corner, alongWidth, alongHeight;
  int widthSign, heightSign, turn;

  static CornerRule const *ForHandle(int handle);
};

// A side drag writes the two corners of the side, in clockwise order. `quarterTurns` leads from the
// shape's angle to the axis in which the pointer's offset is measured.
struct AnnShape::SideRule {
  int handle;
  Corner first, second, far;
  int quarterTurns;
  bool horizontal;

  static SideRule const *ForHandle(int handle);
};

namespace {

template <class Rule, std::size_t N>
Rule const *RuleForHandle(Rule const (&rules)[N], int handle) {
  for (Rule const &rule : rules) {
    if (rule.handle == handle) return &rule;
  }
  return nullptr;
}

}  // namespace

AnnShape::CornerRule const *AnnShape::CornerRule::ForHandle(int handle) {
  static constexpr CornerRule kRules[] = {
      {1, Corners::kTopLeft, Corners::kTopRight, Corners::kBottomLeft, 1, 1, 1},
      {3, Corners::kTopRight, Corners::kTopLeft, Corners::kBottomRight, -1, 1, -1},
      {5, Corners::kBottomRight, Corners::kBottomLeft, Corners::kTopRight, -1, -1, 1},
      {7, Corners::kBottomLeft, Corners::kBottomRight, Corners::kTopLeft, 1, -1, -1}};
  return RuleForHandle(kRules, handle);
}

AnnShape::SideRule const *AnnShape::SideRule::ForHandle(int handle) {
  static constexpr SideRule kRules[] = {
      {2, Corners::kTopLeft, Corners::kTopRight, Corners::kBottomRight, 0, true},
      {4, Corners::kTopRight, Corners::kBottomRight, Corners::kBottomLeft, 1, false},
      {6, Corners::kBottomRight, Corners::kBottomLeft, Corners::kTopLeft, 2, true},
      {8, Corners::kBottomLeft, Corners::kTopLeft, Corners::kTopRight, -1, false}};
  return RuleForHandle(kRules, handle);
}

void AnnShape::PrepareResizing() {
  RememberCurrentPosition();
}

void AnnShape::RememberCurrentPosition() {
  auto const record = currentRecord();
  // A shape collapsed to a pixel gives no usable size to start from.
  if (!record || IsPoint(*record)) return;
  m_rememberedTopLeft = record->m_topLeft;
  m_rememberedTopRight = record->m_topRight;
  m_rememberedBottomRight = record->m_bottomRight;
  m_rememberedBottomLeft = record->m_bottomLeft;
  m_rememberedAngle = m_rotationAngle;
  m_resizedFrame = -1;
  CalculateAspectRatio(*record);
}

void AnnShape::CalculateAspectRatio(AnnShapePoints const &record) {
  m_aspectRatio = record.m_topRight.GetDistance(record.m_topLeft) /
                  record.m_bottomLeft.GetDistance(record.m_topLeft);
}

void AnnShape::ResizeTo(wxPoint2DInt const &position, bool keepAspectRatio) {
  growToCurrentFrame();
  {
    std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
    std::int64_t const frame = m_toolMode->GetToolCurrentFrame();
    m_coordinates.AddNewCoordinates(frame);
    leaveFrame(lock, m_resizedFrame, frame);
    m_resizedFrame = frame;
    AnnShapePoints &record = m_coordinates.CoordsEditable();
    wxPoint2DDouble const pointer(position);
    if (auto const *corner = CornerRule::ForHandle(m_activeHandle)) {
      dragCorner(record, *corner, pointer, keepAspectRatio);
    } else if (auto const *side = SideRule::ForHandle(m_activeHandle)) {
      dragSide(record, *side, pointer, keepAspectRatio);
    }
    settleAfterEdit(record);
    m_coordinates.SetCoordinatesNotUpdatedInJson();
  }
  m_containingRectValid = false;
  onCornersDragged(true);
}

// When a drag enters a new frame, the record left behind is repaired before the new one is edited.
void AnnShape::leaveFrame(std::lock_guard<std::mutex> const &lock, std::int64_t previous,
                          std::int64_t frame) {
  if (frame == previous || previous < 0 || m_coordinates.AreCoordinatesEmpty(previous)) return;
  m_coordinates.UpdateCoordinatesPointers(previous);
  CheckIfReflectedAlongAxis(lock, true);
  m_coordinates.UpdateCoordinatesPointers(frame);
}

void AnnShape::dragCorner(AnnShapePoints &record, CornerRule const &rule,
                          wxPoint2DDouble const &position, bool keepAspectRatio) const {
  wxPoint2DDouble const corner = this->*rule.corner.then;
  wxPoint2DDouble const alongWidth = this->*rule.alongWidth.then;
  wxPoint2DDouble const alongHeight = this->*rule.alongHeight.then;
  wxPoint2DDouble v = Turned(position - corner, -DegreesFromRadians(m_rememberedAngle));
  if (keepAspectRatio) v.m_x = rule.widthSign * rule.heightSign * v.m_y * m_aspectRatio;
  // A side that has collapsed takes its direction from the other one.
  wxPoint2DDouble const width =
      alongWidth == corner ? Turned(alongHeight - corner, -90.0 * rule.turn) : alongWidth - corner;
  wxPoint2DDouble const height =
      alongHeight == corner ? Turned(alongWidth - corner, 90.0 * rule.turn) : alongHeight - corner;
  wxPoint2DDouble const u = WithLength(width, rule.widthSign * v.m_x);
  wxPoint2DDouble const w = WithLength(height, rule.heightSign * v.m_y);
  record.*rule.corner.now = corner + u + w;
  record.*rule.alongWidth.now = alongWidth + w;
  record.*rule.alongHeight.now = alongHeight + u;
}

void AnnShape::dragSide(AnnShapePoints &record, SideRule const &rule,
                        wxPoint2DDouble const &position, bool keepAspectRatio) const {
  wxPoint2DDouble const first = this->*rule.first.then;
  wxPoint2DDouble const second = this->*rule.second.then;
  wxPoint2DDouble const far = this->*rule.far.then;
  wxPoint2DDouble const middle = (first + second) * 0.5;
  double const axis = m_rememberedAngle + rule.quarterTurns * framenote::kPi / 2.0;
  double const h = Turned(position - middle, -DegreesFromRadians(axis)).m_y;
  wxPoint2DDouble const w = WithLength(Turned(second - middle, 90.0), h);
  wxPoint2DDouble const shift = (middle + w) - middle;
  record.*rule.first.now = first + shift;
  record.*rule.second.now = second + shift;
  record.*rule.far.now = far;
  if (!keepAspectRatio) return;
  // The shape grows away from the corner before the first one, not around the side's middle.
  double const ratio = rule.horizontal ? m_aspectRatio : 1.0 / m_aspectRatio;
  wxPoint2DDouble const e = WithLength(record.*rule.first.now - record.*rule.second.now, h * ratio);
  record.*rule.second.now += e;
  record.*rule.far.now = far + e;
}

void AnnShape::changeCorners(std::function<void(AnnShapePoints &)> const &change) {
  deriveCurrentRecord([&](AnnShapePoints &record) {
    change(record);
    settleAfterEdit(record);
    m_coordinates.SetCoordinatesNotUpdatedInJson();
  });
  m_containingRectValid = false;
}

void AnnShape::Rotate(wxPoint const &position) {
  editCurrentFrame([&](AnnShapePoints &record) {
    wxPoint2DDouble const centre = (record.m_topLeft + record.m_bottomRight) * 0.5;
    wxPoint2DDouble const v = wxPoint2DDouble(position) - centre;
    // Straight up is 0, clockwise is positive.
    double const delta = std::atan2(v.m_x, -v.m_y) - m_rememberedAngle;
    UpdateRotationState(m_rememberedAngle + delta);
    auto const turned = [&](wxPoint2DDouble const &point) {
      return centre + Turned(point - centre, DegreesFromRadians(delta));
    };
    record.m_topRight = turned(m_rememberedTopRight);
    record.m_bottomLeft = m_rememberedBottomLeft - (record.m_topRight - m_rememberedTopRight);
    record.m_topLeft = turned(m_rememberedTopLeft);
    record.m_bottomRight = m_rememberedBottomRight - (record.m_topLeft - m_rememberedTopLeft);
    settleAfterEdit(record);
  });
  onCornersDragged(false);
}

void AnnShape::CheckIfReflectedAlongAxis(std::lock_guard<std::mutex> const &, bool adjustOrder) {
  if (m_coordinates.AreCurrentCoordinatesEmpty()) return;
  AnnShapePoints &record = m_coordinates.CoordsEditable();
  bool const reflected = IsReflected(record);
  if (reflected) {
    CalculateInnerCoordinates(m_properties.GetThickness(), record, true);
    FindRotationPoint(record, true);
  }
  if (!adjustOrder) return;
  if (IsRotatedByReflection(record)) UpdateRotationState(m_rotationAngle + framenote::kPi);
  if (reflected) framenote::SwapLeftAndRight(record);
}
