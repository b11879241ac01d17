// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include <wx/bitmap.h>
#include <wx/image.h>

#include "talbase/json_value.h"

class AnnotationTool;

namespace framenote::fuzz {

/// What happens to a document: it is read, painted as on a screen, burnt in, and written. What the
/// trial needs is made once, as many documents a second pass through it.
class DocumentTrial {
public:
  DocumentTrial();
  DocumentTrial(DocumentTrial const &) = delete;
  DocumentTrial &operator=(DocumentTrial const &) = delete;
  ~DocumentTrial();

  /// Ends the process if the document shows a defect.
  void Run(std::string_view text);

private:
  void load(AnnotationTool &tool, wxJSONValue const &document) const;
  void paint(AnnotationTool &tool);
  void burnIn(AnnotationTool &tool, std::int64_t frame) const;

  wxImage m_picture;
  wxBitmap m_screen;
  std::shared_ptr<AnnotationTool> m_reader;  ///< burns in with the graphics context
  std::shared_ptr<AnnotationTool> m_second;  ///< reads what the other wrote, burns in with the DC
};

}  // namespace framenote::fuzz
