// SPDX-License-Identifier: MIT
#include "desktop/scroll_bar.h"

#include <wx/event.h>
#include <wx/window.h>

namespace {

/// Below this a side has no room for a bar and what it scrolls; GTK complains there.
constexpr int kLeastSide = 72;

}  // namespace

void ShowScrollBars(wxWindow &window, ScrollBar const &across, ScrollBar const &down) {
  wxSize const least = window.FromDIP(wxSize(kLeastSide, kLeastSide));
  wxSize const size = window.GetSize();
  bool const hasRoom = size.x >= least.x && size.y >= least.y;
  window.SetScrollbar(wxHORIZONTAL, across.position, across.page,
                      hasRoom ? across.range : across.page);
  window.SetScrollbar(wxVERTICAL, down.position, down.page, hasRoom ? down.range : down.page);
}

int WantedPosition(wxScrollWinEvent const &event, ScrollBar const &bar, int line) {
  wxEventType const type = event.GetEventType();
  if (type == wxEVT_SCROLLWIN_TOP) return 0;
  if (type == wxEVT_SCROLLWIN_BOTTOM) return bar.range;
  if (type == wxEVT_SCROLLWIN_LINEUP) return bar.position - line;
  if (type == wxEVT_SCROLLWIN_LINEDOWN) return bar.position + line;
  if (type == wxEVT_SCROLLWIN_PAGEUP) return bar.position - bar.page;
  if (type == wxEVT_SCROLLWIN_PAGEDOWN) return bar.position + bar.page;
  return event.GetPosition();
}

void BindScrolling(wxWindow &window, std::function<void(wxScrollWinEvent const &)> const &handler) {
  for (auto const &type :
       {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
        wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
        wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
    window.Bind(type, [handler](wxScrollWinEvent &event) { handler(event); });
  }
}
