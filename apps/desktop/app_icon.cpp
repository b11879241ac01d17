// SPDX-License-Identifier: MIT
#include "desktop/app_icon.h"

#include <wx/bmpbndl.h>

wxIconBundle AppIcons() {
  wxIconBundle icons;
  for (int const pixels : {16, 24, 32, 48, 64, 128}) {
    wxSize const size(pixels, pixels);
    icons.AddIcon(wxBitmapBundle::FromSVG(kAppIconSvg, size).GetIcon(size));
  }
  return icons;
}
