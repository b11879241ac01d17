// SPDX-License-Identifier: MIT
#include "desktop/toolkit_settings.h"

#ifdef __WXGTK3__

#include <gtk/gtk.h>

void SetToolkitDirection(wxLayoutDirection direction) {
  bool const isMirrored = direction == wxLayout_RightToLeft;
  gtk_widget_set_default_direction(isMirrored ? GTK_TEXT_DIR_RTL : GTK_TEXT_DIR_LTR);
}

void KeepScrollBarsBeside() {
  // Bars that appear over a window have a defect besides: GTK complains when they are set while the
  // window is off the screen, as a pane is that is taken out of the frame.
  g_object_set(gtk_settings_get_default(), "gtk-overlay-scrolling", FALSE, nullptr);
}

#else

// On Windows, wxWidgets mirrors windows and message boxes by the direction of the wxApp; the
// system's own dialogs are in the system's language and go by that. AppKit goes by the language in
// which the system runs the program, and by nothing that is set while it runs.
void SetToolkitDirection(wxLayoutDirection) {}

// Windows has no others, and on macOS wxWidgets tells sizes by the bars as they are.
void KeepScrollBarsBeside() {}

#endif
