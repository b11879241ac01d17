// SPDX-License-Identifier: MIT
#pragma once

#include <wx/intl.h>

/// Tells the toolkit beneath wxWidgets in which direction the interface runs. It goes by the locale
/// otherwise, in what it makes by itself: message boxes, file dialogs, the inside of lists. To be
/// called before windows are made; does nothing where the toolkit has no such setting.
void SetToolkitDirection(wxLayoutDirection direction);
