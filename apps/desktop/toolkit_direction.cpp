// SPDX-License-Identifier: MIT
#include "desktop/toolkit_direction.h"

#ifdef __WXGTK__

#include <dlfcn.h>

void SetToolkitDirection(wxLayoutDirection direction) {
  // Looked up, as GTK's headers are not among those that wxWidgets needs. The numbers are those of
  // its GtkTextDirection.
  constexpr int kLeftToRight = 1;
  constexpr int kRightToLeft = 2;
  using SetDirection = void (*)(int direction);
  auto const set =
      reinterpret_cast<SetDirection>(dlsym(RTLD_DEFAULT, "gtk_widget_set_default_direction"));
  if (set != nullptr) set(direction == wxLayout_RightToLeft ? kRightToLeft : kLeftToRight);
}

#elif defined(__WXOSX__)

// AppKit goes by the language in which the system runs the program, and by nothing that is set
// while it runs.
void SetToolkitDirection(wxLayoutDirection) {}

#else

// On Windows, wxWidgets mirrors windows and message boxes by the direction of the wxApp; the
// system's own dialogs are in the system's language and go by that.
void SetToolkitDirection(wxLayoutDirection) {}

#endif
