// SPDX-License-Identifier: MIT
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include <cairo.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include "framenote/annotation_tool.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "painters/ann_painter.h"
#include "side_by_side.h"
#include "talbase/json_conversions.h"

/// What painting costs beside the same primitives drawn with cairo itself.
namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kStrokePoints = 500;
constexpr double kBorder = 5.0;              ///< the default border of a shape
constexpr double kLine = 3.0;                ///< the default width of arrows and strokes
constexpr double kArc = 0.5522847498307933;  ///< control points of a quarter circle

struct Scene {
  std::vector<wxRect> rectangles;
  std::vector<wxRect> ellipses;
  std::vector<std::pair<wxPoint, wxPoint>> arrows;  ///< tail, head
  std::vector<std::vector<wxPoint>> strokes;
};

/// `count` of each kind, at places that are the same in each run.
Scene MakeScene(int count) {
  std::mt19937 random(1);
  auto const upTo = [&random](int limit) { return static_cast<int>(random() % limit); };
  Scene scene;
  for (int i = 0; i < count; ++i) {
    scene.rectangles.emplace_back(upTo(1600), upTo(900), 60 + upTo(200), 60 + upTo(100));
    scene.ellipses.emplace_back(upTo(1600), upTo(900), 60 + upTo(200), 60 + upTo(100));
    wxPoint const tail(200 + upTo(1500), 200 + upTo(700));
    scene.arrows.emplace_back(tail, tail + wxPoint(40 + upTo(100), 40 - upTo(80)));
    std::vector<wxPoint> stroke;
    wxPoint const centre(200 + upTo(1500), 200 + upTo(700));
    for (int k = 0; k < kStrokePoints; ++k) {
      double const turn = k * 0.05;
      stroke.emplace_back(centre.x + static_cast<int>(k * 0.2 * std::cos(turn)),
                          centre.y + static_cast<int>(k * 0.2 * std::sin(turn)));
    }
    scene.strokes.push_back(std::move(stroke));
  }
  return scene;
}

std::shared_ptr<AnnotationTool> MakeTool() {
  auto tool =
      std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
  tool->UpdateMediaInfo({0, 1, false});
  return tool;
}

std::vector<wxPoint2DInt> ToPath(std::vector<wxPoint> const &points) {
  return {points.begin(), points.end()};
}

using Objects = std::vector<std::unique_ptr<IAnnotationObject>>;

Objects MakeObjects(AnnotationTool const &tool, Scene const &scene) {
  ToolModes const &modes = tool.GetToolModes();
  Objects objects;
  modes.shape->m_properties->SetShape(AnnShapeProperties::Rectangle);
  for (wxRect const &rect : scene.rectangles) {
    objects.push_back(std::make_unique<AnnShape>(modes.shape, rect, 0));
  }
  modes.shape->m_properties->SetShape(AnnShapeProperties::Ellipse);
  for (wxRect const &rect : scene.ellipses) {
    objects.push_back(std::make_unique<AnnShape>(modes.shape, rect, 0));
  }
  for (auto const &[tail, head] : scene.arrows) {
    objects.push_back(
        std::make_unique<AnnArrow>(modes.arrow, wxPoint2DInt(head), wxPoint2DInt(tail), 0));
  }
  for (auto const &stroke : scene.strokes) {
    objects.push_back(std::make_unique<AnnPencil>(modes.pencil, ToPath(stroke), 0));
  }
  return objects;
}

void RawRectangle(cairo_t *cr, wxRect const &rect) {
  // As a polyline: a shape may be turned, so its border is never an upright rectangle to a painter.
  double const left = rect.x + kBorder / 2.0;
  double const top = rect.y + kBorder / 2.0;
  double const right = left + rect.width - 1 - kBorder;
  double const bottom = top + rect.height - 1 - kBorder;
  cairo_move_to(cr, left, top);
  cairo_line_to(cr, right, top);
  cairo_line_to(cr, right, bottom);
  cairo_line_to(cr, left, bottom);
  cairo_line_to(cr, left, top);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_SQUARE);
  cairo_set_line_width(cr, kBorder);
  cairo_stroke(cr);
}

void RawEllipsePath(cairo_t *cr, double x, double y, double w, double h) {
  double const rx = w / 2.0;
  double const ry = h / 2.0;
  double const cx = x + rx;
  double const cy = y + ry;
  cairo_move_to(cr, x, cy);
  cairo_curve_to(cr, x, cy - kArc * ry, cx - kArc * rx, y, cx, y);
  cairo_curve_to(cr, cx + kArc * rx, y, x + w, cy - kArc * ry, x + w, cy);
  cairo_curve_to(cr, x + w, cy + kArc * ry, cx + kArc * rx, y + h, cx, y + h);
  cairo_curve_to(cr, cx - kArc * rx, y + h, x, cy + kArc * ry, x, cy);
  cairo_close_path(cr);
}

void RawEllipse(cairo_t *cr, wxRect const &rect) {
  RawEllipsePath(cr, rect.x, rect.y, rect.width - 1, rect.height - 1);
  RawEllipsePath(cr, rect.x + kBorder, rect.y + kBorder, rect.width - 1 - 2.0 * kBorder,
                 rect.height - 1 - 2.0 * kBorder);
  cairo_fill(cr);
}

