// SPDX-License-Identifier: MIT
#pragma once

#include <wx/geometry.h>

class wxColour;
class wxFont;
class wxGraphicsContext;
class wxString;

namespace framenote {

/// Paints text whose letters are so high that the graphics library should not keep them: with GTK
/// it keeps each letter as pixels, up to some 16,000 of them for as long as the process lives, and
/// documents of strangers may bring as many, a megabyte each. Such letters are filled by their
/// outlines; those in colours of their own, which have no outlines, are painted small and enlarged.
///
/// Returns false, with nothing painted, where the text is no such text, and where the graphics
/// library keeps no letters: it is to be painted as usual then. `topLeft` is in the coordinates of
/// the context, `angle` in radians, counter-clockwise. REQUIRES: a font and a colour that are Ok.
bool DrawLargeLetters(wxGraphicsContext &context, wxString const &text,
                      wxPoint2DDouble const &topLeft, double angle, wxFont const &font,
                      wxColour const &colour);

}  // namespace framenote
