// SPDX-License-Identifier: MIT
// Writes the seeds of the host fuzzer: what a user and a host do, as the bytes that mean it.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "host/byte_reader.h"
#include "host/host_call_id.h"

namespace {

using namespace framenote::fuzz;

// As the functions of the calls read them.
enum Mouse : std::uint8_t { kMotion = 0, kPress = 1, kRelease = 2, kRightRelease = 3 };
enum Tool : std::uint8_t {
  kIdle = 1,
  kShape = 2,
  kArrow = 3,
  kPencil = 4,
  kText = 5,
  kImage = 6,
  kHide = 7,
  kMagnify = 8
};
// One more than the distance from AnnotationCommand::Copy.
enum Command : std::uint8_t {
  kCopy = 1,
  kPaste = 2,
  kDelete = 3,
  kBringToFront = 4,
  kSendBackward = 7,
  kReset = 8,
  kFit = 9,
  kOnlyThisFrame = 11,
  kFromThisFrame = 12,
  kUntilThisFrame = 13,
  kAllFrames = 14
};
enum Header : std::uint8_t { kDeviceContext = 1, kRenderDeviceContext = 2, kExtension = 4 };

std::uint8_t Place(int coordinate) {
  return static_cast<std::uint8_t>(coordinate + ByteReader::kMargin);
}

/// An input under construction. Places are picture pixels; the picture has 48 by 40.
class Recording {
public:
  Recording(std::uint8_t flags, std::uint8_t frames) : m_bytes{flags, frames} {}

  Recording &Call(HostCallId id, std::initializer_list<std::uint8_t> arguments = {}) {
    std::size_t const end = m_bytes.size() + kCallSize;
    m_bytes.push_back(static_cast<std::uint8_t>(id));
    m_bytes.insert(m_bytes.end(), arguments);
    m_bytes.resize(end);
    return *this;
  }
  Recording &Picture() { return Call(HostCallId::SetImage, {48, 40, 1}); }
  Recording &Drag(int x0, int y0, int x1, int y1, std::uint8_t modifiers = 0) {
    return Call(HostCallId::Drag, {Place(x0), Place(y0), Place(x1), Place(y1), modifiers});
  }
  Recording &To(Mouse kind, int x, int y) {
    return Call(HostCallId::Mouse, {kind, Place(x), Place(y)});
  }
  Recording &DrawNew(Tool tool) {
    Call(HostCallId::SetTool, {tool});
    return Drag(4, 4, 36, 28);
  }
  Recording &Click(int x, int y) { return To(kMotion, x, y).To(kPress, x, y).To(kRelease, x, y); }
  Recording &Do(Command command) { return Call(HostCallId::Command, {command}); }
  Recording &Paint() {
    return Call(HostCallId::Draw)
        .Call(HostCallId::DrawOnlySelected)
        .Call(HostCallId::DrawWithGraphics);
  }
  Recording &GoTo(std::uint8_t frame, bool isPlaying = false) {
    return Call(HostCallId::GoToFrame, {frame, static_cast<std::uint8_t>(isPlaying ? 1 : 0)});
  }

