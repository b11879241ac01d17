// SPDX-License-Identifier: MIT
#include "host/host_session.h"

#include <cstdlib>
#include <stdexcept>

#include <wx/filename.h>
#include <wx/utils.h>

#include "framenote/annotation_events.h"

namespace framenote::fuzz {

namespace {

constexpr int kSurfaceWidth = 96;
constexpr int kSurfaceHeight = 64;
constexpr int kMaxFrames = 16;

AnnotationToolConfig ConfigOf(std::uint8_t flags) {
  return {(flags & 1) != 0, (flags & 2) != 0, true, true, (flags & 4) != 0, {}};
}

/// Other processes may write the same file: each writes its own, and one of them stays.
void WritePicture(wxString const &path, wxImage const &picture) {
  wxString const own = path + wxString::Format(".%lu", wxGetProcessId());
  picture.SaveFile(own, wxBITMAP_TYPE_PNG);
  wxRenameFile(own, path, true);
}

}  // namespace

void HostSink::QueueEvent(wxEvent *event) {
  std::unique_ptr<wxEvent> const owned(event);
  if (auto const *changed = dynamic_cast<AnnotationJsonChangedEvent const *>(event)) {
    m_json = changed->Json();
  } else if (auto const *ranges = dynamic_cast<AnnotationFrameRangeChangedEvent const *>(event)) {
    m_ranges.clear();
    for (auto const &[first, last, colour] : ranges->FrameRanges())
      m_ranges.emplace_back(first, last);
  }
}

HostSession::HostSession(std::uint8_t flags, std::uint8_t frames)
    : m_tool(std::make_shared<AnnotationTool>(ConfigOf(flags))),
      m_bitmap(kSurfaceWidth, kSurfaceHeight),
      m_surface(m_bitmap),
      m_frameCount(frames % kMaxFrames) {
  m_tool->InitGui(nullptr, &m_sink, m_tool);
  GoTo({0, m_frameCount, false});
}

HostSession::~HostSession() {
  m_surface.SelectObject(wxNullBitmap);
}

void HostSession::SendMouse(wxEventType type, wxPoint const &place, int modifiers) {
  wxMouseEvent event(type);
  event.SetShiftDown((modifiers & 1) != 0);
  event.SetControlDown((modifiers & 2) != 0);
  event.SetAltDown((modifiers & 4) != 0);
  m_tool->ProcessMouseEvent(place, event, m_scale, m_offset);
}

void HostSession::SetView(double scale, wxPoint2DDouble const &offset) {
  m_scale = scale;
  m_offset = offset;
}

void HostSession::GoTo(AnnotationMediaInfo const &info) {
  try {
    m_tool->UpdateMediaInfo(info);
    m_isPlaying = info.isPlaying;
  } catch (std::runtime_error const &) {
    // What the tool throws for a frame that the media does not have.
    return;
  }
}

wxJSONValue HostSession::Document() const {
  wxJSONValue annotate(wxJSONTYPE_OBJECT);
  m_tool->ToJSON(annotate);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set(AnnotationJsonChangedEvent::m_annotateKey, std::move(annotate));
  return document;
}

void HostSession::Keep() {
  m_kept = Document();
  m_isKeptForeign = m_hasForeignObjects;
}

void HostSession::Load(wxJSONValue const &document, bool foreign) {
  m_tool->FromJSON(document, m_frameCount);
  NoteLoaded(foreign);
}

void HostSession::NoteLoaded(bool foreign) {
  m_hasForeignObjects = foreign;
  m_isPlaying = false;
}

wxImage MakePicture(int width, int height) {
  wxImage picture(width, height, false);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      picture.SetRGB(x, y, static_cast<unsigned char>(x * 5), static_cast<unsigned char>(y * 7),
                     static_cast<unsigned char>(x * y));
    }
  }
  return picture;
}

wxString PastedPicturePath(int index) {
  static wxString const folder = wxFileName::GetTempDir() + "/framenote_fuzz_host_";
  static bool const isWritten = [] {
    WritePicture(folder + "0.png", MakePicture(12, 8));
    WritePicture(folder + "1.png", MakePicture(1, 5));
    return true;
  }();
  return isWritten ? folder + wxString::Format("%d.png", index) : wxString();
}

}  // namespace framenote::fuzz
