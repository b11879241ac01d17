// SPDX-License-Identifier: MIT
#include "desktop/toolkit_options.h"

#include <wx/defs.h>

#ifdef __WXGTK__

// GTK 3 tells them only by starting, which wxWidgets wants to do itself.
std::vector<CommandOptionText> ToolkitOptions() {
  return {{"--class", "CLASS", nullptr},
          {"--display", "DISPLAY", nullptr},
          {"--g-fatal-warnings", nullptr, nullptr},
          {"--gdk-debug", "FLAGS", nullptr},
          {"--gdk-no-debug", "FLAGS", nullptr},
          {"--gtk-debug", "FLAGS", nullptr},
          {"--gtk-module", "MODULES", nullptr},
          {"--gtk-no-debug", "FLAGS", nullptr},
          {"--name", "NAME", nullptr}};
}

#else

std::vector<CommandOptionText> ToolkitOptions() {
  return {};
}

#endif