  std::vector<std::uint8_t> const &Bytes() const { return m_bytes; }

private:
  std::vector<std::uint8_t> m_bytes;
};

/// Draws an object, moves it, resizes it, turns it, copies and pastes it.
Recording EditedObject(Tool tool) {
  Recording seed(kDeviceContext | kExtension, 10);
  seed.Picture().Call(HostCallId::SetPastedPicture, {0}).Call(HostCallId::SetImageLook, {0, 1});
  seed.DrawNew(tool).Paint();
  if (tool == kText) seed.Call(HostCallId::AddTextMacro, {1});
  seed.Do(kAllFrames).GoTo(3);
  seed.Drag(20, 16, 26, 20).Call(HostCallId::MoveSelected, {Place(1), Place(-1)});
  seed.GoTo(6).Drag(36, 28, 44, 38).Paint();
  seed.Do(kCopy).To(kMotion, 60, 50).Do(kPaste).Do(kSendBackward).Paint();
  seed.Call(HostCallId::GetAnnotatedFrame, {48, 40, 6});
  return seed.To(kMotion, 90, 60).Do(kDelete);
}

Recording LoadInMidDrag() {
  Recording seed(kDeviceContext, 5);
  seed.Picture().DrawNew(kShape).Call(HostCallId::KeepDocument);
  seed.Click(4, 16).To(kPress, 4, 16).To(kMotion, 10, 20);
  seed.Call(HostCallId::LoadDocument, {1}).To(kMotion, 12, 22).To(kRelease, 12, 22);
  seed.Click(4, 16).To(kPress, 4, 16).To(kMotion, 9, 19).Call(HostCallId::LoadDocument, {0});
  return seed.To(kRelease, 9, 19).Paint();
}

Recording PlayWhileMoving() {
  Recording seed(kRenderDeviceContext, 12);
  seed.Picture().DrawNew(kHide).Do(kFromThisFrame).To(kMotion, 20, 16).To(kPress, 20, 16);
  for (std::uint8_t frame = 1; frame < 8; ++frame) {
    seed.GoTo(frame, true).To(kMotion, 20 + frame, 16);
  }
  seed.To(kRelease, 30, 16).GoTo(7).GoTo(0).Do(kUntilThisFrame);
  return seed.Call(HostCallId::CloneFrom, {1}).Paint();
}

Recording Orders() {
  Recording seed(kDeviceContext | kRenderDeviceContext, 4);
  seed.Picture().DrawNew(kShape).DrawNew(kArrow).DrawNew(kMagnify);
  seed.Call(HostCallId::SelectObject, {2}).Do(kBringToFront).Do(kSendBackward).Paint();
  seed.Call(HostCallId::SetRange, {2, 1, 3}).Do(kOnlyThisFrame);
  seed.Call(HostCallId::SetVisible, {1}).Call(HostCallId::SetVisible, {0});
  return seed.Call(HostCallId::Deactivate, {0}).Call(HostCallId::Clear, {0});
}

Recording Views() {
  Recording seed(kDeviceContext, 1);
  seed.Picture();
  for (std::uint8_t i = 0; i < 16; ++i) {
    seed.Call(HostCallId::SetView, {i, i, static_cast<std::uint8_t>(15 - i)});
    seed.DrawNew(i % 2 == 0 ? kShape : kPencil).To(kRightRelease, 20, 16).Paint();
  }
  return seed;
}

Recording ForeignDocuments() {
  Recording seed(kExtension, 8);
  seed.Picture();
  for (std::uint8_t i = 0; i < 10; ++i) {
    seed.Call(HostCallId::LoadForeign, {i}).Click(20, 16).GoTo(2).Paint();
  }
  seed.DrawNew(kHide).Call(HostCallId::LoadAltered, {1, 0, 0, 0});
  return seed.Paint();
}

Recording PastedLens() {
  Recording seed(kDeviceContext, 6);
  seed.Picture().DrawNew(kMagnify).Call(HostCallId::SetMagnifyLook, {130, 2, 1, 0, 1});
  seed.Drag(20, 16, 30, 24).Do(kReset).Do(kFit).Do(kCopy).GoTo(4).Do(kPaste).Do(kAllFrames);
  return seed.Call(HostCallId::SetImage, {5, 3, 0}).Call(HostCallId::SetImage, {0, 0, 0}).Paint();
}

bool Write(std::filesystem::path const &path, Recording const &recording) {
  std::vector<std::uint8_t> const &bytes = recording.Bytes();
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<char const *>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  file.close();
  return file.good();
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
    return 2;
  }
  std::pair<char const *, Recording> const seeds[] = {{"edited_shape", EditedObject(kShape)},
                                                      {"edited_arrow", EditedObject(kArrow)},
                                                      {"edited_pencil", EditedObject(kPencil)},
                                                      {"edited_text", EditedObject(kText)},
                                                      {"edited_image", EditedObject(kImage)},
                                                      {"edited_hide", EditedObject(kHide)},
                                                      {"edited_magnify", EditedObject(kMagnify)},
                                                      {"load_in_mid_drag", LoadInMidDrag()},
                                                      {"play_while_moving", PlayWhileMoving()},
                                                      {"orders", Orders()},
                                                      {"views", Views()},
                                                      {"foreign_documents", ForeignDocuments()},
                                                      {"pasted_lens", PastedLens()}};
  for (auto const &[name, recording] : seeds) {
    if (Write(std::filesystem::path(argv[1]) / name, recording)) continue;
    std::fprintf(stderr, "%s cannot be written\n", name);
    return 1;
  }
  return 0;
}
