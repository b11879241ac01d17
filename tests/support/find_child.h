// SPDX-License-Identifier: MIT
#pragma once

#include <wx/window.h>

namespace framenote::test {

/// The first window of a class below another one, in the order of their making; null if there is
/// none.
template <class Window>
Window *FindChild(wxWindow &parent) {
  for (wxWindow *const child : parent.GetChildren()) {
    if (auto *const found = dynamic_cast<Window *>(child)) return found;
    if (auto *const found = FindChild<Window>(*child)) return found;
  }
  return nullptr;
}

}  // namespace framenote::test
