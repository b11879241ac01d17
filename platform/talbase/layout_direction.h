// SPDX-License-Identifier: MIT
#pragma once

#include <wx/intl.h>

#include "framenote/export.h"

/// Whether the interface is mirrored, for languages written from right to left.
FRAMENOTE_API bool TalHasRTLLayout();
/// Says in which direction the interface runs: that of the catalogue's language, which the locale
/// need not tell. wxLayout_Default asks the running application; without one it is left to right.
/// Called on the GUI thread, before other threads ask.
FRAMENOTE_API void TalSetLayoutDirection(wxLayoutDirection direction);