void RawArrow(cairo_t *cr, wxPoint const &tail, wxPoint const &head) {
  double const length = std::hypot(head.x - tail.x, head.y - tail.y);
  double const dx = (head.x - tail.x) / length;
  double const dy = (head.y - tail.y) / length;
  double const back = 3.0 * kLine;
  double const bx = head.x - dx * back;
  double const by = head.y - dy * back;
  cairo_move_to(cr, tail.x, tail.y);
  cairo_line_to(cr, bx + dx, by + dy);
  cairo_set_line_width(cr, kLine);
  cairo_stroke(cr);
  cairo_move_to(cr, bx + dy * back / 2.0, by - dx * back / 2.0);
  cairo_line_to(cr, head.x, head.y);
  cairo_line_to(cr, bx - dy * back / 2.0, by + dx * back / 2.0);
  cairo_fill(cr);
}

void RawStroke(cairo_t *cr, std::vector<wxPoint> const &points) {
  cairo_move_to(cr, points.front().x, points.front().y);
  for (std::size_t i = 1; i < points.size(); ++i) cairo_line_to(cr, points[i].x, points[i].y);
  cairo_set_line_width(cr, kLine);
  cairo_stroke(cr);
}

void DrawRaw(cairo_t *cr, Scene const &scene) {
  cairo_set_source_rgb(cr, 1.0, 0.0, 0.0);
  cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
  for (wxRect const &rect : scene.rectangles) RawRectangle(cr, rect);
  for (wxRect const &rect : scene.ellipses) RawEllipse(cr, rect);
  for (auto const &[tail, head] : scene.arrows) RawArrow(cr, tail, head);
  // The pen of a stroke has the toolkit's default join and cap.
  cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
  for (auto const &stroke : scene.strokes) RawStroke(cr, stroke);
}

/// A cairo surface of the frame's size and the depth of a bitmap.
class RawSurface {
public:
  RawSurface() : m_surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight)) {}
  RawSurface(RawSurface const &) = delete;
  RawSurface &operator=(RawSurface const &) = delete;
  ~RawSurface() { cairo_surface_destroy(m_surface); }

  void Draw(Scene const &scene) {
    cairo_t *const cr = cairo_create(m_surface);
    DrawRaw(cr, scene);
    cairo_destroy(cr);
    cairo_surface_flush(m_surface);
  }

private:
  cairo_surface_t *m_surface;
};

/// One kind at a time, or all of them, painted on a memory DC.
void PaintScene(benchmark::State &state, Scene const &scene) {
  auto const tool = MakeTool();
  Objects const objects = MakeObjects(*tool, scene);
  wxBitmap bitmap(kWidth, kHeight);
  wxMemoryDC dc(bitmap);
  RawSurface raw;
  framenote::bench::SideBySide(
      state,
      [&] {
        auto painter = IAnnPainter::CreateAnnPainter(IAnnPainter::GraphicsContext, dc, &dc, 1.0);
        for (auto const &object : objects) object->Draw(painter, wxPoint2DDouble(0.0, 0.0));
      },
      [&] { raw.Draw(scene); });
}

void PaintRectangles(benchmark::State &state) {
  Scene scene;
  scene.rectangles = MakeScene(1000).rectangles;
  PaintScene(state, scene);
}

void PaintEllipses(benchmark::State &state) {
  Scene scene;
  scene.ellipses = MakeScene(1000).ellipses;
  PaintScene(state, scene);
}

void PaintArrows(benchmark::State &state) {
  Scene scene;
  scene.arrows = MakeScene(1000).arrows;
  PaintScene(state, scene);
}

void PaintStrokes(benchmark::State &state) {
  Scene scene;
  scene.strokes = MakeScene(1000).strokes;
  PaintScene(state, scene);
}

void PaintAllKinds(benchmark::State &state) {
  PaintScene(state, MakeScene(1000));
}

wxJSONValue DocumentOf(Objects const &objects) {
  wxJSONValue elements(wxJSONTYPE_ARRAY);
  for (auto const &object : objects) elements.Append(object->ToJSON());
  wxJSONValue annotate(wxJSONTYPE_OBJECT);
  annotate.Set("ExtensionColor", wxJSONValue(wxJSONTYPE_NULL));
  annotate.Set("Objects", elements);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set("Annotate", annotate);
  return document;
}

/// A frame with 20 shapes burnt in, beside the bare way of a frame into a bitmap and back with the
/// same primitives drawn by cairo.
void BurnInFrame(benchmark::State &state) {
  auto const tool = MakeTool();
  Scene scene = MakeScene(10);
  scene.arrows.clear();
  scene.strokes.clear();
  tool->FromJSON(DocumentOf(MakeObjects(*tool, scene)), 1);
  wxImage frame(kWidth, kHeight);
  RawSurface raw;
  framenote::bench::SideBySide(
      state,
      [&] {
        benchmark::DoNotOptimize(tool->GetAnnotatedFrame(frame, {0, 1, false}, {}));
      },
      [&] {
        wxBitmap bitmap(frame.GetSize());
        wxMemoryDC dc(bitmap);
        dc.DrawBitmap(wxBitmap(frame), 0, 0);
        dc.SelectObject(wxNullBitmap);
        benchmark::DoNotOptimize(bitmap.ConvertToImage());
        raw.Draw(scene);
      });
}

BENCHMARK(PaintRectangles)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(PaintEllipses)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(PaintArrows)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);
BENCHMARK(PaintStrokes)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(PaintAllKinds)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(9);
BENCHMARK(BurnInFrame)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(31);

}  // namespace
