// SPDX-License-Identifier: MIT
#include "painters/ann_painter_graphics_context.h"

#include <algorithm>
#include <cmath>

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/window.h>

#include "coordinates/pixel_geometry.h"
#include "painters/drawing_tools.h"
#include "painters/graphics_context_routines.h"
#include "painters/large_letters.h"
#include "properties/ann_arrow_properties.h"
#include "properties/ann_shape_properties.h"

namespace {

constexpr double kHalfPixel = 0.5;
constexpr std::size_t kBoxCorners = 4;
constexpr int kThinPen = 1;
/// Circles too small to be seen; the surface could not scale one back and would stop painting.
constexpr double kMinRadius = 1e-3;
constexpr unsigned char kOpaque = 255;
constexpr unsigned char kFocusedAlpha = 0xAA;

std::unique_ptr<wxGraphicsContext> MakeContext(wxObject *surface) {
  wxGraphicsContext *context = nullptr;
  if (auto *const window = dynamic_cast<wxWindow *>(surface)) {
    // A window that is not on the screen has nothing to paint on.
    if (window->GetHandle() && window->IsShownOnScreen()) {
      context = wxGraphicsContext::Create(window);
    }
  } else if (auto const *const memory = dynamic_cast<wxMemoryDC const *>(surface)) {
    context = wxGraphicsContext::Create(*memory);
  }
  return std::unique_ptr<wxGraphicsContext>(context);
}

wxRect ShrunkBy(wxRect const &rect, int thickness) {
  int const width = framenote::UsableThickness(thickness);
  return {rect.x + width, rect.y + width, std::max(0, rect.width - 2 * width),
          std::max(0, rect.height - 2 * width)};
}

void AddShiftedEllipse(wxGraphicsPath &path, wxRect const &rect) {
  if (rect.width <= 0 || rect.height <= 0) return;
  path.AddEllipse(rect.x - kHalfPixel, rect.y - kHalfPixel, rect.width, rect.height);
}

/// An open line with the pen that is set. Not by the context's DrawLines, which joins the last
/// point to the first.
void StrokePath(wxGraphicsContext &context, std::vector<wxPoint2DDouble> const &points) {
  if (points.size() > 1) context.StrokeLines(points.size(), points.data());
}

void SetTools(wxGraphicsContext &context, wxPen const &pen, wxBrush const &brush) {
  context.SetPen(pen);
  context.SetBrush(brush);
}

void DrawArrowHead(wxGraphicsContext &context, std::vector<wxPoint2DDouble> const &head,
                   wxColour const &colour, int thickness) {
  // An odd arrow has its head drawn under an invisible pen rather than filled alone: the pen of
  // width 1 makes the head take part in the half-pixel offset where a context has one.
  if (thickness % 2 == 0) return framenote::FillPolygon(context, head, colour);
  SetTools(context, framenote::ArrowPen(wxColour(0, 0, 0, 0), kThinPen),
           framenote::SolidBrush(colour));
  if (head.size() > 1) context.DrawLines(head.size(), head.data(), wxODDEVEN_RULE);
}

}  // namespace

AnnPainterGraphicsContext::AnnPainterGraphicsContext(wxObject *surface, double scale)
    : m_context(MakeContext(surface)), m_range(framenote::DrawableScale(scale)) {
  if (!m_context) return;
  double const drawable = framenote::DrawableScale(scale);
  m_context->DisableOffset();
  m_context->PushState();
  m_context->Scale(drawable, drawable);
  m_scaled = true;
}

AnnPainterGraphicsContext::~AnnPainterGraphicsContext() {
  AnnPainterGraphicsContext::ResetScale();
}

void AnnPainterGraphicsContext::ResetScale() {
  // A state popped twice would leave the surface unusable.
  if (!m_scaled) return;
  m_context->PopState();
  m_scaled = false;
  m_range = framenote::DrawableRange(1.0);
}

template <typename Action>
void AnnPainterGraphicsContext::onContext(Action action) {
  if (m_context) action(*m_context);
}

/// With the pen and the brush that are set.
void AnnPainterGraphicsContext::drawCircle(wxGraphicsContext &context,
                                           wxPoint2DDouble const &centre, double radius) const {
  wxPoint2DDouble const middle = m_range.Point(centre);
  double const drawable = m_range.Coordinate(radius);
  if (drawable < kMinRadius) return;
  context.DrawEllipse(middle.m_x - drawable, middle.m_y - drawable, 2.0 * drawable, 2.0 * drawable);
}

void AnnPainterGraphicsContext::DrawCircle(wxPoint2DDouble const &centre, double radius,
                                           wxColour const &fill, wxColour const &border) {
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::LinePen(border, kThinPen), framenote::SolidBrush(fill));
    drawCircle(context, centre, radius);
  });
}

void AnnPainterGraphicsContext::DrawCircles(std::vector<wxPoint2DDouble> const &centres,
                                            double radius) {
  onContext([&](wxGraphicsContext &context) {
    for (wxPoint2DDouble const &centre : centres) drawCircle(context, centre, radius);
  });
}

