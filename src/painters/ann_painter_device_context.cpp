// SPDX-License-Identifier: MIT
#include "painters/ann_painter_device_context.h"

#include <cmath>

#include <wx/bitmap.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/dcprint.h>
#include <wx/graphics.h>

#include "coordinates/pixel_geometry.h"
#include "painters/drawing_tools.h"
#include "painters/graphics_context_routines.h"
#include "painters/large_letters.h"
#include "properties/ann_arrow_properties.h"
#include "properties/ann_shape_properties.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr std::size_t kBoxCorners = 4;
constexpr int kThinPen = 1;

/// Null for a DC that is not Ok or of another kind than these three.
std::unique_ptr<wxGraphicsContext> MakeContext(wxDC &dc) {
  wxGraphicsContext *context = nullptr;
  if (!dc.IsOk()) return nullptr;
  if (auto *const memory = dynamic_cast<wxMemoryDC *>(&dc)) {
    wxBitmap target = memory->GetAsBitmap();
    memory->SelectObject(target);
    context = wxGraphicsContext::Create(*memory);
  } else if (auto const *const window = dynamic_cast<wxWindowDC const *>(&dc)) {
    context = wxGraphicsContext::Create(*window);
  } else if (auto const *const printer = dynamic_cast<wxPrinterDC const *>(&dc)) {
    context = wxGraphicsContext::Create(*printer);
  }
  return std::unique_ptr<wxGraphicsContext>(context);
}

int Count(std::vector<wxPoint> const &points) {
  return static_cast<int>(points.size());
}

}  // namespace

AnnPainterDeviceContext::AnnPainterDeviceContext(wxDC &dc, double scale)
    : m_dc(&dc), m_range(framenote::DrawableScale(scale)) {
  setScale(m_range.Scale());
}

void AnnPainterDeviceContext::ResetScale() {
  setScale(1.0);
  m_range = framenote::DrawableRange(1.0);
}

void AnnPainterDeviceContext::setScale(double scale) {
  m_dc->SetUserScale(scale, scale);
}

wxPoint AnnPainterDeviceContext::toPixel(wxPoint2DDouble const &point) const {
  return framenote::RoundToPixel(m_range.Point(point));
}

std::vector<wxPoint> AnnPainterDeviceContext::toPixels(
    std::vector<wxPoint2DDouble> const &points) const {
  return framenote::RoundToPixels(m_range.Points(points));
}

void AnnPainterDeviceContext::setTools(wxPen const &pen, wxBrush const &brush) {
  m_dc->SetPen(pen);
  m_dc->SetBrush(brush);
}

/// With the pen and the brush that are set, as the next three.
void AnnPainterDeviceContext::drawCircle(wxPoint const &centre, double radius) {
  double const drawable = m_range.Coordinate(radius);
  int const left = framenote::RoundToPixel(centre.x - drawable);
  int const top = framenote::RoundToPixel(centre.y - drawable);
  int const size = framenote::RoundToPixel(2.0 * drawable);
  drawPixelEllipse({left, top, size, size});
}

void AnnPainterDeviceContext::drawPixelLines(std::vector<wxPoint> const &points) {
  if (points.size() > 1) m_dc->DrawLines(Count(points), points.data());
}

void AnnPainterDeviceContext::drawPixelPolygon(std::vector<wxPoint> const &points) {
  if (points.size() > 1) m_dc->DrawPolygon(Count(points), points.data(), 0, 0, wxODDEVEN_RULE);
}

void AnnPainterDeviceContext::drawPixelEllipse(wxRect const &rect) {
  if (rect.width > 0 && rect.height > 0) m_dc->DrawEllipse(rect);
}

template <typename Action>
void AnnPainterDeviceContext::onTemporaryContext(Action action) {
  std::unique_ptr<wxGraphicsContext> const context = MakeContext(*m_dc);
  if (!context) return;
  // Curves land where the other back-end, which has no offset, paints them.
  context->DisableOffset();
  action(*context);
}

void AnnPainterDeviceContext::DrawCircle(wxPoint2DDouble const &centre, double radius,
                                         wxColour const &fill, wxColour const &border) {
  setTools(framenote::LinePen(border, kThinPen), framenote::SolidBrush(fill));
  drawCircle(toPixel(centre), radius);
}

void AnnPainterDeviceContext::DrawCircles(std::vector<wxPoint2DDouble> const &centres,
                                          double radius) {
  if (!(radius > 0.0)) return;
  for (wxPoint const &centre : toPixels(centres)) drawCircle(centre, radius);
}

