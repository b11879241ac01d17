// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include <wx/gdicmn.h>
#include <wx/geometry.h>

#include "desktop/scroll_bar.h"

/// Where a picture lies in a window: zoom and pan, kept within bounds. Arithmetic alone.
///
/// A picture point p appears at (p + Offset()) * Scale(), in the window's units. A window unit is
/// PixelRatio() pixels of the screen wide, and a zoom of 1 shows one picture pixel on one of these.
/// The picture's corner always lies on a whole screen pixel, so that at whole zooms every picture
/// pixel does.
class ViewTransform {
public:
  static constexpr double kMinZoom = 0.02;  ///< less only where a whole picture needs it
  static constexpr double kMaxZoom = 32.0;

  /// A fitted picture stays fitted; otherwise the view stays, within its bounds.
  void SetPicture(wxSize const &size);
  /// The same, and what is in the middle of the window stays there.
  void SetWindow(wxSize const &size);
  /// Screen pixels of a window unit; positive. Keeps the zoom.
  void SetPixelRatio(double ratio);

  wxSize Picture() const { return m_picture; }
  wxSize Window() const { return m_window; }
  double PixelRatio() const { return m_ratio; }
  double Zoom() const { return m_zoom; }
  double Scale() const { return m_zoom / m_ratio; }
  wxPoint2DDouble Offset() const;
  /// The screen pixel of the picture's corner, counted from the window's.
  wxPoint DeviceOrigin() const;
  /// The screen pixels that the picture covers, counted from the window's corner; at least one.
  wxRect DeviceArea() const;
  /// The place in the picture under a place of the window, not bounded by the picture.
  wxPoint2DDouble ToPicture(wxPoint2DDouble const &onWindow) const;
  wxPoint2DDouble ToWindow(wxPoint2DDouble const &onPicture) const;
  wxPoint2DDouble Centre() const;  ///< of the window

  /// Zooms, within the bounds, and keeps the picture point at `at`, a place of the window, where
  /// the bounds of panning let it stay.
  void ZoomTo(double zoom, wxPoint2DDouble const &at);
  /// To the next of the usual zooms, as many as `steps` says; negative zooms out.
  void ZoomBySteps(int steps, wxPoint2DDouble const &at);
  /// Shows the whole picture as large as it can be, and again after each change of size until
  /// another zoom is chosen.
  void Fit();
  bool IsFitted() const { return m_isFitted; }

  /// Moves the picture in the window. A picture that is smaller than the window is centred; a
  /// larger one may be pulled from a window's edge by up to a quarter of the window, so that what
  /// lies at the picture's edge can be reached.
  void PanBy(double dx, double dy);
  ScrollBar HorizontalBar() const;
  ScrollBar VerticalBar() const;
  void ScrollTo(int horizontal, int vertical);

private:
  /// One direction: how long the picture and the window are, in window units.
  struct Axis {
    double picture = 0.0;
    double window = 0.0;
    bool IsLarger() const { return picture > window; }
    double Margin() const;
    double Clamped(double origin) const;
    ScrollBar Bar(double origin) const;
  };

  /// Where it was zoomed last, and what was there.
  struct Anchor {
    wxPoint2DDouble onWindow;
    wxPoint2DDouble onPicture;
    wxPoint2DDouble origin;  ///< after that; another one says that the view was moved since
  };

  Axis horizontal() const;
  Axis vertical() const;
  double fittingZoom() const;
  double clampedZoom(double zoom) const;
  void clampOrigin();
  double snapped(double coordinate) const;

  wxSize m_picture{1, 1};
  wxSize m_window{1, 1};
  double m_ratio = 1.0;
  double m_zoom = 1.0;
  wxPoint2DDouble m_origin;  ///< of the picture in the window, before it is put on a pixel
  bool m_isFitted = true;
  std::optional<Anchor> m_anchor;
};
