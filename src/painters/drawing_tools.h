// SPDX-License-Identifier: MIT
#pragma once

#include <wx/brush.h>
#include <wx/gdicmn.h>
#include <wx/pen.h>

#include "framenote/export.h"

/// The pens and brushes of both back-ends, and the placing of borders. A colour that is not Ok
/// gives a tool that paints nothing.
namespace framenote {

/// Whether what is painted in the colour can be seen: a null colour counts as transparent.
FRAMENOTE_API bool IsVisible(wxColour const &colour);

FRAMENOTE_API wxPen NoPen();                               ///< Paints no line.
FRAMENOTE_API wxBrush NoBrush();                           ///< Paints no fill.
FRAMENOTE_API wxBrush SolidBrush(wxColour const &colour);  ///< A fill of one colour.

/// For lines, with round joins and caps. A line is there to be seen: at least 1 wide.
FRAMENOTE_API wxPen LinePen(wxColour const &colour, int width);
/// For the body of an arrow: mitred joins, cut-off caps, at least 1 wide.
FRAMENOTE_API wxPen ArrowPen(wxColour const &colour, int thickness);
/// For borders: mitred joins, projecting caps. No border for a thickness of 0 or less.
FRAMENOTE_API wxPen BorderPen(wxColour const &colour, int thickness);

/// Whether a border inside `rect` leaves no room for a line along its middle.
FRAMENOTE_API bool IsFilledByBorder(wxRect const &rect, int thickness);
/// The path of a border inside `rect`. An odd thickness insets by the smaller half at the top and
/// left and by the larger half at the bottom and right.
FRAMENOTE_API wxRect BorderPath(wxRect const &rect, int thickness);

}  // namespace framenote
