// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>
#include <wx/image.h>

namespace framenote::test {

/// What the X server shows in `area` of the screen; an invalid image if it cannot be had. Straight
/// from the server: the toolkit's screen DC keeps what it has once read.
wxImage CaptureScreen(wxRect const &area);

}  // namespace framenote::test