void AnnPainterGraphicsContext::DrawCircleOnStick(wxPoint2DDouble const &foot,
                                                  wxPoint2DDouble const &centre, double radius) {
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::LinePen(wxColour(0, 0, 0, 255), kThinPen),
             framenote::SolidBrush(wxColour(0, 255, 0, 255)));
    StrokePath(context, {m_range.Point(foot), m_range.Point(centre)});
    drawCircle(context, centre, radius);
  });
}

void AnnPainterGraphicsContext::DrawOutline(std::vector<wxPoint2DDouble> const &points,
                                            double radius, bool selected, bool framed) {
  onContext([&](wxGraphicsContext &context) {
    unsigned char const alpha = selected ? kOpaque : kFocusedAlpha;
    context.SetPen(framenote::LinePen(wxColour(0, 0, 0, alpha), kThinPen));
    if (selected && framed && points.size() >= kBoxCorners) {
      context.SetBrush(framenote::NoBrush());
      std::vector<wxPoint2DDouble> frame(points.begin(), points.begin() + kBoxCorners);
      frame.push_back(points.front());
      StrokePath(context, m_range.Points(frame));
    }
    context.SetBrush(framenote::SolidBrush(wxColour(255, 255, 255, alpha)));
    for (wxPoint2DDouble const &point : points) drawCircle(context, point, radius);
  });
}

void AnnPainterGraphicsContext::DrawPolygon(std::vector<wxPoint2DDouble> const &points,
                                            wxColour const &colour) {
  onContext([&](wxGraphicsContext &context) {
    framenote::FillPolygon(context, m_range.Points(points), colour);
  });
}

void AnnPainterGraphicsContext::DrawPolygonWithBorder(std::vector<wxPoint2DDouble> const &outer,
                                                      std::vector<wxPoint2DDouble> const &inner,
                                                      AnnShapeProperties const &properties) {
  DrawPolygon(outer, properties.GetBorderColor());
  DrawPolygon(inner, properties.GetFillColor());
}

void AnnPainterGraphicsContext::DrawBorderOfPolygon(std::vector<wxPoint2DDouble> const &points,
                                                    wxColour const &colour, int thickness) {
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::BorderPen(colour, thickness), framenote::NoBrush());
    StrokePath(context, m_range.Points(points));
  });
}

void AnnPainterGraphicsContext::DrawRectangle(wxRect const &rect, wxColour const &colour) {
  onContext([&](wxGraphicsContext &context) {
    framenote::FillRectangle(context, m_range.Rect(rect), colour);
  });
}

void AnnPainterGraphicsContext::DrawRectangleWithBorder(wxRect const &rect,
                                                        AnnShapeProperties const &properties) {
  wxRect const drawable = m_range.Rect(rect);
  DrawRectangle(drawable, properties.GetBorderColor());
  DrawRectangle(ShrunkBy(drawable, properties.GetThickness()), properties.GetFillColor());
}

void AnnPainterGraphicsContext::DrawBorderOfRectangle(wxRect const &rect, wxColour const &colour,
                                                      int thickness) {
  wxRect const drawable = m_range.Rect(rect);
  if (framenote::IsFilledByBorder(drawable, thickness)) return DrawRectangle(drawable, colour);
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::BorderPen(colour, thickness), framenote::NoBrush());
    wxRect const path = framenote::BorderPath(drawable, thickness);
    context.DrawRectangle(path.x - kHalfPixel, path.y - kHalfPixel, path.width, path.height);
  });
}

void AnnPainterGraphicsContext::DrawEllipseCurves(std::vector<wxPoint2DDouble> const &points,
                                                  wxColour const &colour) {
  onContext([&](wxGraphicsContext &context) {
    framenote::FillEllipseCurves(context, m_range.Points(points), colour);
  });
}

void AnnPainterGraphicsContext::DrawEllipseWithBorderCurves(
    std::vector<wxPoint2DDouble> const &outer, std::vector<wxPoint2DDouble> const &inner,
    AnnShapeProperties const &properties) {
  onContext([&](wxGraphicsContext &context) {
    framenote::DrawEllipseWithBorderCurves(context, m_range.Points(outer), m_range.Points(inner),
                                           properties);
  });
}

void AnnPainterGraphicsContext::DrawBorderOfEllipseCurves(std::vector<wxPoint2DDouble> const &outer,
                                                          std::vector<wxPoint2DDouble> const &inner,
                                                          wxColour const &colour) {
  onContext([&](wxGraphicsContext &context) {
    framenote::FillRing(context, m_range.Points(outer), m_range.Points(inner), colour);
  });
}

void AnnPainterGraphicsContext::DrawEllipse(wxRect const &rect, wxColour const &colour) {
  onContext([&](wxGraphicsContext &context) {
    framenote::FillEllipse(context, m_range.Rect(rect), colour);
  });
}

