// SPDX-License-Identifier: MIT
#include "talbase/layout_direction.h"

#include <wx/app.h>

namespace {

wxLayoutDirection g_direction = wxLayout_Default;

}  // namespace

bool TalHasRTLLayout() {
  if (g_direction != wxLayout_Default) return g_direction == wxLayout_RightToLeft;
  auto const *const app = dynamic_cast<wxApp const *>(wxAppConsole::GetInstance());
  return app != nullptr && app->GetLayoutDirection() == wxLayout_RightToLeft;
}

void TalSetLayoutDirection(wxLayoutDirection direction) {
  g_direction = direction;
}
