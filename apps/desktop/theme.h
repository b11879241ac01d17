// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>

/// The colours that the desktop host's own windows add to those of the system, made from these, so
/// that they follow a light or a dark look. Asked for at each paint: the look may change.

/// `share` of `over` on `under`; opaque.
wxColour Mixed(wxColour const &under, wxColour const &over, double share);
/// The grey around a picture: darker than the windows, without a tint that would bend the judgement
/// of colours.
wxColour SurroundColour();
/// Black or white, whichever is read better on `background`.
wxColour ReadableOn(wxColour const &background);