void AnnPainterDeviceContext::DrawCircleOnStick(wxPoint2DDouble const &foot,
                                                wxPoint2DDouble const &centre, double radius) {
  setTools(framenote::LinePen(wxColour(0, 0, 0, 255), kThinPen),
           framenote::SolidBrush(wxColour(0, 255, 0, 255)));
  m_dc->DrawLine(toPixel(foot), toPixel(centre));
  drawCircle(toPixel(centre), radius);
}

void AnnPainterDeviceContext::DrawOutline(std::vector<wxPoint2DDouble> const &points, double radius,
                                          bool selected, bool framed) {
  m_dc->SetPen(selected ? *wxBLACK_PEN : *wxGREY_PEN);
  if (selected && framed && points.size() >= kBoxCorners) {
    m_dc->SetBrush(framenote::NoBrush());
    std::vector<wxPoint2DDouble> frame(points.begin(), points.begin() + kBoxCorners);
    frame.push_back(points.front());
    drawPixelLines(toPixels(frame));
  }
  m_dc->SetBrush(selected ? *wxWHITE_BRUSH : *wxLIGHT_GREY_BRUSH);
  DrawCircles(points, radius);
}

void AnnPainterDeviceContext::DrawPolygon(std::vector<wxPoint2DDouble> const &points,
                                          wxColour const &colour) {
  setTools(framenote::NoPen(), framenote::SolidBrush(colour));
  drawPixelPolygon(toPixels(points));
}

void AnnPainterDeviceContext::DrawPolygonWithBorder(std::vector<wxPoint2DDouble> const &outer,
                                                    std::vector<wxPoint2DDouble> const &inner,
                                                    AnnShapeProperties const &properties) {
  DrawPolygon(outer, properties.GetBorderColor());
  DrawPolygon(inner, properties.GetFillColor());
}

void AnnPainterDeviceContext::DrawBorderOfPolygon(std::vector<wxPoint2DDouble> const &points,
                                                  wxColour const &colour, int thickness) {
  setTools(framenote::BorderPen(colour, thickness), framenote::NoBrush());
  drawPixelPolygon(toPixels(points));
}

void AnnPainterDeviceContext::DrawRectangle(wxRect const &rect, wxColour const &colour) {
  setTools(framenote::NoPen(), framenote::SolidBrush(colour));
  m_dc->DrawRectangle(m_range.Rect(rect));
}

void AnnPainterDeviceContext::DrawRectangleWithBorder(wxRect const &rect,
                                                      AnnShapeProperties const &properties) {
  wxRect const drawable = m_range.Rect(rect);
  int const thickness = properties.GetThickness();
  wxColour const border = properties.GetBorderColor();
  if (framenote::IsFilledByBorder(drawable, thickness)) return DrawRectangle(drawable, border);
  setTools(framenote::BorderPen(border, thickness),
           framenote::SolidBrush(properties.GetFillColor()));
  m_dc->DrawRectangle(framenote::BorderPath(drawable, thickness));
}

void AnnPainterDeviceContext::DrawBorderOfRectangle(wxRect const &rect, wxColour const &colour,
                                                    int thickness) {
  wxRect const drawable = m_range.Rect(rect);
  if (framenote::IsFilledByBorder(drawable, thickness)) return DrawRectangle(drawable, colour);
  setTools(framenote::BorderPen(colour, thickness), framenote::NoBrush());
  m_dc->DrawRectangle(framenote::BorderPath(drawable, thickness));
}

void AnnPainterDeviceContext::DrawEllipseCurves(std::vector<wxPoint2DDouble> const &points,
                                                wxColour const &colour) {
  onTemporaryContext([&](wxGraphicsContext &context) {
    framenote::FillEllipseCurves(context, m_range.Points(points), colour);
  });
}

void AnnPainterDeviceContext::DrawEllipseWithBorderCurves(std::vector<wxPoint2DDouble> const &outer,
                                                          std::vector<wxPoint2DDouble> const &inner,
                                                          AnnShapeProperties const &properties) {
  onTemporaryContext([&](wxGraphicsContext &context) {
    framenote::DrawEllipseWithBorderCurves(context, m_range.Points(outer), m_range.Points(inner),
                                           properties);
  });
}

void AnnPainterDeviceContext::DrawBorderOfEllipseCurves(std::vector<wxPoint2DDouble> const &outer,
                                                        std::vector<wxPoint2DDouble> const &inner,
                                                        wxColour const &colour) {
  onTemporaryContext([&](wxGraphicsContext &context) {
    framenote::FillRing(context, m_range.Points(outer), m_range.Points(inner), colour);
  });
}

void AnnPainterDeviceContext::DrawEllipse(wxRect const &rect, wxColour const &colour) {
  setTools(framenote::NoPen(), framenote::SolidBrush(colour));
  drawPixelEllipse(m_range.Rect(rect));
}

