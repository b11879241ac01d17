// SPDX-License-Identifier: MIT
#include "talbase/style_manager.h"

#include <wx/settings.h>

wxColour StyleManager::GetBackgroundColor() const {
  return wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
}

wxColour StyleManager::GetForegroundColor() const {
  return wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
}
