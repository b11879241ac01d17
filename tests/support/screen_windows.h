// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include <wx/gdicmn.h>

namespace framenote::test {

/// The windows that the X server shows at one moment, dialogs and popups that the toolkit makes
/// itself included.
class ScreenWindows {
public:
  ScreenWindows();
  /// Where a window is that was not shown then; empty if there is none.
  wxRect NewOne() const;
  /// That window's identifier at the X server; 0 if there is none.
  unsigned long NewId() const;

private:
  std::set<unsigned long> m_shown;
};

}  // namespace framenote::test
