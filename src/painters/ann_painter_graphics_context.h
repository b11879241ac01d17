// SPDX-License-Identifier: MIT
#pragma once

#include "painters/ann_painter.h"
#include "painters/drawable.h"

class wxGraphicsContext;

/// Paints on a wxGraphicsContext: anti-aliased, with alpha and positions between pixels.
class FRAMENOTE_API AnnPainterGraphicsContext : public IAnnPainter {
public:
  /// On a window that is on the screen, or on a memory DC, which must outlive the painter. On
  /// anything else the painter has no context and paints nothing.
  AnnPainterGraphicsContext(wxObject *surface, double scale);
  /// Leaves the surface as it was found, the scale included.
  ~AnnPainterGraphicsContext() override;

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
  /// Runs `action` with the context, if there is one.
  template <typename Action>
  void onContext(Action action);
  void drawCircle(wxGraphicsContext &context, wxPoint2DDouble const &centre, double radius) const;

  std::unique_ptr<wxGraphicsContext> m_context;
  framenote::DrawableRange m_range;
  bool m_scaled = false;  ///< whether the state that the constructor pushed is still there
};
