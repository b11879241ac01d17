// SPDX-License-Identifier: MIT
#include "painters/drawing_tools.h"

#include <algorithm>

#include "coordinates/pixel_geometry.h"

namespace framenote {
namespace {

wxPen MitredPen(wxColour const &colour, int thickness, wxPenCap cap) {
  wxPen pen(colour, thickness, wxPENSTYLE_SOLID);
  pen.SetJoin(wxJOIN_MITER);
  pen.SetCap(cap);
  return pen;
}

int VisibleWidth(int width) {
  return std::max(1, UsableThickness(width));
}

}  // namespace

bool IsVisible(wxColour const &colour) {
  return colour.IsOk() && colour.Alpha() != wxALPHA_TRANSPARENT;
}

wxPen NoPen() {
  return *wxTRANSPARENT_PEN;
}

wxBrush NoBrush() {
  return *wxTRANSPARENT_BRUSH;
}

wxBrush SolidBrush(wxColour const &colour) {
  return colour.IsOk() ? wxBrush(colour, wxBRUSHSTYLE_SOLID) : NoBrush();
}

wxPen LinePen(wxColour const &colour, int width) {
  return colour.IsOk() ? wxPen(colour, VisibleWidth(width), wxPENSTYLE_SOLID) : NoPen();
}

wxPen ArrowPen(wxColour const &colour, int thickness) {
  return colour.IsOk() ? MitredPen(colour, VisibleWidth(thickness), wxCAP_BUTT) : NoPen();
}

wxPen BorderPen(wxColour const &colour, int thickness) {
  int const width = UsableThickness(thickness);
  return colour.IsOk() && width > 0 ? MitredPen(colour, width, wxCAP_PROJECTING) : NoPen();
}

bool IsFilledByBorder(wxRect const &rect, int thickness) {
  int const width = UsableThickness(thickness);
  return width > 0 && (rect.width <= width || rect.height <= width);
}

wxRect BorderPath(wxRect const &rect, int thickness) {
  int const width = UsableThickness(thickness);
  return {rect.x + width / 2, rect.y + width / 2, rect.width - width, rect.height - width};
}

}  // namespace framenote
