// SPDX-License-Identifier: MIT
#include "desktop/toolkit_direction.h"

#ifdef __WXGTK__
#include <dlfcn.h>
#endif

void SetToolkitDirection([[maybe_unused]] wxLayoutDirection direction) {
#ifdef __WXGTK__
  // Looked up, as GTK's headers are not among those that wxWidgets needs. The numbers are those of
  // its GtkTextDirection.
  constexpr int kLeftToRight = 1;
  constexpr int kRightToLeft = 2;
  using SetDirection = void (*)(int direction);
  auto const set =
      reinterpret_cast<SetDirection>(dlsym(RTLD_DEFAULT, "gtk_widget_set_default_direction"));
  if (set != nullptr) set(direction == wxLayout_RightToLeft ? kRightToLeft : kLeftToRight);
#endif
}
