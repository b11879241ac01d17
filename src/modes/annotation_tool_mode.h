// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include <wx/event.h>
#include <wx/geometry.h>
#include <wx/window.h>

#include "framenote/annotation_types.h"
#include "framenote/export.h"

class AnnotationTool;
class IAnnotationObject;
class IAnnPainter;

/// What the mouse does while a tool is active.
///
/// The tool keeps the state, the mode keeps the reaction: one handler for each state. A mode is a
/// window that is never created; it serves as an event handler. The tool owns the modes, and each
/// lives as long as the tool, so what was chosen for a tool is there when the tool returns.
class FRAMENOTE_API IAnnotationToolMode : public wxWindow {
public:
  IAnnotationToolMode(IAnnotationToolMode const &) = delete;
  IAnnotationToolMode &operator=(IAnnotationToolMode const &) = delete;
  ~IAnnotationToolMode() override;

  /// Paints the object under construction. Called after the objects were painted; does nothing
  /// unless the tool is in the state Drawing.
  virtual void DrawPreview(std::unique_ptr<IAnnPainter> &painter,
                           wxPoint2DDouble const &offset) = 0;
  /// A property of the mode's record changed: gives it to the selected object, if there is one.
  virtual void ApplyProperties() = 0;
  /// Commits an open editor.
  virtual void FinishEditing();
  /// Whether an editor is open.
  virtual bool IsEditing() const;
  /// Whether a press may start a drag.
  virtual bool CanStartDrawing() const;
  /// A press could start no drag.
  virtual void OnDrawingRefused();
  /// A drag is about to start: brings what the preview needs up to date.
  virtual void startDrawing();
  /// Drops what a drag has produced so far, and closes an open editor. Called when a drag starts
  /// and whenever a gesture is cut off.
  virtual void DiscardDrawing();

  ///@{
  /// The handler of a state, named after it. The tool keeps the position, in picture pixels;
  /// `event` says what happened and which keys are held. An event of a type that the handler does
  /// not know is ignored.
  virtual void OnMouseDefault(wxMouseEvent const &event);
  virtual void OnMouseDrawing(wxMouseEvent const &event) = 0;
  virtual void OnMouseSelected(wxMouseEvent const &event);
  virtual void OnMouseResizing(wxMouseEvent const &event) = 0;
  virtual void OnMouseAtRotationPoint(wxMouseEvent const &event);
  virtual void OnMouseRotating(wxMouseEvent const &event);
  virtual void OnMouseEditing(wxMouseEvent const &event);
  void OnMouseOverObject(wxMouseEvent const &event);
  void OnMouseMoving(wxMouseEvent const &event);
  void OnMouseAtResizePoint(wxMouseEvent const &event);
  ///@}

  Types GetModeId() const { return m_modeId; }             ///< the tool that it stands for
  bool IsIdle() const { return m_modeId == Types::Idle; }  ///< the mode of no tool

  std::int64_t GetToolFrameCount() const;  ///< frames in the media
  /// The current frame; only its low 32 bits.
  int GetToolCurrentFrame() const;
  double GetToolScale() const;  ///< the view's zoom
  /// An object of this mode became selected: tells the host and makes this mode active.
  void NotifyObjectSelected(bool isNew);
  /// Puts an object at the front of the tool's objects.
  void InsertPastedObject(std::unique_ptr<IAnnotationObject> object);
  /// Puts an object into the tool's clipboard, in place of the one before.
  void StoreCopiedObject(std::unique_ptr<IAnnotationObject> object);

protected:
  /// `tool` owns the mode.
  IAnnotationToolMode(Types modeId, AnnotationTool *tool);

  /// The selected object if it is of the kind `Kind`, else null: a host may change the active mode
  /// at any time, so the selection need not be of the mode's own kind.
  template <class Kind>
  Kind *selectedAs() const {
    return dynamic_cast<Kind *>(selectedObject());
  }
  IAnnotationObject *selectedObject() const;  ///< or null; the tool owns it
  bool isDrawing() const;                     ///< the tool is in the state Drawing
  /// Puts a new object in front and selects it.
  void insertAndSelect(std::unique_ptr<IAnnotationObject> object);
  /// A drag has made `object`: inserts and selects it, and brings the document up to date.
  void finishDrawing(std::unique_ptr<IAnnotationObject> object);
  /// Forgets where the press was, after a drag.
  void forgetPositions();
  /// The end of a resize: the handle under the pointer sets the cursor.
  void finishResizing();
  /// Gives the mode's record to the selected object, with or without a new annotation area.
  void applyPropertiesToSelected(bool updatesArea);
  /// Whether Shift alone is held.
  static bool isSquareKey(wxMouseEvent const &event);

  Types m_modeId;          ///< the tool that it stands for
  wxString m_modeName;     ///< the number of the tool as a text
  AnnotationTool *m_tool;  ///< owns this mode
};
