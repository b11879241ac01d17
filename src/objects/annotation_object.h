// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <wx/colour.h>
#include <wx/cursor.h>
#include <wx/gdicmn.h>
#include <wx/geometry.h>

#include "framenote/export.h"
#include "talbase/json_value.h"

class IAnnPainter;

/// Everything a user can place on a picture.
///
/// The base owns what all kinds share: the range of frames, the hover and selection flags, the
/// cached bounding rectangle and the JSON value that mirrors the object at all times. Geometry and
/// look belong to the concrete kinds. Points are picture pixels, y downward; frames count from 0.
/// The tool's list owns the objects. All calls belong to the GUI thread.
class FRAMENOTE_API IAnnotationObject {
public:
  virtual ~IAnnotationObject();
  IAnnotationObject &operator=(IAnnotationObject const &) = delete;

  /// Paints the object as it stands in its current frame; `offset` is added to every point.
  virtual void Draw(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset) const = 0;
  /// Paints the hover outline. `scale` is the view's zoom: the painter draws at screen size.
  virtual void DrawFocused(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                           double scale) const = 0;
  /// Paints the selection outline with its handles.
  virtual void DrawSelected(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                            double scale) const = 0;
  /// Whether a press at `point` takes the object, in its current frame.
  virtual bool Contains(wxPoint2DInt const &point) const = 0;
  /// Whether `point` lies on a resize handle. If so the handle becomes the active one, and
  /// `cursor` the cursor to show; otherwise `cursor` stays.
  virtual bool IsAtResizePoint(wxPoint2DInt const &point, wxStockCursor &cursor) = 0;
  /// Whether `point` lies on the rotation handle; never for kinds without one.
  virtual bool IsAtRotationPoint(wxPoint2DInt const &point) = 0;
  /// Moves the object in its current frame.
  virtual void MoveFor(wxPoint2DInt const &delta) = 0;
  /// Moves the object in every frame.
  virtual void MoveAllFramesFor(wxPoint2DInt const &delta) = 0;
  /// The pointer went down on the handle that IsAtResizePoint or IsAtRotationPoint found.
  virtual void PrepareResizing() = 0;
  /// Whether the object as it stands leaves no visible trace.
  virtual bool WouldDisappear() const = 0;
  /// The colour that stands best for the object.
  virtual wxColour GetDominantColor() = 0;
  /// The point at which a copy is anchored, in the current frame.
  virtual wxPoint2DInt GetPastePoint() = 0;
  /// Takes the look from the mode's record.
  virtual void UpdateProperties() = 0;
  /// Becomes the selected object: gives its look to the mode's record and tells the tool.
  virtual void OnSelection(bool isNew) = 0;
  ///@{
  /// Each setter pushes the other end ahead of itself, so the range is never inverted. `frame` is
  /// not checked against the length of the video.
  virtual void SetStartFrame(std::int64_t frame);
  virtual void SetEndFrame(std::int64_t frame);
  ///@}
  /// Makes `frame` the current frame.
  virtual void UpdateCoordinatesPointers(std::int64_t frame) = 0;
  /// Lets `frame` share the geometry of the frame before it, after the first frame.
  virtual void DuplicateLastCoordinates(std::int64_t frame) = 0;
  /// Adapts the store to a change of one end of the range, before the range changes.
  virtual void UpdateStartEndCoordinates(std::int64_t frame, bool isStart) = 0;
  /// Whether the object has no geometry in `frame`.
  virtual bool AreCoordinatesEmpty(std::int64_t frame) = 0;
  /// The frame of the last edit, -1 if there was none.
  virtual std::int64_t GetRecentlyUpdatedCoordsFrame() const = 0;
  /// Puts a copy of the object into the tool's clipboard.
  virtual void SetCopiedObject() const = 0;
  /// Puts a new copy of the object at the front of the tool's objects.
  virtual void Paste() const = 0;
  /// Brings "Coordinates" of the mirror up to date; called after each completed edit.
  virtual void OnObjectModified();
  /// Grows the store to `length` frames; a longer one stays as it is.
  virtual void OnVideoLengthIncreased(std::int64_t length) = 0;
  /// The mirror: what a document stores of the object.
  virtual wxJSONValue const &ToJSON() const;

  std::int64_t GetStartFrame() const { return m_startFrame; }      ///< first frame
  std::int64_t GetEndFrame() const { return m_endFrame; }          ///< last frame, inclusive
  std::pair<std::int64_t, std::int64_t> GetFrameDuration() const;  ///< both
  /// Both ends of the range count.
  bool IsPresentInFrame(std::int64_t frame) const;
  bool IsFocused() const { return m_focused; }                ///< under the pointer
  void SetFocused(bool focused) { m_focused = focused; }      ///< changes the flag alone
  bool IsSelected() const { return m_selected; }              ///< with handles
  void SetSelected(bool selected) { m_selected = selected; }  ///< changes the flag alone
  /// The rectangle that bounds the object over all its frames and the picture's origin.
  wxRect GetContainingRect();

  /// The pixel of a point: all rounding from picture geometry goes through this rule. Halves round
  /// up; values beyond what a picture can have saturate.
  static wxPoint GetRounded(wxPoint2DDouble const &point);
  /// `tolerance` times the marker radius, truncated toward zero.
  static int GetPointMarkerRadiusWithTolerance(double tolerance);

  static constexpr int m_pointMarkerRadius = 5;  ///< screen pixels
  ///@{
  /// What IAnnPainter::DrawOutline is told.
  static constexpr bool m_outlineFocused = false;
  static constexpr bool m_outlineSelected = true;
  static constexpr bool m_outlineWithLines = true;
  static constexpr bool m_outlineWithoutLines = false;
  ///@}
  ///@{
  /// A member of the mirror, see the document format.
  static constexpr char const *idKey = "Id";
  static constexpr char const *coordinatesKey = "Coordinates";
  static constexpr char const *coordinatesRangeKey = "Range";
  static constexpr char const *propertiesKey = "Properties";
  static constexpr char const *startFrameKey = "StartFrame";
  static constexpr char const *endFrameKey = "EndFrame";
  ///@}

protected:
  /// An object of one frame.
  explicit IAnnotationObject(std::int64_t frame);
  /// Takes `json` as the mirror, and the range from it; missing ends are 0.
  explicit IAnnotationObject(wxJSONValue const &json);
  /// Copies range, flags and mirror.
  IAnnotationObject(IAnnotationObject const &other);

  wxColour m_defaultColor;    ///< what GetDominantColor gives where the look has none to show
  int m_activeHandle = 0;     ///< 0 none, 1 to 8 of a shape, 9 head and 10 tail of an arrow
  bool m_focused = false;     ///< the hover flag
  bool m_selected = false;    ///< the selection flag
  std::int64_t m_startFrame;  ///< first frame
  std::int64_t m_endFrame;    ///< last frame, inclusive
  wxRect m_containingRect;    ///< cached, see GetContainingRect
  bool m_containingRectValid = false;  ///< whether it is of the present geometry
  wxJSONValue m_jsonVal;               ///< the mirror

private:
  virtual void findContainingRect() = 0;
  /// Reads what a concrete kind stores beyond its coordinates.
  virtual void initFromJSONVal() = 0;
  void initJSONVal();
  void setJSONValStartFrame();
  void setJSONValEndFrame();
};
