// SPDX-License-Identifier: MIT
// The selected object, the commands of the menu, and the texts.
#include <cstdint>
#include <iterator>
#include <limits>

#include "host/host_calls.h"
#include "host/host_session.h"
#include "objects/annotation_object.h"

namespace framenote::fuzz {

namespace {

char const *const kTexts[] = {"a", "%F%", "two\nlines", "", "%F%%T%%F%", "\xC3\xA9", " "};

/// Frames of the media; the greatest bytes are frames that it does not have.
std::int64_t ReadFrame(HostSession &session, ByteReader &bytes) {
  static std::int64_t const odd[] = {-1, 1000, std::numeric_limits<std::int64_t>::max(),
                                     std::numeric_limits<std::int64_t>::min()};
  constexpr int kOdd = 0xF0;
  int const byte = bytes.Byte();
  if (byte < kOdd) {
    std::int64_t const count = session.Tool().GetMediaInfo().frameCount;
    return count > 0 ? byte % count : 0;
  }
  session.NoteOddRange();
  return odd[byte % static_cast<int>(std::size(odd))];
}

}  // namespace

void CallCommand(HostSession &session, ByteReader &bytes) {
  // One below the first to one above the last.
  int const id = static_cast<int>(AnnotationCommand::Copy) - 1 + bytes.Below(18);
  wxCommandEvent event(wxEVT_MENU, id);
  session.Tool().onPopupClick(event);
}

void CallSelectObject(HostSession &session, ByteReader &bytes) {
  session.Tool().SelectObject(bytes.Byte());
}

void CallMoveSelected(HostSession &session, ByteReader &bytes) {
  int const x = bytes.Coordinate();
  session.Tool().MoveSelected({x, bytes.Coordinate()});
}

void CallSetMacros(HostSession &session, ByteReader &bytes) {
  wxString const key = wxString::FromUTF8(bytes.Pick(kTexts));
  session.Tool().UpdateTextMacrosMap({{key, wxString::FromUTF8(bytes.Pick(kTexts))}});
}

void CallAddTextMacro(HostSession &session, ByteReader &bytes) {
  session.Tool().AddTextMacro(wxString::FromUTF8(bytes.Pick(kTexts)));
}

void CallSetRange(HostSession &session, ByteReader &bytes) {
  AnnotationTool &tool = session.Tool();
  int const which = bytes.Below(3);
  std::int64_t const frame = ReadFrame(session, bytes);
  if (which == 0) {
    tool.SetSelectedsAnnotationStart(frame);
  } else if (which == 1) {
    tool.SetSelectedsAnnotationEnd(frame);
  } else {
    tool.SetSelectedsAnnotationFromFrame(frame, ReadFrame(session, bytes));
  }
}

void CallDeactivate(HostSession &session, ByteReader &bytes) {
  if (bytes.Flag()) {
    session.Tool().DeactivateToolAndControls();
  } else {
    session.Tool().Deactivate();
  }
}

void CallEnableMouse(HostSession &session, ByteReader &bytes) {
  session.Tool().EnableMouse(!bytes.Flag());
}

void CallClear(HostSession &session, ByteReader &bytes) {
  if (bytes.Flag()) {
    session.Tool().Reset(false);
  } else {
    session.Tool().ClearAllAnnotations();
  }
}

void CallGoToObject(HostSession &session, ByteReader &bytes) {
  session.Tool().GoToObject(bytes.Flag() ? GoToObjectDirection::Next
                                         : GoToObjectDirection::Previous);
}

void CallQuery(HostSession &session, ByteReader &bytes) {
  AnnotationTool &tool = session.Tool();
  tool.HasAnnotation(bytes.Byte());
  tool.GetAnnotationArea();
  tool.PopupMenuByKey();
  tool.Refresh();
  for (IAnnotationObject *object : tool.AnnotationObjects()) {
    object->GetContainingRect();
    object->GetDominantColor();
  }
}

}  // namespace framenote::fuzz
