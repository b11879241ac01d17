// SPDX-License-Identifier: MIT
// View and painting of the canvas.
#include "desktop/canvas.h"

#include <algorithm>
#include <cmath>

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/intl.h>

#include "desktop/theme.h"
#include "framenote/annotation_tool.h"

namespace {

/// From this zoom up pixels are squares.
constexpr double kPixelsZoom = 2.0;

}  // namespace

Canvas::Canvas(wxWindow *parent, wxWindowID id) {
  Create(parent, id, wxDefaultPosition, wxDefaultSize,
         wxHSCROLL | wxVSCROLL | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE);
  SetLayoutDirection(wxLayout_LeftToRight);
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetDoubleBuffered(true);
  SetName(wxGetTranslation("Picture"));
  refreshPixelRatio();
  bindEvents();
}

Canvas::~Canvas() {
  // A bar that still moves ends at once when the window goes: too late for what its events change.
  SetEvtHandlerEnabled(false);
  if (HasCapture()) ReleaseMouse();
}

void Canvas::SetTool(std::shared_ptr<AnnotationTool> tool) {
  m_tool = std::move(tool);
  Refresh();
}

void Canvas::SetPicture(wxImage const &picture, bool isPlaying) {
  m_scaler.SetPicture(picture, isPlaying);
  m_cache = {};
  changeView([&] { m_view.SetPicture(picture.IsOk() ? picture.GetSize() : wxSize(1, 1)); });
}

void Canvas::ZoomIn() {
  changeView([this] { m_view.ZoomBySteps(1, m_view.Centre()); });
}

void Canvas::ZoomOut() {
  changeView([this] { m_view.ZoomBySteps(-1, m_view.Centre()); });
}

void Canvas::ZoomTo(double zoom) {
  changeView([&] { m_view.ZoomTo(zoom, m_view.Centre()); });
}

void Canvas::ZoomToFit() {
  changeView([this] { m_view.Fit(); });
}

void Canvas::CentreOn(wxPoint2DDouble const &onPicture) {
  wxPoint2DDouble const way = m_view.Centre() - m_view.ToWindow(onPicture);
  changeView([&] { m_view.PanBy(way.m_x, way.m_y); });
}

void Canvas::SetShowPixels(bool show) {
  m_showPixels = show;
  m_cache = {};
  Refresh();
}

/// Every change of the view, with what follows from it.
void Canvas::changeView(std::function<void()> const &change) {
  double const zoomBefore = m_view.Zoom();
  change();
  ShowScrollBars(*this, m_view.HorizontalBar(), m_view.VerticalBar());
  Refresh();
  notifyPointer();
  if (m_view.Zoom() != zoomBefore && m_onZoom) m_onZoom(m_view.Zoom());
}

void Canvas::refreshPixelRatio() {
  changeView([this] { m_view.SetPixelRatio(GetContentScaleFactor()); });
}

void Canvas::notifyPointer() {
  if (!m_onPointer) return;
  if (!m_pointer) return m_onPointer(std::nullopt);
  wxPoint2DDouble const place = m_view.ToPicture(wxPoint2DDouble(*m_pointer));
  Pointer pointer;
  pointer.pixel =
      wxPoint(static_cast<int>(std::floor(place.m_x)), static_cast<int>(std::floor(place.m_y)));
  wxImage const &picture = m_scaler.Picture();
  pointer.isOnPicture = picture.IsOk() && wxRect(picture.GetSize()).Contains(pointer.pixel);
  if (pointer.isOnPicture) {
    int const x = pointer.pixel.x, y = pointer.pixel.y;
    pointer.colour = wxColour(picture.GetRed(x, y), picture.GetGreen(x, y), picture.GetBlue(x, y));
  }
  m_onPointer(pointer);
}

// The tool paints on the window itself, over what the DC has painted: a buffered DC would cover it
// when it is shown. The window is double buffered instead.
void Canvas::onPaint() {
  wxPaintDC dc(this);
  dc.SetBackground(wxBrush(SurroundColour()));
  dc.Clear();
  if (m_scaler.Picture().IsOk()) paintPicture(dc);
  if (m_tool) m_tool->Draw(dc, this, m_view.Offset(), m_view.Scale());
}

void Canvas::paintPicture(wxDC &dc) {
  double const ratio = m_view.PixelRatio();
  auto const onScreen = [ratio](int length) { return static_cast<int>(std::ceil(length * ratio)); };
  wxRect const window(0, 0, onScreen(m_view.Window().x), onScreen(m_view.Window().y));
  wxRect const target = window.Intersect(m_view.DeviceArea());
  if (target.IsEmpty()) return;
  updateCache(target);
  // At a whole ratio this is exact: a corner off the window's units is not on the window at all,
  // or the target starts at the window's edge.
  dc.SetUserScale(1.0 / ratio, 1.0 / ratio);
  dc.DrawBitmap(m_cache.bitmap, target.GetPosition());
  dc.SetUserScale(1.0, 1.0);
}

void Canvas::updateCache(wxRect const &target) {
  wxPoint const origin = m_view.DeviceOrigin();
  bool const isSameZoom = m_cache.bitmap.IsOk() && m_cache.zoom == m_view.Zoom();
  if (isSameZoom && m_cache.target == target && m_cache.origin == origin) return;
  wxRect const kept(m_cache.target.GetPosition() + origin - m_cache.origin,
                    isSameZoom ? m_cache.target.GetSize() : wxSize());
  wxRect const overlap = kept.Intersect(target);
  wxBitmap bitmap =
      overlap.IsEmpty() ? rendered(target) : panned(target, overlap, kept.GetPosition());
  m_cache = {bitmap, target, origin, m_view.Zoom()};
}

wxBitmap Canvas::rendered(wxRect const &target) {
  bool const asPixels = m_showPixels && m_view.Zoom() >= kPixelsZoom;
  auto const enlarging =
      asPixels ? PictureScaler::Enlarging::Pixels : PictureScaler::Enlarging::Smooth;
  return wxBitmap(m_scaler.Render(target, m_view.DeviceOrigin(), m_view.Zoom(), enlarging));
}

// While the picture is dragged only what comes into view is scaled.
wxBitmap Canvas::panned(wxRect const &target, wxRect const &overlap, wxPoint const &keptAt) {
  wxBitmap bitmap(target.GetSize());
  wxMemoryDC dc(bitmap);
  dc.DrawBitmap(m_cache.bitmap, keptAt - target.GetPosition());
  int const right = overlap.GetRight() + 1, bottom = overlap.GetBottom() + 1;
  wxRect const bare[] = {{target.x, target.y, target.width, overlap.y - target.y},
                         {target.x, bottom, target.width, target.GetBottom() + 1 - bottom},
                         {target.x, overlap.y, overlap.x - target.x, overlap.height},
                         {right, overlap.y, target.GetRight() + 1 - right, overlap.height}};
  for (wxRect const &strip : bare) {
    if (!strip.IsEmpty()) {
      dc.DrawBitmap(rendered(strip), strip.GetPosition() - target.GetPosition());
    }
  }
  return bitmap;
}
