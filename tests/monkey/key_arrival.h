// SPDX-License-Identifier: MIT
#pragma once

#include <wx/defs.h>
#include <wx/event.h>
#include <wx/eventfilter.h>

namespace framenote::test {

/// Sees a key that means nothing to the program. The toolkit keeps the order of what comes from the
/// X server, so when that key is there, all that was sent before it is, too.
class KeyArrival : public wxEventFilter {
public:
  static constexpr int kKey = WXK_F12;

  KeyArrival() { wxEvtHandler::AddFilter(this); }
  KeyArrival(KeyArrival const &) = delete;
  KeyArrival &operator=(KeyArrival const &) = delete;
  ~KeyArrival() override { wxEvtHandler::RemoveFilter(this); }

  void Expect() { m_isThere = false; }
  bool IsThere() const { return m_isThere; }

private:
  int FilterEvent(wxEvent &event) override;

  bool m_isThere = false;
};

}  // namespace framenote::test