void AnnPainterDeviceContext::DrawEllipseWithBorder(wxRect const &rect,
                                                    AnnShapeProperties const &properties) {
  wxRect const drawable = m_range.Rect(rect);
  int const thickness = properties.GetThickness();
  wxColour const border = properties.GetBorderColor();
  if (framenote::IsFilledByBorder(drawable, thickness)) return DrawEllipse(drawable, border);
  setTools(framenote::BorderPen(border, thickness),
           framenote::SolidBrush(properties.GetFillColor()));
  drawPixelEllipse(framenote::BorderPath(drawable, thickness));
}

void AnnPainterDeviceContext::DrawBorderOfEllipse(wxRect const &rect, wxColour const &colour,
                                                  int thickness) {
  wxRect const drawable = m_range.Rect(rect);
  if (framenote::IsFilledByBorder(drawable, thickness)) return DrawEllipse(drawable, colour);
  setTools(framenote::BorderPen(colour, thickness), framenote::NoBrush());
  drawPixelEllipse(framenote::BorderPath(drawable, thickness));
}

void AnnPainterDeviceContext::DrawArrow(std::vector<wxPoint2DDouble> const &body,
                                        std::vector<wxPoint2DDouble> const &head,
                                        AnnArrowProperties const &properties) {
  wxColour const colour = properties.GetColor();
  setTools(framenote::ArrowPen(colour, properties.GetThickness()), framenote::NoBrush());
  drawPixelLines(toPixels(body));
  if (properties.GetHead() == AnnArrowProperties::Arrow) DrawPolygon(head, colour);
}

void AnnPainterDeviceContext::DrawLine(wxPoint2DDouble const &from, wxPoint2DDouble const &to,
                                       wxColour const &colour, int width) {
  setTools(framenote::LinePen(colour, width), framenote::NoBrush());
  m_dc->DrawLine(toPixel(from), toPixel(to));
}

void AnnPainterDeviceContext::DrawLines(std::vector<wxPoint2DDouble> const &points,
                                        wxColour const &colour, int width) {
  setTools(framenote::LinePen(colour, width), framenote::NoBrush());
  drawPixelLines(toPixels(points));
}

void AnnPainterDeviceContext::DrawText(wxPoint2DDouble const &position, double angle,
                                       wxString const &text, wxFont const &font,
                                       wxColour const &colour) {
  if (!font.IsOk() || !colour.IsOk()) return;
  setTools(framenote::NoPen(), framenote::NoBrush());
  double const enlargement = m_range.TextEnlargement(font);
  wxFont const drawable = m_range.Font(font, enlargement);
  wxPoint const pixel = toPixel(position);
  wxPoint const at(framenote::RoundToPixel(pixel.x * enlargement),
                   framenote::RoundToPixel(pixel.y * enlargement));
  double const turn = std::isfinite(angle) ? angle : 0.0;
  setScale(m_range.Scale() / enlargement);
  wxGraphicsContext *const context = m_dc->GetGraphicsContext();
  if (!context || !framenote::DrawLargeLetters(*context, text, at, turn, drawable, colour)) {
    m_dc->SetFont(drawable);
    m_dc->SetTextForeground(colour);
    m_dc->DrawRotatedText(text, at, turn * 180 / kPi);
  }
  setScale(m_range.Scale());
}

void AnnPainterDeviceContext::DrawImage(wxPoint2DDouble const &centre, double width, double height,
                                        double angle, wxBitmap const &bitmap) {
  if (!m_range.CanStretch(bitmap, width, height)) return;
  onTemporaryContext([&](wxGraphicsContext &context) {
    framenote::DrawImage(context, m_range.Point(centre), width, height, angle, bitmap);
  });
}

void AnnPainterDeviceContext::DrawBitmap(wxPoint2DDouble const &topLeft, wxBitmap const &bitmap) {
  if (bitmap.IsOk()) m_dc->DrawBitmap(bitmap, toPixel(bitmapCorner(topLeft)), true);
}

void AnnPainterDeviceContext::GetTextExtent(wxString const &text, wxFont const &font, double &width,
                                            double &height, double &externalLeading) {
  width = height = externalLeading = 0.0;
  if (!font.IsOk()) return;
  setScale(m_range.Scale() / m_range.TextEnlargement(font));
  m_dc->SetFont(m_range.Font(font, 1.0));
  wxCoord lineWidth = 0;
  wxCoord lineHeight = 0;
  wxCoord leading = 0;
  m_dc->GetTextExtent(text, &lineWidth, &lineHeight, nullptr, &leading);
  wxSize const size = m_dc->GetMultiLineTextExtent(text);
  width = size.x;
  height = size.y;
  externalLeading = leading;
  setScale(m_range.Scale());
}
