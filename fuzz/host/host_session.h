// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/event.h>
#include <wx/geometry.h>
#include <wx/image.h>

#include "framenote/annotation_tool.h"
#include "talbase/json_value.h"

namespace framenote::fuzz {

/// Takes what the tool posts, and keeps what a host would show of it. Events arrive at once, as
/// nothing here runs an event loop.
class HostSink : public wxEvtHandler {
public:
  void QueueEvent(wxEvent *event) override;

  /// The document of the last event; null before the first.
  wxJSONValue const &Json() const { return m_json; }
  /// First and last frames of the objects, of the last event.
  std::vector<std::pair<std::int64_t, std::int64_t>> const &Ranges() const { return m_ranges; }

private:
  wxJSONValue m_json;
  std::vector<std::pair<std::int64_t, std::int64_t>> m_ranges;
};

/// A tool with the host's part of it: the view, the surface, the kept documents.
///
/// The header of an input makes it. First byte: bit 0 paints with the device-context painter, bit 1
/// burns in with it, bit 2 enables the extension. Second byte: the frame count, modulo 16.
class HostSession {
public:
  HostSession(std::uint8_t flags, std::uint8_t frames);
  HostSession(HostSession const &) = delete;
  HostSession &operator=(HostSession const &) = delete;
  ~HostSession();

  AnnotationTool &Tool() { return *m_tool; }
  AnnotationTool const &Tool() const { return *m_tool; }
  HostSink const &Sink() const { return m_sink; }
  wxMemoryDC &Surface() { return m_surface; }

  void SendMouse(wxEventType type, wxPoint const &place, int modifiers);
  void SetView(double scale, wxPoint2DDouble const &offset);
  double Scale() const { return m_scale; }
  wxPoint2DDouble const &Offset() const { return m_offset; }

  /// As a host does it: an index that the tool refuses changes nothing.
  void GoTo(AnnotationMediaInfo const &info);
  /// The tool's annotation value as the document that FromJSON reads.
  wxJSONValue Document() const;
  /// Loads a document; one that is `foreign` was not written by a tool as it stands.
  void Load(wxJSONValue const &document, bool foreign);

  /// The tool has loaded a document.
  void NoteLoaded(bool foreign);
  /// Keeps the document as it is now, and loads what was kept; before, nothing.
  void Keep();
  void LoadKept() { Load(m_kept, m_isKeptForeign); }
  std::int64_t FrameCount() const { return m_frameCount; }
  /// Whether all objects were made, or written, by a tool.
  bool HasOwnObjectsOnly() const { return !m_hasForeignObjects; }
  /// Whether frames have gone by that a playing host does not want in the document yet.
  bool IsPlaying() const { return m_isPlaying; }
  /// The host has asked for frames that the media does not have.
  void NoteOddRange() { m_hasForeignObjects = true; }

private:
  HostSink m_sink;  // outlives the tool
  std::shared_ptr<AnnotationTool> m_tool;
  wxBitmap m_bitmap;
  wxMemoryDC m_surface;
  std::int64_t m_frameCount;
  double m_scale = 1.0;
  wxPoint2DDouble m_offset;
  wxJSONValue m_kept{wxJSONTYPE_INVALID};
  bool m_isKeptForeign = false;
  bool m_hasForeignObjects = false;
  bool m_isPlaying = false;
};

/// A picture whose pixels differ. The same each time.
wxImage MakePicture(int width, int height);
/// The file of a picture to paste: 0 and 1 exist, 2 does not.
wxString PastedPicturePath(int index);

}  // namespace framenote::fuzz
