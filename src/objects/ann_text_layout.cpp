// SPDX-License-Identifier: MIT
// Where the text stands in its box, how it is painted there, and where it is hit.
#include <optional>

#include "coordinates/pixel_geometry.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_text.h"
#include "objects/object_painting.h"
#include "objects/recorded_object_impl.h"
#include "objects/shape_geometry.h"
#include "objects/text_lines.h"
#include "painters/ann_painter.h"

namespace {

/// An alignment of 0, 1 or 2 puts none, half or all of the free room before the text.
double ShiftIn(double room, double taken, int alignment) {
  return (room - taken) * (alignment * 0.5);
}

/// A vector of `length` along `direction`; none if there is no direction.
wxPoint2DDouble Along(wxPoint2DDouble const &direction, double length) {
  if (direction.GetVectorLength() == 0.0) return {};
  return framenote::WithLength(direction, length);
}

wxPoint2DDouble Rounded(wxPoint2DDouble const &vector) {
  return wxPoint2DDouble(IAnnotationObject::GetRounded(vector));
}

}  // namespace

/// The two axes of a box's text, from its anchor.
struct AnnText::Layout {
  wxPoint2DDouble down;    ///< from a line to the next one
  wxPoint2DDouble across;  ///< along a line
  double height = 0.0;     ///< room for all lines
  double width = 0.0;      ///< room for a line
};

AnnText::Layout AnnText::layoutOf(AnnShapePoints const &record) const {
  bool const flipped = record.m_topLeft != m_textPosition;
  Layout layout;
  layout.down = record.m_bottomLeft - record.m_topLeft;
  layout.across =
      flipped ? record.m_topLeft - record.m_topRight : record.m_topRight - record.m_topLeft;
  layout.height = layout.down.GetVectorLength();
  layout.width = layout.across.GetVectorLength();
  // A side that has collapsed has no direction of its own, and takes it from the other one.
  wxPoint2DDouble const left = layout.down;
  if (IsXLine(record)) layout.down = framenote::Turned(layout.across, flipped ? -90.0 : 90.0);
  if (IsYLine(record)) layout.across = framenote::Turned(left, -90.0);
  return layout;
}

void AnnText::anchorText() {
  auto const record = currentRecord();
  if (!record) return;
  m_textPosition = record->m_topLeft;
  m_textAngle = GetRotationAngle();
}

void AnnText::CalculateTextPosition(bool afterResize) {
  if (!afterResize) {
    anchorText();
    return;
  }
  auto const record = currentRecord();
  if (!record) return;
  m_textPosition = IsReflected(*record) ? record->m_topRight : record->m_topLeft;
  m_textAngle = GetRememberedAngle() + (IsRotatedByReflection(*record) ? framenote::kPi : 0.0);
}

void AnnText::calculateTextArea(wxSize const &size, wxPoint &topLeft, wxPoint &topRight,
                                wxPoint &bottomRight, wxPoint &bottomLeft) const {
  auto const record = currentRecord();
  if (!record) {
    topLeft = topRight = bottomRight = bottomLeft = GetRounded(m_textPosition);
    return;
  }
  Layout const layout = layoutOf(*record);
  double const down =
      ShiftIn(layout.height, size.y, static_cast<int>(m_look.GetVerticalAlignment()));
  double const across =
      ShiftIn(layout.width, size.x, static_cast<int>(m_look.GetHorizontalAlignment()));
  topLeft = GetRounded(m_textPosition + Along(layout.down, down) + Along(layout.across, across));
  wxPoint2DDouble const corner(topLeft);
  wxPoint2DDouble const a = Along(layout.across, size.x);
  wxPoint2DDouble const d = Along(layout.down, size.y);
  topRight = GetRounded(corner + a);
  bottomRight = GetRounded(corner + a + d);
  bottomLeft = GetRounded(corner + d);
}

bool AnnText::IsOverText(wxPoint2DInt const &point, wxStockCursor &cursor) const {
  wxString const text = m_kindMode->IsEditing()
                            ? framenote::FirstLines(m_text, m_maxLines, m_maxLength)
                            : m_parsedText;
  wxPoint topLeft, topRight, bottomRight, bottomLeft;
  calculateTextArea(m_kindMode->MeasureText(text, font(), false), topLeft, topRight, bottomRight,
                    bottomLeft);
  if (!framenote::QuadrilateralContains(wxPoint(point.m_x, point.m_y), topLeft, topRight,
                                        bottomRight, bottomLeft)) {
    return false;
  }
  cursor = wxCURSOR_IBEAM;
  return true;
}

bool AnnText::Contains(wxPoint2DInt const &point) const {
  wxStockCursor ignored = wxCURSOR_NONE;
  return IsOverText(point, ignored) || boxContains(point);
}

wxRect AnnText::GetTextBoxPosition() const {
  wxString const text = framenote::FirstLines(m_text, m_maxLines, m_maxLength);
  wxSize const control = m_kindMode->MeasureTextCtrl(text, font());
  wxSize const inside = m_kindMode->MeasureText(text, font(), false);
  wxPoint topLeft, topRight, bottomRight, bottomLeft;
  calculateTextArea(control, topLeft, topRight, bottomRight, bottomLeft);
  // A multi-line control starts at its top, whatever the vertical alignment.
  double const share = static_cast<int>(m_look.GetVerticalAlignment()) * 0.5;
  int const drop = framenote::TruncateToInt(share * (control.y - inside.y));
  topLeft.y += drop;
  bottomRight.y += drop;
  wxPoint2DDouble const centre((topLeft + bottomRight) / 2);
  wxPoint2DDouble const arm = wxPoint2DDouble(topLeft) - centre;
  wxPoint2DDouble const unturned =
      centre + framenote::Turned(arm, -framenote::DegreesFromRadians(m_textAngle));
  return wxRect(GetRounded(unturned), control);
}

void AnnText::Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const {
  AnnShape::Draw(painter, offset);
  // The control shows the text that is being edited.
  if (!painter || (IsSelected() && m_kindMode->IsEditing())) return;
  auto const record = currentRecord();
  if (!record) return;
  Layout layout = layoutOf(*record);
  // Lines step along whole pixels where the sides give them a direction.
  if (!IsXLine(*record)) layout.down = Rounded(layout.down);
  if (!IsYLine(*record)) layout.across = Rounded(layout.across);
  drawLines(*painter, layout, framenote::PaintingOffset(painter, offset));
}

void AnnText::drawLines(IAnnPainter &painter, Layout const &layout,
                        wxPoint2DDouble const &offset) const {
  wxFont const font = this->font();
  double width = 0.0;
  double height = 0.0;
  double leading = 0.0;
  painter.GetTextExtent(m_parsedText + " ", font, width, height, leading);
  if (m_parsedTextLines.size() == 1) height += leading;
  double const above =
      ShiftIn(layout.height, height, static_cast<int>(m_look.GetVerticalAlignment()));
  double y = 0.0;
  for (wxString const &line : m_parsedTextLines) {
    painter.GetTextExtent(line.empty() ? wxString(" ") : line, font, width, height, leading);
    y += leading;
    double const before =
        ShiftIn(layout.width, width, static_cast<int>(m_look.GetHorizontalAlignment()));
    painter.DrawText(
        m_textPosition + offset + Along(layout.down, y + above) + Along(layout.across, before),
        -m_textAngle, line, font, m_look.GetFontColor());
    y += height;
  }
}
