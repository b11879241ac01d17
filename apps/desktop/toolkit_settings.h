// SPDX-License-Identifier: MIT
#pragma once

#include <wx/intl.h>

/// What the toolkit beneath wxWidgets is told, which wxWidgets has no call for. To be called before
/// windows are made; each does nothing where the toolkit has no such setting.

/// In which direction the interface runs. The toolkit goes by the locale otherwise, in what it
/// makes by itself: message boxes, file dialogs, the inside of lists.
void SetToolkitDirection(wxLayoutDirection direction);
/// Scroll bars stand beside what they scroll, all the time. The toolkit otherwise lets them appear
/// over it where the pointer moves, although wxWidgets tells a size without them: they would hide
/// the edge of a picture, and take the mouse there.
void KeepScrollBarsBeside();
