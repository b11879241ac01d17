// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include "framenote/annotation_tool.h"
#include "media/media_source.h"

/// How annotations are painted into pictures.
struct BurnLook {
  bool withDeviceContext = false;  ///< in whole pixels instead of anti-aliased
  bool extend = false;          ///< annotations beyond the picture enlarge it, as the document says
  std::int64_t stillFrame = 0;  ///< the frame of the document that a still picture stands for
  AnnotationTool::MacroPairs macros;  ///< beside those of MacroValues, and before them
};

/// Paints the annotations of a document into frames of its media. Belongs to the GUI thread, or to
/// the one thread of a program without windows.
class FrameBurner {
public:
  /// `document` is an object with the member "Annotate". `source` outlives the burner, which asks
  /// it for names and times only.
  FrameBurner(MediaSource const &source, wxJSONValue const &document, BurnLook look);

  /// The frame with what is seen in it burnt in; larger than the picture where the look lets
  /// annotations extend it. Throws MediaError, TooLarge, if no surface holds the result, and
  /// std::bad_alloc; nothing is given out unhidden.
  Picture Burn(std::int64_t frame, Picture picture);

  /// How many objects of the document are not there: they cannot be read, or leave no trace.
  int LeftOut() const { return m_leftOut; }

  /// With the document, for questions about its objects.
  AnnotationTool const &Tool() const { return *m_tool; }

private:
  MediaSource const &m_source;
  BurnLook m_look;
  std::shared_ptr<AnnotationTool> m_tool;
  int m_leftOut = 0;
};