void AnnPainterGraphicsContext::DrawEllipseWithBorder(wxRect const &rect,
                                                      AnnShapeProperties const &properties) {
  wxRect const drawable = m_range.Rect(rect);
  DrawEllipse(drawable, properties.GetBorderColor());
  DrawEllipse(ShrunkBy(drawable, properties.GetThickness()), properties.GetFillColor());
}

void AnnPainterGraphicsContext::DrawBorderOfEllipse(wxRect const &rect, wxColour const &colour,
                                                    int thickness) {
  onContext([&](wxGraphicsContext &context) {
    wxRect const drawable = m_range.Rect(rect);
    SetTools(context, framenote::NoPen(), framenote::SolidBrush(colour));
    wxGraphicsPath path = context.CreatePath();
    AddShiftedEllipse(path, drawable);
    AddShiftedEllipse(path, ShrunkBy(drawable, thickness));
    context.FillPath(path, wxODDEVEN_RULE);
  });
}

void AnnPainterGraphicsContext::DrawArrow(std::vector<wxPoint2DDouble> const &body,
                                          std::vector<wxPoint2DDouble> const &head,
                                          AnnArrowProperties const &properties) {
  onContext([&](wxGraphicsContext &context) {
    wxColour const colour = properties.GetColor();
    int const thickness = properties.GetThickness();
    SetTools(context, framenote::ArrowPen(colour, thickness), framenote::NoBrush());
    StrokePath(context, m_range.Points(body));
    if (properties.GetHead() != AnnArrowProperties::Arrow) return;
    DrawArrowHead(context, m_range.Points(head), colour, thickness);
  });
}

void AnnPainterGraphicsContext::DrawLine(wxPoint2DDouble const &from, wxPoint2DDouble const &to,
                                         wxColour const &colour, int width) {
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::LinePen(colour, width), framenote::NoBrush());
    wxPoint2DDouble const start = m_range.Point(from);
    wxPoint2DDouble const end = m_range.Point(to);
    context.StrokeLine(start.m_x, start.m_y, end.m_x, end.m_y);
  });
}

void AnnPainterGraphicsContext::DrawLines(std::vector<wxPoint2DDouble> const &points,
                                          wxColour const &colour, int width) {
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::LinePen(colour, width), framenote::NoBrush());
    StrokePath(context, m_range.Points(points));
  });
}

void AnnPainterGraphicsContext::DrawText(wxPoint2DDouble const &position, double angle,
                                         wxString const &text, wxFont const &font,
                                         wxColour const &colour) {
  if (!font.IsOk() || !colour.IsOk()) return;
  onContext([&](wxGraphicsContext &context) {
    SetTools(context, framenote::NoPen(), framenote::NoBrush());
    double const enlargement = m_range.TextEnlargement(font);
    wxPoint2DDouble const topLeft = m_range.Point(position);
    context.PushState();
    context.Translate(topLeft.m_x, topLeft.m_y);
    context.Scale(1.0 / enlargement, 1.0 / enlargement);
    wxFont const drawable = m_range.Font(font, enlargement);
    double const turn = std::isfinite(angle) ? angle : 0.0;
    if (!framenote::DrawLargeLetters(context, text, {0.0, 0.0}, turn, drawable, colour)) {
      context.SetFont(drawable, colour);
      context.DrawText(text, 0.0, 0.0, turn);
    }
    context.PopState();
  });
}

void AnnPainterGraphicsContext::DrawImage(wxPoint2DDouble const &centre, double width,
                                          double height, double angle, wxBitmap const &bitmap) {
  if (!m_range.CanStretch(bitmap, width, height)) return;
  onContext([&](wxGraphicsContext &context) {
    framenote::DrawImage(context, m_range.Point(centre), width, height, angle, bitmap);
  });
}

void AnnPainterGraphicsContext::DrawBitmap(wxPoint2DDouble const &topLeft, wxBitmap const &bitmap) {
  if (!bitmap.IsOk()) return;
  onContext([&](wxGraphicsContext &context) {
    wxPoint2DDouble const corner = m_range.Point(bitmapCorner(topLeft));
    context.DrawBitmap(bitmap, corner.m_x, corner.m_y, bitmap.GetWidth(), bitmap.GetHeight());
  });
}

void AnnPainterGraphicsContext::GetTextExtent(wxString const &text, wxFont const &font,
                                              double &width, double &height,
                                              double &externalLeading) {
  width = height = externalLeading = 0.0;
  if (!font.IsOk()) return;
  onContext([&](wxGraphicsContext &context) {
    double const enlargement = m_range.TextEnlargement(font);
    context.PushState();
    context.Scale(1.0 / enlargement, 1.0 / enlargement);
    context.SetFont(m_range.Font(font, 1.0), *wxBLACK);
    context.GetTextExtent(text, &width, &height, nullptr, &externalLeading);
    context.PopState();
  });
}
