// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <wx/bitmap.h>
#include <wx/filename.h>

#include "modes/ann_image_tool_mode.h"
#include "support/tool_driver.h"
#include "talbase/json_value.h"

namespace framenote::test {

/// The picture that large documents are on.
inline constexpr int kLargeWidth = 1920;
inline constexpr int kLargeHeight = 1080;

/// A document of `count` objects of all seven kinds in turn, side by side, each in all frames. The
/// pasted pictures are the file at `picturePath`.
wxJSONValue DocumentOfManyObjects(int count, std::int64_t frameCount, wxString const &picturePath);

/// A document of one filled rectangle that is elsewhere in each of `runs` frames.
wxJSONValue DocumentOfManyRuns(int runs);

/// A tool with a large document, and what a user does with it: each operation leaves it as it was
/// found, but for the places of objects, and delivers the events.
class LargeDocument {
public:
  static LargeDocument OfObjects(int count, std::int64_t frameCount = 10);
  static LargeDocument OfRuns(int runs);
  LargeDocument(LargeDocument const &) = delete;
  LargeDocument &operator=(LargeDocument const &) = delete;
  ~LargeDocument();

  AnnotationTool &Tool() { return m_driver.Tool(); }
  ToolDriver &Driver() { return m_driver; }

  void Load();
  void Paint();
  /// Moves the pointer to where nothing is, past all objects, and back.
  void Point();
  /// Presses the mouse at the object at the back.
  void PressAtTheBack();
  /// Selects the object at the front and the one at the back, as a list does.
  void SelectEnds();
  void Drag();
  void ChangeLook();
  /// Deletes the object at the front and pastes it again.
  void DeleteAndPaste();
  /// To the next frame, and its picture.
  void StepFrame();
  /// The text of the document, as it is written to a file.
  void Save();
  /// One pass over the objects and their runs, as a measure of the rest.
  void Visit();

private:
  LargeDocument(wxString const &picturePath, wxJSONValue document, std::int64_t frameCount);
  void deliver();
  void select(std::size_t index);
  void run(AnnotationCommand command);

  wxString m_picturePath;
  wxJSONValue m_document;
  std::int64_t m_frameCount;
  std::int64_t m_frame = 0;
  int m_shift = 1;
  std::size_t m_savedSize = 0;
  int m_visited = 0;
  wxImage m_picture;
  wxBitmap m_canvas;
  ToolDriver m_driver;
};

}  // namespace framenote::test
