// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>

#include <wx/bitmap.h>
#include <wx/filename.h>
#include <wx/frame.h>

#include "framenote/annotation_tool.h"

namespace framenote::test {

/// Someone who edits for hours: draws objects of all kinds, changes and deletes them, so that
/// their number stays about the same. The same edits each time.
class RandomUser {
public:
  enum class Edit {
    Draw,
    Move,
    Drag,
    Turn,
    Look,
    Type,
    Range,
    Order,
    Duplicate,
    Delete,
    Frame,
    Paint
  };
  static constexpr std::size_t kEdits = 12;

  /// `objects` is the number to keep. The tool has a picture of 400 by 300 or more.
  RandomUser(AnnotationTool &tool, std::int64_t frameCount, std::size_t objects);
  RandomUser(RandomUser const &) = delete;
  RandomUser &operator=(RandomUser const &) = delete;
  ~RandomUser();

  /// One edit; pending events are the caller's.
  void Act();
  /// Draws or deletes until there are as many objects as are kept, and selects none.
  void Settle();
  /// Goes to a frame, where the caller does more for that than the tool's UpdateMediaInfo.
  void OnFrameWanted(std::function<void(std::int64_t)> handler) { m_goTo = std::move(handler); }
  /// How often an edit has changed something.
  int Count(Edit edit) const { return m_counts[static_cast<std::size_t>(edit)]; }

private:
  int below(int limit);
  wxPoint somewhere();
  void mouse(wxEventType type, wxPoint const &at);
  void drag(wxPoint const &from, wxPoint const &to);
  /// The point where the selected object is held.
  wxPoint held() const;
  void run(AnnotationCommand command);
  bool selectSome();
  bool perform(Edit edit);
  bool draw();
  bool move();
  bool dragSelected();
  bool turn();
  bool changeLook();
  bool type();
  bool changeRange();
  bool changeOrder();
  bool duplicate();
  bool remove();
  bool stepFrame();
  bool paint();

  AnnotationTool &m_tool;
  std::int64_t m_frameCount;
  std::size_t m_objects;
  wxString m_picturePath;
  wxFrame *m_window;  // destroyed by this user
  wxBitmap m_canvas;
  std::mt19937 m_random{1};
  std::function<void(std::int64_t)> m_goTo;
  std::array<int, kEdits> m_counts{};
};

}  // namespace framenote::test
