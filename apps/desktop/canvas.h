// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/cursor.h>
#include <wx/image.h>
#include <wx/window.h>

#include "desktop/picture_scaler.h"
#include "desktop/view_transform.h"

class AnnotationTool;
class wxDC;

/// Shows a picture with the annotations of a tool, zooms and pans it, and hands the mouse to the
/// tool.
///
/// Ctrl and wheel zooms at the pointer, the wheel scrolls, with Shift sideways; the middle button,
/// or the left one with the space bar held, drags the picture. The canvas runs from left to right
/// in every language, so that a picture is shown as it is; its owner tells the library so
/// (TalSetLayoutDirection), as the tool otherwise mirrors the picture it is given. Other keys and
/// dropped files are its owner's matter.
class Canvas : public wxWindow {
public:
  /// What is under the pointer.
  struct Pointer {
    bool isOnPicture = false;
    wxPoint pixel;    ///< of the picture; may lie outside of it
    wxColour colour;  ///< of that pixel; not valid outside the picture
  };
  using PointerHandler = std::function<void(std::optional<Pointer> const &)>;
  using ZoomHandler = std::function<void(double zoom)>;

  explicit Canvas(wxWindow *parent, wxWindowID id = wxID_ANY);
  ~Canvas() override;

  /// Null for none. The canvas shares the tool, and never changes its picture or position.
  void SetTool(std::shared_ptr<AnnotationTool> tool);
  /// An invalid image shows none. The pixels are shared. `isPlaying` says that the picture will not
  /// stay: nothing is prepared for zooming it.
  void SetPicture(wxImage const &picture, bool isPlaying);
  wxImage const &Picture() const { return m_scaler.Picture(); }

  // --- View ---

  ViewTransform const &View() const { return m_view; }
  void ZoomIn();
  void ZoomOut();
  /// 1 shows a picture pixel on a pixel of the screen.
  void ZoomTo(double zoom);
  void ZoomToFit();
  /// Whether pixels are shown as squares from 200 % up; they are at first.
  void SetShowPixels(bool show);
  bool ShowsPixels() const { return m_showPixels; }
  /// Brings a place of the picture into the middle, as far as the bounds of panning allow.
  void CentreOn(wxPoint2DDouble const &onPicture);

  /// The part of the picture that is seen, in its pixels.
  wxRect SeenPart() const;

  /// Lets go of the mouse, as if its button had been released where it is.
  void EndGesture();

  // --- Handlers; at most one each ---

  /// Called when the pointer, the view or the picture has moved; without a value when the pointer
  /// has left the canvas.
  void OnPointerMoved(PointerHandler handler) { m_onPointer = std::move(handler); }
  /// Called when the zoom has changed.
  void OnZoomChanged(ZoomHandler handler) { m_onZoom = std::move(handler); }

  // --- Dragging with the space bar ---

  /// The key is held: a press of the left button drags the picture. The canvas calls it itself for
  /// keys that reach it; an owner that takes the space bar first calls it too.
  void HoldPanKey();
  /// The key is let go. Returns whether it served to drag, so that it should do nothing else.
  bool ReleasePanKey();

private:
  enum class Drag { None, Tool, Pan };

  void bindEvents();
  void changeView(std::function<void()> const &change);
  void notifyPointer();
  void refreshPixelRatio();

  // Painting
  void onPaint();
  void paintPicture(wxDC &dc);
  void updateCache(wxRect const &target);
  wxBitmap rendered(wxRect const &target);
  wxBitmap panned(wxRect const &target, wxRect const &overlap, wxPoint const &keptAt);

  // Mouse and keys
  void onMouse(wxMouseEvent &event);
  void sendToTool(wxMouseEvent &event);
  void press(wxMouseEvent &event);
  void release(wxMouseEvent &event);
  void startPanning(wxMouseEvent const &event);
  void endPanning();
  void onCaptureLost();
  void onWheel(wxMouseEvent const &event);
  void onScroll(wxScrollWinEvent const &event);
  void onKey(wxKeyEvent &event, bool isDown);
  void showCursor(wxStockCursor cursor);
  bool isEditing() const;

  std::shared_ptr<AnnotationTool> m_tool;
  PictureScaler m_scaler;
  ViewTransform m_view;
  bool m_showPixels = true;
  PointerHandler m_onPointer;
  ZoomHandler m_onZoom;

  Drag m_drag = Drag::None;
  int m_panButton = wxMOUSE_BTN_NONE;
  bool m_isPanKeyHeld = false;
  bool m_hasPanned = false;  ///< since the key is held
  wxPoint m_panPlace;
  std::optional<wxPoint> m_pointer;  ///< on the canvas
  wxStockCursor m_cursor = wxCURSOR_ARROW;
  wxStockCursor m_toolCursor = wxCURSOR_ARROW;
  int m_zoomRotation = 0;  ///< of the wheel, less than a step

  /// The visible part as it was last scaled: the screen pixels it covers, and what it was made of.
  struct Cache {
    wxBitmap bitmap;
    wxRect target;
    wxPoint origin;
    double zoom = 0.0;
  };
  Cache m_cache;
};
