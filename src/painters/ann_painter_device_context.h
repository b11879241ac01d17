// SPDX-License-Identifier: MIT
#pragma once

#include "painters/ann_painter.h"
#include "painters/drawable.h"

class wxBrush;
class wxPen;
class wxPoint;

/// Paints on a wxDC, with geometry rounded to whole pixels. Ellipses from curves and stretched
/// images go through a graphics context made for the length of the call; that takes a memory,
/// window or printer DC, and on any other DC they are not painted.
class FRAMENOTE_API AnnPainterDeviceContext : public IAnnPainter {
public:
  /// Sets the user scale of `dc`, which stays the caller's. The scale is left set at the end.
  AnnPainterDeviceContext(wxDC &dc, double scale);

  void ResetScale() override;
  void DrawCircle(wxPoint2DDouble const &centre, double radius, wxColour const &fill,
                  wxColour const &border) override;
  void DrawCircles(std::vector<wxPoint2DDouble> const &centres, double radius) override;
  void DrawCircleOnStick(wxPoint2DDouble const &foot, wxPoint2DDouble const &centre,
                         double radius) override;
  void DrawOutline(std::vector<wxPoint2DDouble> const &points, double radius, bool selected,
                   bool framed) override;
  void DrawPolygon(std::vector<wxPoint2DDouble> const &points, wxColour const &colour) override;
  void DrawPolygonWithBorder(std::vector<wxPoint2DDouble> const &outer,
                             std::vector<wxPoint2DDouble> const &inner,
                             AnnShapeProperties const &properties) override;
  void DrawBorderOfPolygon(std::vector<wxPoint2DDouble> const &points, wxColour const &colour,
                           int thickness) override;
  void DrawRectangle(wxRect const &rect, wxColour const &colour) override;
  void DrawRectangleWithBorder(wxRect const &rect, AnnShapeProperties const &properties) override;
  void DrawBorderOfRectangle(wxRect const &rect, wxColour const &colour, int thickness) override;
  void DrawEllipseCurves(std::vector<wxPoint2DDouble> const &points,
                         wxColour const &colour) override;
  void DrawEllipseWithBorderCurves(std::vector<wxPoint2DDouble> const &outer,
                                   std::vector<wxPoint2DDouble> const &inner,
                                   AnnShapeProperties const &properties) override;
  void DrawBorderOfEllipseCurves(std::vector<wxPoint2DDouble> const &outer,
                                 std::vector<wxPoint2DDouble> const &inner,
                                 wxColour const &colour) override;
  void DrawEllipse(wxRect const &rect, wxColour const &colour) override;
  void DrawEllipseWithBorder(wxRect const &rect, AnnShapeProperties const &properties) override;
  void DrawBorderOfEllipse(wxRect const &rect, wxColour const &colour, int thickness) override;
  void DrawArrow(std::vector<wxPoint2DDouble> const &body, std::vector<wxPoint2DDouble> const &head,
                 AnnArrowProperties const &properties) override;
  void DrawLine(wxPoint2DDouble const &from, wxPoint2DDouble const &to, wxColour const &colour,
                int width) override;
  void DrawLines(std::vector<wxPoint2DDouble> const &points, wxColour const &colour,
                 int width) override;
  void DrawText(wxPoint2DDouble const &position, double angle, wxString const &text,
                wxFont const &font, wxColour const &colour) override;
  void DrawImage(wxPoint2DDouble const &centre, double width, double height, double angle,
                 wxBitmap const &bitmap) override;
  void DrawBitmap(wxPoint2DDouble const &topLeft, wxBitmap const &bitmap) override;
  void GetTextExtent(wxString const &text, wxFont const &font, double &width, double &height,
                     double &externalLeading) override;

private:
  void setScale(double scale);
  wxPoint toPixel(wxPoint2DDouble const &point) const;
  std::vector<wxPoint> toPixels(std::vector<wxPoint2DDouble> const &points) const;
  void setTools(wxPen const &pen, wxBrush const &brush);
  void drawCircle(wxPoint const &centre, double radius);
  void drawPixelLines(std::vector<wxPoint> const &points);
  void drawPixelPolygon(std::vector<wxPoint> const &points);
  void drawPixelEllipse(wxRect const &rect);
  template <typename Action>
  void onTemporaryContext(Action action);

  wxDC *m_dc;  ///< not owned
  framenote::DrawableRange m_range;
};
