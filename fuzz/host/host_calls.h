// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "host/byte_reader.h"
#include "host/host_call_id.h"

namespace framenote::fuzz {

class HostSession;

/// A call of a host, and what reads its bytes.
struct HostCall {
  HostCallId id;
  char const *name;
  void (*run)(HostSession &session, ByteReader &bytes);
};

/// The call of a number; null if there is none.
HostCall const *FindCall(std::uint8_t id);

// The mouse. Places are two bytes; modifiers are bits: Shift, Control, Alt.
void CallMouse(HostSession &session, ByteReader &bytes);     ///< kind, x, y, modifiers
void CallDrag(HostSession &session, ByteReader &bytes);      ///< from, to, modifiers
void CallFarMouse(HostSession &session, ByteReader &bytes);  ///< kind, x, y out of tables
void CallSetView(HostSession &session, ByteReader &bytes);   ///< scale, offset out of tables
void CallSetTool(HostSession &session, ByteReader &bytes);   ///< mode, by number or by pointer

// The records of the modes. The last byte tells whether the mode applies it.
void CallSetShapeLook(HostSession &session, ByteReader &bytes);
void CallSetArrowLook(HostSession &session, ByteReader &bytes);
void CallSetPencilLook(HostSession &session, ByteReader &bytes);
void CallSetTextLook(HostSession &session, ByteReader &bytes);
void CallSetImageLook(HostSession &session, ByteReader &bytes);
void CallSetHideLook(HostSession &session, ByteReader &bytes);
void CallSetMagnifyLook(HostSession &session, ByteReader &bytes);
void CallSetPastedPicture(HostSession &session, ByteReader &bytes);  ///< file

// Frames and pictures
void CallGoToFrame(HostSession &session, ByteReader &bytes);        ///< frame, playing
void CallUpdateMediaInfo(HostSession &session, ByteReader &bytes);  ///< frame, count, playing
void CallSetImage(HostSession &session, ByteReader &bytes);         ///< width, height, caches
void CallDraw(HostSession &session, ByteReader &bytes);
void CallDrawOnlySelected(HostSession &session, ByteReader &bytes);
void CallDrawWithGraphics(HostSession &session, ByteReader &bytes);
void CallGetAnnotatedFrame(HostSession &session, ByteReader &bytes);  ///< width, height, frame
void CallSetVisible(HostSession &session, ByteReader &bytes);         ///< flag
void CallSetExtension(HostSession &session, ByteReader &bytes);       ///< colour

// Objects
void CallCommand(HostSession &session,
                 ByteReader &bytes);  ///< command, from AnnotationCommand::Copy
void CallSelectObject(HostSession &session, ByteReader &bytes);  ///< index
void CallMoveSelected(HostSession &session, ByteReader &bytes);  ///< x, y
void CallSetMacros(HostSession &session, ByteReader &bytes);     ///< key, value
void CallAddTextMacro(HostSession &session, ByteReader &bytes);  ///< text
void CallSetRange(HostSession &session, ByteReader &bytes);      ///< which end, frame, frame
void CallDeactivate(HostSession &session, ByteReader &bytes);    ///< with the panel
void CallEnableMouse(HostSession &session, ByteReader &bytes);   ///< flag
void CallClear(HostSession &session, ByteReader &bytes);         ///< annotations, or all
void CallGoToObject(HostSession &session, ByteReader &bytes);    ///< direction
void CallQuery(HostSession &session, ByteReader &bytes);         ///< frame

// Documents
void CallKeepDocument(HostSession &session, ByteReader &bytes);
void CallLoadDocument(HostSession &session, ByteReader &bytes);  ///< the kept one, or its own
void CallLoadForeign(HostSession &session, ByteReader &bytes);   ///< index
/// Its own with one value changed: five bytes choose the way to it, and its new value.
void CallLoadAltered(HostSession &session, ByteReader &bytes);
void CallCloneFrom(HostSession &session, ByteReader &bytes);  ///< whether there is a picture

}  // namespace framenote::fuzz
