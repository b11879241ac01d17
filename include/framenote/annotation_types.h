// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// A tool mode, and the kind of an object: 2 to 8 are the "Id" of an object in the document.
enum class Types : int {
  Idle = 1,
  Shape = 2,
  Arrow = 3,
  Pencil = 4,
  Text = 5,
  Image = 6,
  Hide = 7,
  Magnify = 8,
  General = 9
};

/// What the mouse is doing: it decides which handler of the active mode gets the next event.
enum class ToolState : int {
  Default = 0,          ///< nothing selected, pointer over nothing
  Drawing = 1,          ///< a new object is being dragged out
  OverObject = 2,       ///< pointer over an object, nothing selected
  Selected = 3,         ///< an object is selected
  Moving = 4,           ///< the selected object follows the pointer
  AtResizePoint = 5,    ///< pointer on a resize point of the selected object
  Resizing = 6,         ///< a resize point is being dragged
  AtRotationPoint = 7,  ///< pointer on the rotation point of the selected object
  Rotating = 8,         ///< the rotation point is being dragged
  Editing = 9           ///< the in-place text control is open
};

namespace framenote {

/// Whether the selected object is being moved, resized or rotated.
constexpr bool IsHandling(ToolState state) {
  return state == ToolState::Moving || state == ToolState::Resizing || state == ToolState::Rotating;
}

}  // namespace framenote

/// What the context menu offers: the identifiers of its items, in the numbering of the interface.
enum class AnnotationCommand : int {
  Copy = 49,
  Paste = 50,
  Delete = 51,
  BringToFront = 52,
  BringForward = 53,
  SendToBack = 54,
  SendBackward = 55,
  ResetToOriginal = 56,  ///< a pasted picture's own size, upright and unmirrored
  FitToImage = 57,       ///< a pasted picture as large as the annotated one
  DefaultZoomPosition = 58,
  SetOnlyForThisFrame = 59,
  SetFromThisFrame = 60,
  SetUntilThisFrame = 61,
  SetForAllFrames = 62,
  GoToFirstFrame = 63,
  GoToLastFrame = 64
};

/// Which way AnnotationTool::GoToObject looks.
enum class GoToObjectDirection : int { Previous = 0, Next = 1 };

/// The position in the media, as the host tells it.
struct AnnotationMediaInfo {
  std::int64_t frameIndex = 0;  ///< the current frame, from 0
  std::int64_t frameCount = 0;  ///< frames in the media; 1 or less means a still picture
  bool isPlaying = false;       ///< while true, no area, document or event is worked out per frame

  /// there is more than one frame
  bool IsVideo() const { return frameCount > 1; }
  /// frames in the media
  std::int64_t GetFrameCount() const { return frameCount; }
};
