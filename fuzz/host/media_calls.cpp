// SPDX-License-Identifier: MIT
// Positions, pictures and painting.
#include <algorithm>
#include <cstdint>
#include <limits>

#include "host/host_calls.h"
#include "host/host_session.h"
#include "modes/annotation_tool_mode.h"
#include "objects/annotation_object.h"
#include "painters/ann_painter.h"

namespace framenote::fuzz {

namespace {

/// Pixels of the largest frame that is burnt in here: a far object makes it up to the library's own
/// limit, which takes seconds.
constexpr std::int64_t kMaxPixels = std::int64_t{1} << 17;
constexpr int kMaxSide = 64;

bool IsQuick(wxSize const &size) {
  return std::int64_t{size.x} * size.y <= kMaxPixels;
}

/// Now and then of no size, which is an invalid picture.
wxImage ReadPicture(ByteReader &bytes) {
  int const width = bytes.Below(kMaxSide);
  int const height = bytes.Below(kMaxSide);
  return width > 0 && height > 0 ? MakePicture(width, height) : wxNullImage;
}

}  // namespace

void CallGoToFrame(HostSession &session, ByteReader &bytes) {
  std::int64_t const count = std::max<std::int64_t>(session.FrameCount(), 1);
  std::int64_t const frame = bytes.Byte() % count;
  session.GoTo({frame, count, bytes.Flag()});
  wxImage const picture = session.Tool().GetImage();
  if (picture.IsOk()) session.Tool().SetImage(picture, false);
  session.Tool().UpdateTextMacrosMap({});
}

void CallUpdateMediaInfo(HostSession &session, ByteReader &bytes) {
  static std::int64_t const frames[] = {0,
                                        1,
                                        2,
                                        3,
                                        5,
                                        9,
                                        15,
                                        19,
                                        -1,
                                        100,
                                        std::numeric_limits<std::int64_t>::max(),
                                        std::numeric_limits<std::int64_t>::min()};
  std::int64_t const frame = bytes.Pick(frames);
  std::int64_t const count = bytes.Below(24) - 1;
  session.GoTo({frame, count, bytes.Flag()});
}

void CallSetImage(HostSession &session, ByteReader &bytes) {
  wxImage const picture = ReadPicture(bytes);
  bool const refreshCaches = bytes.Flag();
  if (bytes.Flag() && picture.IsOk()) {
    session.Tool().SetImage(wxBitmap(picture), refreshCaches);
  } else {
    session.Tool().SetImage(picture, refreshCaches);
  }
}

void CallDraw(HostSession &session, ByteReader &) {
  session.Tool().Draw(session.Surface(), nullptr, session.Offset(), session.Scale());
}

void CallDrawOnlySelected(HostSession &session, ByteReader &) {
  session.Tool().DrawOnlySelected(session.Surface(), nullptr, session.Offset(), session.Scale());
}

// What Draw does on a window, on a surface in memory.
void CallDrawWithGraphics(HostSession &session, ByteReader &) {
  AnnotationTool &tool = session.Tool();
  wxPoint2DDouble const &offset = session.Offset();
  std::unique_ptr<IAnnPainter> painter = IAnnPainter::CreateAnnPainter(
      IAnnPainter::GraphicsContext, session.Surface(), &session.Surface(), session.Scale());
  for (IAnnotationObject const *object : tool.AnnotationObjects()) object->Draw(painter, offset);
  tool.GetActiveTool()->DrawPreview(painter, offset);
  painter->ResetScale();
  for (IAnnotationObject const *object : tool.AnnotationObjects()) {
    if (object->IsSelected()) object->DrawSelected(painter, offset, session.Scale());
    if (object->IsFocused()) object->DrawFocused(painter, offset, session.Scale());
  }
}

void CallGetAnnotatedFrame(HostSession &session, ByteReader &bytes) {
  AnnotationTool &tool = session.Tool();
  wxImage const picture = ReadPicture(bytes);
  std::int64_t const frame = bytes.Below(20);
  if (!IsQuick(tool.GetAnnotationArea().GetSize())) return;
  AnnotationMediaInfo info = tool.GetMediaInfo();
  info.frameIndex = frame;
  tool.GetAnnotatedFrame(picture, info, {{"%F%", wxString::Format("%d", static_cast<int>(frame))}});
}

void CallSetVisible(HostSession &session, ByteReader &bytes) {
  session.Tool().SetObjectsVisible(!bytes.Flag());
}

void CallSetExtension(HostSession &session, ByteReader &bytes) {
  static wxColour const colours[] = {wxNullColour, wxColour(255, 255, 255), wxColour(9, 8, 7, 6)};
  session.Tool().SetExtensionColour(bytes.Pick(colours));
}

}  // namespace framenote::fuzz
