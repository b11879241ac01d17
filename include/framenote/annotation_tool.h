// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include <wx/colour.h>
#include <wx/cursor.h>
#include <wx/event.h>
#include <wx/geometry.h>
#include <wx/image.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include "framenote/annotation_config.h"
#include "framenote/annotation_types.h"
#include "framenote/export.h"
#include "modes/tool_modes.h"
#include "talbase/json_value.h"

class AnnotationPanel;
class IAnnotationObject;
class IAnnPainter;
class wxBitmap;
class wxDC;
class wxToggleButton;

/// The annotations of one picture or video: the objects, the selection, the mouse, the document.
///
/// A host makes one in a std::shared_ptr, gives it the events' handler (InitGui), the position
/// (UpdateMediaInfo) and the picture (SetImage), forwards mouse events (ProcessMouseEvent) and
/// paints with it (Draw). The tool owns the objects and the modes; it has no timer and no queue,
/// and no thread outlives the call that started it. Every call is the GUI thread's.
/// Positions are picture pixels, y downward. A point p of the picture appears on the window at
/// (p + offset) * scale. Frames count from 0.
class FRAMENOTE_API AnnotationTool : public wxEvtHandler,
                                     public std::enable_shared_from_this<AnnotationTool> {
public:
  using ObjectList = std::list<IAnnotationObject *>;              ///< top of the z-order first
  using MacroPairs = std::vector<std::pair<wxString, wxString>>;  ///< keys and values

  /// idle, without objects or picture
  explicit AnnotationTool(AnnotationToolConfig const &config);
  AnnotationTool(AnnotationTool const &) = delete;
  AnnotationTool &operator=(AnnotationTool const &) = delete;
  ~AnnotationTool() override;

  // --- For the host: life and looks ---

  /// Makes the palette on `parent` (without one there is none, and the result is null) and records
  /// the handler of the events; none is raised before. `self` owns this tool; if null, the tool's
  /// own shared pointer is taken. Throws std::bad_weak_ptr if there is none; the tool stays usable.
  AnnotationPanel *InitGui(wxWindow *parent, wxEvtHandler *sink,
                           std::shared_ptr<AnnotationTool> self);
  /// Forgets the panel. To be called before the panel is destroyed.
  void UnlinkGui();
  /// Ends editing and selection and returns to the idle mode.
  void Deactivate();
  /// Deactivate, for the tool and its panel.
  void DeactivateToolAndControls();
  /// Destroys every object. With false the tool is then new but for its picture and configuration;
  /// with true nothing else happens, and the tool is only to be destroyed.
  void Reset(bool keepState);
  /// With false, mouse events only store position, scale and offset.
  void EnableMouse(bool enable);
  /// Hides or shows all annotations; hiding ends the selection.
  void SetObjectsVisible(bool visible);
  /// Selects the object at a place of AnnotationObjects(), as a click does; an open editor is
  /// closed. Nothing if there is none, or it is hidden or not present in the current frame.
  void SelectObject(std::size_t index);
  /// Moves the selected object, by picture pixels, in the current frame, as a drag does.
  void MoveSelected(wxPoint2DInt const &delta);
  /// Removes every object and tells the host, if there is a sink for its events (InitGui).
  void ClearAllAnnotations();

  bool IsEmpty() const;                           ///< whether there is no object
  bool IsVisible() const;                         ///< see SetObjectsVisible
  bool IsIdle() const;                            ///< whether the mode of no tool is active
  bool IsDefaultState() const;                    ///< whether the state is Default
  bool HasAnnotation(int frame) const;            ///< whether some object is present in `frame`
  AnnotationToolConfig const &GetConfig() const;  ///< as given to the constructor
  ObjectList const &AnnotationObjects() const;    ///< top of the z-order first
  ToolState GetState() const;                     ///< what the mouse is doing
  IAnnotationObject *GetSelectedObject() const;   ///< or null

  // --- For the host: mouse and painting ---

  /// Handles a left press, left release, motion, right release or left double click at `position`,
  /// in picture pixels, in a view of `scale` and `offset`, and returns the cursor to show. The
  /// second of two quick presses comes as a double click, which only opens texts: a host passes it
  /// on, and again as a press if the state is not Editing then.
  wxStockCursor ProcessMouseEvent(wxPoint const &position, wxMouseEvent const &event, double scale,
                                  wxPoint2DDouble const &offset);
  /// Paints the frame's objects, the one being drawn, and the markers; the graphics-context painter
  /// on `window`, the other one on `dc`, whose own scale is 1. For the paint handler, after the
  /// picture. Menus, editor and repaints go to that window from then on. Throws as SetImage.
  void Draw(wxDC &dc, wxWindow *window, wxPoint2DDouble const &offset, double scale);
  /// Paints the selected object alone, where it is present, and its markers.
  void DrawOnlySelected(wxDC &dc, wxWindow *window, wxPoint2DDouble const &offset, double scale);
  /// Asks for a repaint of the window last painted on.
  void Refresh();

  // --- For the host: modes ---

  /// Makes a mode active; General and values without a mode are ignored. Ends an open editor.
  void SetActiveTool(Types mode);
  void SetActiveTool(std::shared_ptr<IAnnotationToolMode> const &mode);  ///< null is ignored
  ToolModes const &GetToolModes() const;  ///< each with the look of its next object
  std::shared_ptr<IAnnotationToolMode> const &GetActiveTool() const;  ///< never null

  // --- For the host: frames and media ---

  /// Takes the current picture; an invalid image clears it. The pixels are shared with the
  /// caller's image, and mirrored in place in a right-to-left interface. Hide regions and lenses
  /// show it where they are, so UpdateMediaInfo goes first. With `refreshCaches` the whole picture
  /// is hidden in advance, so that dragging a region is cheap at once; without, as for a playing
  /// video, only what is seen. Throws std::bad_alloc if there is no memory to hide a region.
  void SetImage(wxImage const &image, bool refreshCaches);
  /// The same; an invalid bitmap changes nothing.
  void SetImage(wxBitmap const &bitmap, bool refreshCaches);
  wxImage const &GetImage() const;  ///< invalid before the first
  /// Takes the position in the media and brings the objects there. A selected object's range
  /// follows it. Throws std::runtime_error if the frame is not below the frame count.
  void UpdateMediaInfo(AnnotationMediaInfo const &info);
  AnnotationMediaInfo const &GetMediaInfo() const;  ///< as of the last change
  /// The rectangle that picture and annotations cover, in picture pixels. Without extension it is
  /// one pixel smaller than the picture in each direction.
  wxRect GetAnnotationArea();
  wxColour GetExtensionColor() const;  ///< wxNullColour: none
  /// wxNullColour means that burnt-in frames are not extended past the picture.
  void SetExtensionColour(wxColour const &colour);
  /// Sets the selected object's first frame, unchecked, which may push its last. Tells the host.
  void SetSelectedsAnnotationStart(std::int64_t frame);
  void SetSelectedsAnnotationEnd(std::int64_t frame);  ///< the same for its last frame
  /// Starts at `start`; an object of one frame then lasts until `end`, any other keeps its end.
  void SetSelectedsAnnotationFromFrame(std::int64_t start, std::int64_t end);
  /// Asks the host for the nearest frame where an object starts, before or after the current one.
  void GoToObject(GoToObjectDirection direction);

  // --- For the host: document and output ---

  /// Fills the members of the annotation value, which is what "Annotate" holds, into `value`.
  void ToJSON(wxJSONValue &value) const;
  /// Replaces all but picture and configuration by a document, an object with the member
  /// "Annotate", without which the tool is empty. Objects that cannot be read are left out. The
  /// position is frame 0; text macros, clipboard and window are forgotten.
  void FromJSON(wxJSONValue const &document, std::int64_t frameCount);
  /// The annotation value as of the last change: what "Annotate" holds in a document.
  wxJSONValue const &GetJSON() const;
  /// Brings the document up to date and posts an event if it changed.
  void OnJsonChanged();
  /// Takes over the picture of `other`, sharing the pixels, and its annotations, as FromJSON does.
  void CloneFrom(AnnotationTool &other);
  /// `frame` with the annotations of `info.frameIndex` burnt in. `frame` is the tool's picture
  /// afterwards. Not to be called while another call on the tool runs. An invalid image if `frame`
  /// is, or if it has more than 32,766 pixels on a side.
  /// Throws std::bad_alloc if there is no memory to hide a region; nothing is given out unhidden.
  wxImage GetAnnotatedFrame(wxImage const &frame, AnnotationMediaInfo const &info,
                            MacroPairs const &macros);
  /// Sets values of text macros, and replaces them in the texts of the current frame. To be called
  /// after FromJSON and with each new position, also with none: restored texts show only then.
  void UpdateTextMacrosMap(MacroPairs const &macros);
  /// Adds `text`, as a rule the key of a macro: at the caret of the open editor, at the end of the
  /// selected text box, or in a new box at the bottom of the picture.
  void AddTextMacro(wxString const &text);

  // --- For the host: the context menu ---

  /// Opens the menu for the selected object at the pointer, on the window last painted on; with
  /// `onObject` false or nothing selected, one with "Paste" alone. Returns when it is closed.
  void popupRightClickMenu(bool onObject);
  /// The same for what lies under the pointer; a focused object there is selected.
  void popupRightClickMenuOnSelected();
  /// For the keys that open a menu, a wxContextMenuEvent without a position: the menu opens beside
  /// the selected object, or with "Paste" alone in the middle. Nothing while a text is edited.
  void PopupMenuByKey();
  /// Does what the item with the event's identifier does, an AnnotationCommand; also for hosts that
  /// offer the commands elsewhere. Copies go to a clipboard of the tool's own.
  void onPopupClick(wxCommandEvent &event);

  // --- For the modes, the panel and the objects ---

  void UpdatePanelOnObjectSelected(Types mode);   ///< the panel shows the tool and its properties
  void UpdatePanelControls(Types mode);           ///< the panel shows what has changed
  void OnAnnImageNotSet();                        ///< the panel asks for a picture
  void OnObjectSelected(bool isNew);              ///< posts AnnotationObjectSelectedEvent
  void SendAnnotationFrameRangeChangedEvent();    ///< posts that event
  void SendAnnotationTextEditionStartedEvent();   ///< posts that event
  void SendAnnotationTextEditionFinishedEvent();  ///< posts that event
  void SendAnnotationToolSelectedEvent(wxToggleButton *button, Types mode);    ///< posts that event
  void SendAnnotationToolDeselectedEvent(wxToggleButton *button, Types mode);  ///< posts that event

private:
  friend class IAnnotationToolMode;
  friend class AnnShapeToolMode;
  friend class AnnTextToolMode;
  friend class BoxToolMode;
  friend class AnnArrowToolMode;
  friend class AnnImageToolMode;
  friend class AnnMagnifyToolMode;
  friend class AnnPencilToolMode;
  using Iterator = ObjectList::iterator;

  // Construction and life
  AnnotationPanel *panel() const;
  void setDefaults();
  void destroyAllObjects();
  void enterDefaultState();

  // Focus, selection and states
  bool isMouseOnObject(Iterator &it) const;
  void changeFocusedTo(Iterator it);
  void changeFocusedToEnd();
  void enterObject(Iterator it);
  void leaveObject();
  void moveMouseDefault();
  void selectObject(bool isNew);
  void changeSelectedTo(Iterator it, bool isNew);
  void changeSelectedToEnd();
  bool hasSelection() const;
  void setNextStateOnSelected();
  void startDrawingObject();
  void deselectAndStartDrawing();
  void startMovingOrResizingObject();
  void startResizingObject();
  bool deleteSelectedIfWouldDisappear();
  void onObjectsModified();

  // The context menu
  void popupMenuAt(bool onObject, wxPoint const &place);
  void commitEditing();
  void onCharHook(wxKeyEvent &event);
  void runOnSelected(AnnotationCommand command);
  void onMenuPaste();
  void onMenuDelete();
  void onMenuGoToRange(bool toEnd);
  void swapSelectedWith(Iterator neighbour);
  void onOrderChanged();
  void deselectAfterRangeChange();

  // Painting
  void setDrawOn(wxWindow *window);
  std::unique_ptr<IAnnPainter> beginPass(wxDC &dc, wxWindow *window, wxPoint2DDouble const &offset,
                                         double scale);
  void drawIgnoringScale(std::unique_ptr<IAnnPainter> &painter, wxPoint2DDouble const &offset,
                         double scale);
  void addTextBox(wxString const &text);
  void drawObjectsOfFrame(std::unique_ptr<IAnnPainter> &painter, std::int64_t frame,
                          wxPoint2DDouble const &offset);
  wxImage paintAnnotatedFrame(wxImage const &frame, std::int64_t frameIndex);

  // Document, frames, events
  std::unique_ptr<IAnnotationObject> objectFromJSON(wxJSONValue const &element) const;
  void readObjects(wxJSONValue const &elements);
  void takePicture(wxImage const &image);
  void refreshBitmaps(bool wholePictures);
  void refreshStaleRegions();
  bool isShown(IAnnotationObject const &object) const;
  void goToFrameOfObjects(std::int64_t frame);
  void calculateAnnotationArea();
  void onVideoLengthIncreased(std::int64_t count);
  void updateSelectedForFrame(AnnotationMediaInfo const &info);
  void growSelectedRangeTo(std::int64_t frame);
  void onSelectedRangeChanged();
  void rewindSelection();
  void post(wxEvent const &event);

  wxEvtHandler *m_eventSink = nullptr;  // not owned
  wxWeakRef<wxWindow> m_panel;          // owned by its parent window
  wxColour m_defaultExtensionColor;
  AnnotationToolConfig m_config;
  std::unordered_map<wxString, wxString> m_textMacros;
  double m_scale = 1.0;
  std::shared_ptr<IAnnotationToolMode> m_activeTool;
  ToolModes m_toolModes;  // they read the scale when they are made
  ToolState m_state = ToolState::Default;
  wxWeakRef<wxWindow> m_drawOn;             // not owned
  std::list<wxWeakRef<wxWindow>> m_hooked;  // windows that have the hook of the Delete key
  bool m_visible = true;
  bool m_mouseEnabled = true;
  AnnotationMediaInfo m_mediaInfo;
  wxPoint2DDouble m_offset;
  wxImage m_image;
  wxColour m_extensionColor;
  ObjectList m_objects;  // owns its elements
  Iterator m_focused = m_objects.end();
  Iterator m_selected = m_objects.end();
  std::unique_ptr<IAnnotationObject> m_copiedObject;
  std::set<std::int64_t> m_startFrames;
  wxPoint2DInt m_pressPosition;
  wxPoint2DInt m_mousePosition;
  wxStockCursor m_cursor = wxCURSOR_ARROW;
  wxRect m_annotationArea;
  wxJSONValue m_json;
};
