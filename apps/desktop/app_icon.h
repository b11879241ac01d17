// SPDX-License-Identifier: MIT
#pragma once

#include <wx/iconbndl.h>

/// The program's icon as an SVG document; compiled in from the file that is installed.
extern char const *const kAppIconSvg;

/// The program's icon in the sizes that desktops show beside windows.
wxIconBundle AppIcons();
