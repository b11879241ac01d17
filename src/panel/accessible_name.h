// SPDX-License-Identifier: MIT
#pragma once

#include <wx/string.h>

#include "framenote/export.h"

class wxWindow;

namespace framenote {

/// Gives a control, and what it is made of, the name of its row for screen readers; a part with a
/// text of its own is called by both. For hosts too. REQUIRES: the control is created.
FRAMENOTE_API void NameForScreenReaders(wxWindow &control, wxString const &name);

}  // namespace framenote
