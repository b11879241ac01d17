// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <wx/geometry.h>

#include "framenote/export.h"

class AnnArrowProperties;
class AnnShapeProperties;
class wxBitmap;
class wxColour;
class wxDC;
class wxFont;
class wxObject;
class wxRect;
class wxString;

/// One drawing interface over two back-ends. Objects and modes paint through it and never touch a
/// surface. A painter lives for one painting pass.
///
/// Geometry is in picture pixels, already moved by the caller's offset; scale is a property of the
/// surface. Values that no surface can hold are brought within what it can; what cannot be painted
/// (no points, null colours, invalid bitmaps) paints nothing.
class FRAMENOTE_API IAnnPainter {
public:
  /// The back-ends.
  enum AnnPainterType : int { GraphicsContext = 0, DeviceContext = 1 };
  using Points = std::vector<wxPoint2DDouble>;  ///< a list of points

  IAnnPainter() = default;
  IAnnPainter(IAnnPainter const &) = delete;
  IAnnPainter &operator=(IAnnPainter const &) = delete;
  virtual ~IAnnPainter();

  /// A painter on `dc` (DeviceContext) or on `object`, a window or memory DC (GraphicsContext);
  /// neither is owned, and both outlive it. `scale` is surface pixels per picture pixel. Null for
  /// any other type.
  static std::unique_ptr<IAnnPainter> CreateAnnPainter(AnnPainterType type, wxDC &dc,
                                                       wxObject *object, double scale);

  /// Returns the surface to scale 1, so that what follows is painted at screen size.
  virtual void ResetScale() = 0;
  /// A circle of `fill` with a line of one unit in `border` around it.
  virtual void DrawCircle(wxPoint2DDouble const &centre, double radius, wxColour const &fill,
                          wxColour const &border) = 0;
  /// Circles with the pen and brush already set.
  virtual void DrawCircles(Points const &centres, double radius) = 0;
  /// The rotation handle: a line from foot to centre and a circle on the centre.
  virtual void DrawCircleOnStick(wxPoint2DDouble const &foot, wxPoint2DDouble const &centre,
                                 double radius) = 0;
  /// The markers of an object; `framed` adds the lines through the first four points.
  virtual void DrawOutline(Points const &points, double radius, bool selected, bool framed) = 0;
  /// A filled polygon without a border.
  virtual void DrawPolygon(Points const &points, wxColour const &colour) = 0;
  /// The outer polygon in the border colour, then the inner one in the fill colour.
  virtual void DrawPolygonWithBorder(Points const &outer, Points const &inner,
                                     AnnShapeProperties const &properties) = 0;
  /// The line through the points, `thickness` wide. The last point is the first one again: one
  /// back-end closes the line itself, the other does not.
  virtual void DrawBorderOfPolygon(Points const &points, wxColour const &colour, int thickness) = 0;
  /// A filled rectangle without a border.
  virtual void DrawRectangle(wxRect const &rect, wxColour const &colour) = 0;
  ///@{
  /// A rectangle with its border, or the border alone; it lies inside the rectangle.
  virtual void DrawRectangleWithBorder(wxRect const &rect,
                                       AnnShapeProperties const &properties) = 0;
  virtual void DrawBorderOfRectangle(wxRect const &rect, wxColour const &colour, int thickness) = 0;
  ///@}
  ///@{
  /// Ellipses in a turned box: its corners in order, then the middles of its sides, each following
  /// the corner before it. Inner boxes are given by their corners alone.
  virtual void DrawEllipseCurves(Points const &points, wxColour const &colour) = 0;
  virtual void DrawEllipseWithBorderCurves(Points const &outer, Points const &inner,
                                           AnnShapeProperties const &properties) = 0;
  virtual void DrawBorderOfEllipseCurves(Points const &outer, Points const &inner,
                                         wxColour const &colour) = 0;
  ///@}
  /// A filled ellipse in `rect`, without a border.
  virtual void DrawEllipse(wxRect const &rect, wxColour const &colour) = 0;
  ///@{
  /// An ellipse in `rect` with its border, or the border alone; it lies inside the ellipse.
  virtual void DrawEllipseWithBorder(wxRect const &rect, AnnShapeProperties const &properties) = 0;
  virtual void DrawBorderOfEllipse(wxRect const &rect, wxColour const &colour, int thickness) = 0;
  ///@}
  /// The body as a line of the arrow's width; the head as left wing, tip, right wing.
  virtual void DrawArrow(Points const &body, Points const &head,
                         AnnArrowProperties const &properties) = 0;
  /// A line at least 1 wide, with round ends.
  virtual void DrawLine(wxPoint2DDouble const &from, wxPoint2DDouble const &to,
                        wxColour const &colour, int width) = 0;
  /// The line through the points in order, at least 1 wide, with round joins and ends.
  virtual void DrawLines(Points const &points, wxColour const &colour, int width) = 0;
  /// Text turned about its position by `angle` radians.
  virtual void DrawText(wxPoint2DDouble const &position, double angle, wxString const &text,
                        wxFont const &font, wxColour const &colour) = 0;
  /// A bitmap stretched to a size and turned about its centre by `angle` radians.
  virtual void DrawImage(wxPoint2DDouble const &centre, double width, double height, double angle,
                         wxBitmap const &bitmap) = 0;
  /// A bitmap at its own size, one pixel to a picture pixel.
  virtual void DrawBitmap(wxPoint2DDouble const &topLeft, wxBitmap const &bitmap) = 0;
  /// From now on DrawBitmap puts bitmaps on whole pixels, the ones that hold the given corner: for
  /// frames whose objects are painted about the middles of pixels, while bitmaps are pixels.
  void KeepBitmapsOnPixels() { m_keepsBitmapsOnPixels = true; }
  /// Measures text, in picture pixels, and paints nothing.
  virtual void GetTextExtent(wxString const &text, wxFont const &font, double &width,
                             double &height, double &externalLeading) = 0;

protected:
  /// Where the corner of a bitmap goes.
  wxPoint2DDouble bitmapCorner(wxPoint2DDouble const &topLeft) const;

private:
  bool m_keepsBitmapsOnPixels = false;
};
