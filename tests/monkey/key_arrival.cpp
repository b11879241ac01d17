// SPDX-License-Identifier: MIT
#include "monkey/key_arrival.h"

namespace framenote::test {

int KeyArrival::FilterEvent(wxEvent &event) {
  bool const isKey = event.GetEventType() == wxEVT_KEY_UP;
  if (isKey && static_cast<wxKeyEvent const &>(event).GetKeyCode() == kKey) m_isThere = true;
  return Event_Skip;
}

}  // namespace framenote::test
