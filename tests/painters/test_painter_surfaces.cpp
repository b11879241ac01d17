// SPDX-License-Identifier: MIT
// Making painters, their scale, and the surfaces they paint on.
#include <wx/dcclient.h>
#include <wx/dcgraph.h>
#include <wx/frame.h>

#include "painters/ann_painter_device_context.h"
#include "painters/ann_painter_graphics_context.h"
#include "painters/painter_fixture.h"
#include "properties/ann_arrow_properties.h"

namespace framenote::pixels {
namespace {

class PainterSurfaces : public BothPainters {};
FRAMENOTE_WITH_BOTH_PAINTERS(PainterSurfaces);

/// Even widths and whole coordinates, so that neither rounding nor the half pixel that a DC moves
/// odd pens by comes in.
void PaintScene(IAnnPainter &painter) {
  painter.DrawPolygon({{2, 2}, {22, 6}, {12, 22}}, ToColour(kRed));
  painter.DrawEllipseCurves(CornersAndMiddles(24, 2, 46, 18), ToColour(kGreen));
  painter.DrawBorderOfEllipseCurves(CornersAndMiddles(24, 22, 46, 44), Corners(28, 26, 42, 40),
                                    ToColour(kBlue));
  painter.DrawLine({4, 44}, {20, 28}, ToColour(kBlack), 2);
  painter.DrawLines({{2, 30}, {8, 24}, {14, 30}}, ToColour(kRed), 4);
  AnnArrowProperties arrow;
  arrow.SetColor(ToColour(kBlue));
  arrow.SetThickness(4);
  painter.DrawArrow({{4, 50}, {30, 50}}, {{30, 44}, {42, 50}, {30, 56}}, arrow);
}

TEST(PainterScale, BothBackEndsPaintTheSameSceneAtAnyZoom) {
  for (double const scale : {0.5, 1.0, 3.0}) {
    int const side = static_cast<int>(60 * scale);
    wxImage const one = Painted(IAnnPainter::DeviceContext, {side, side}, scale, PaintScene);
    wxImage const other = Painted(IAnnPainter::GraphicsContext, {side, side}, scale, PaintScene);
    EXPECT_GT(CountWhere(one, [](Rgb const &c) { return !(c == kWhite); }), side * side / 5);
    EXPECT_TRUE(Alike(one, other, 3)) << "at scale " << scale;
  }
}

TEST(PainterScale, RectanglesAndEllipsesDifferByHalfAPixelOfThePicture) {
  auto const paint = [](IAnnPainter &painter) {
    painter.DrawRectangleWithBorder({4, 4, 20, 20}, Look(kRed, kBlue, 4));
    painter.DrawEllipse({30, 4, 20, 20}, ToColour(kRed));
  };
  for (double const scale : {0.5, 1.0, 3.0}) {
    int const side = static_cast<int>(60 * scale);
    wxImage const one = Painted(IAnnPainter::DeviceContext, {side, side}, scale, paint);
    wxImage const other = Painted(IAnnPainter::GraphicsContext, {side, side}, scale, paint);
    wxRect const a = BoundsOfPaint(one);
    wxRect const b = BoundsOfPaint(other);
    // Beside that half pixel, a DC's bordered rectangle ends one pixel early.
    double const slack = scale * 1.5 + 1;
    EXPECT_NEAR(a.x, b.x, slack) << scale;
    EXPECT_NEAR(a.y, b.y, slack) << scale;
    EXPECT_NEAR(a.GetRight(), b.GetRight(), slack) << scale;
    EXPECT_NEAR(a.GetBottom(), b.GetBottom(), slack) << scale;
    // The fill is 12 by 12, and a picture and a surface pixel smaller at most.
    EXPECT_NEAR(CountOf(one, kBlue, 127), CountOf(other, kBlue, 127), 24 * scale * (scale + 1))
        << scale;
  }
}

TEST_P(PainterSurfaces, ScaleMultipliesPicturePixels) {
  wxImage const image = Painted(GetParam(), {40, 40}, 3.0, [](IAnnPainter &painter) {
    painter.DrawPolygon(Corners(1, 2, 7, 9), ToColour(kRed));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(3, 6, 18, 21));
}

TEST_P(PainterSurfaces, ResetScaleReturnsToSurfacePixels) {
  wxImage const image = Painted(GetParam(), {40, 40}, 3.0, [](IAnnPainter &painter) {
    painter.ResetScale();
    painter.DrawPolygon(Corners(1, 2, 7, 9), ToColour(kRed));
    painter.DrawEllipseCurves(CornersAndMiddles(10, 10, 20, 20), ToColour(kBlue));
  });
  EXPECT_EQ(BoundsOf(image, kRed), wxRect(1, 2, 6, 7));
  EXPECT_EQ(BoundsOfPaint(image), wxRect(1, 2, 19, 18));
}

TEST_P(PainterSurfaces, ResetScaleTwiceIsHarmless) {
  wxImage const image = Painted(GetParam(), {40, 40}, 3.0, [](IAnnPainter &painter) {
    painter.ResetScale();
    painter.ResetScale();
    painter.DrawPolygon(Corners(1, 2, 7, 9), ToColour(kRed));
  });
  EXPECT_EQ(BoundsOfPaint(image), wxRect(1, 2, 6, 7));
}

TEST_P(PainterSurfaces, MoveWithTheOriginThatTheHostSet) {
  wxBitmap bitmap(60, 60, 24);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  dc.SetDeviceOrigin(10, 20);
  {
    auto const painter = IAnnPainter::CreateAnnPainter(GetParam(), dc, &dc, 2.0);
    painter->DrawPolygon(Corners(0, 0, 5, 5), ToColour(kRed));
    painter->DrawEllipseCurves(CornersAndMiddles(10, 0, 20, 10), ToColour(kBlue));
  }
  dc.SelectObject(wxNullBitmap);
  wxImage const image = bitmap.ConvertToImage();
  EXPECT_EQ(BoundsOf(image, kRed), wxRect(10, 20, 10, 10));
  EXPECT_EQ(BoundsOf(image, kBlue, 127), wxRect(30, 20, 20, 20));
}

TEST(CreateAnnPainter, MakesThePainterOfTheType) {
  wxBitmap bitmap(4, 4, 24);
  wxMemoryDC dc(bitmap);
  auto const device = IAnnPainter::CreateAnnPainter(IAnnPainter::DeviceContext, dc, nullptr, 1.0);
  EXPECT_NE(dynamic_cast<AnnPainterDeviceContext *>(device.get()), nullptr);
  auto const graphics = IAnnPainter::CreateAnnPainter(IAnnPainter::GraphicsContext, dc, &dc, 1.0);
  EXPECT_NE(dynamic_cast<AnnPainterGraphicsContext *>(graphics.get()), nullptr);
}

TEST(CreateAnnPainter, TypesHaveTheValuesOfTheConfiguration) {
  EXPECT_EQ(static_cast<int>(IAnnPainter::GraphicsContext), 0);
  EXPECT_EQ(static_cast<int>(IAnnPainter::DeviceContext), 1);
}

TEST(CreateAnnPainter, UnknownTypeGivesNone) {
  wxBitmap bitmap(4, 4, 24);
  wxMemoryDC dc(bitmap);
  for (int const value : {2, 7, -1}) {
    auto const type = static_cast<IAnnPainter::AnnPainterType>(value);
    EXPECT_EQ(IAnnPainter::CreateAnnPainter(type, dc, &dc, 1.0), nullptr) << value;
  }
}

TEST(DeviceContextPainter, LeavesTheScaleOfTheDcSet) {
  wxBitmap bitmap(4, 4, 24);
  wxMemoryDC dc(bitmap);
  IAnnPainter::CreateAnnPainter(IAnnPainter::DeviceContext, dc, nullptr, 2.5).reset();
  double x = 0;
  double y = 0;
  dc.GetUserScale(&x, &y);
  EXPECT_EQ(x, 2.5);
  EXPECT_EQ(y, 2.5);
}

TEST(GraphicsContextPainter, LeavesTheSurfaceUnscaled) {
  wxBitmap bitmap(40, 40, 24);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  IAnnPainter::CreateAnnPainter(IAnnPainter::GraphicsContext, dc, &dc, 3.0).reset();
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(*wxRED_BRUSH);
  dc.DrawRectangle(2, 2, 5, 5);
  dc.SelectObject(wxNullBitmap);
  EXPECT_EQ(BoundsOf(bitmap.ConvertToImage(), kRed), wxRect(2, 2, 5, 5));
}

void CallEveryOperation(IAnnPainter &painter) {
  AnnArrowProperties const arrow;
  AnnShapeProperties const look = Look(kRed, kBlue, 3);
  Points const corners = Corners(2, 2, 9, 9);
  Points const box = CornersAndMiddles(2, 2, 9, 9);
  wxColour const red = ToColour(kRed);
  wxBitmap const bitmap(4, 4, 24);
  painter.DrawCircle({5, 5}, 3, red, red);
  painter.DrawCircles(corners, 3);
  painter.DrawCircleOnStick({5, 5}, {9, 9}, 3);
  painter.DrawOutline(box, 3, true, true);
  painter.DrawPolygon(corners, red);
  painter.DrawPolygonWithBorder(corners, corners, look);
  painter.DrawBorderOfPolygon(corners, red, 3);
  painter.DrawRectangle({1, 1, 8, 8}, red);
  painter.DrawRectangleWithBorder({1, 1, 8, 8}, look);
  painter.DrawBorderOfRectangle({1, 1, 8, 8}, red, 3);
  painter.DrawEllipseCurves(box, red);
  painter.DrawEllipseWithBorderCurves(box, corners, look);
  painter.DrawBorderOfEllipseCurves(box, corners, red);
  painter.DrawEllipse({1, 1, 8, 8}, red);
  painter.DrawEllipseWithBorder({1, 1, 8, 8}, look);
  painter.DrawBorderOfEllipse({1, 1, 8, 8}, red, 3);
  painter.DrawArrow(corners, corners, arrow);
  painter.DrawLine({1, 1}, {9, 9}, red, 3);
  painter.DrawLines(corners, red, 3);
  painter.DrawText({1, 1}, 0.0, "H", *wxNORMAL_FONT, red);
  painter.DrawImage({5, 5}, 4, 4, 0.0, bitmap);
  painter.DrawBitmap({1, 1}, bitmap);
  painter.ResetScale();
}

TEST(GraphicsContextPainter, OnAWrongKindOfSurfacePaintsNothing) {
  wxBitmap bitmap(20, 20, 24);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  wxFont notASurface = *wxNORMAL_FONT;
  wxFrame hidden(nullptr, wxID_ANY, "hidden");
  wxWindow neverCreated;
  std::initializer_list<wxObject *> const surfaces = {nullptr, &notASurface, &hidden,
                                                      &neverCreated};
  for (wxObject *const surface : surfaces) {
    AnnPainterGraphicsContext painter(surface, 2.0);
    CallEveryOperation(painter);
    double width = -1;
    double height = -1;
    double leading = -1;
    painter.GetTextExtent("H", *wxNORMAL_FONT, width, height, leading);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    EXPECT_EQ(leading, 0);
  }
  dc.SelectObject(wxNullBitmap);
  EXPECT_TRUE(BoundsOfPaint(bitmap.ConvertToImage()).IsEmpty());
}

TEST(DeviceContextPainter, OnADcWithoutAContextPaintsTheRest) {
  wxBitmap bitmap(20, 20, 24);
  wxMemoryDC memory(bitmap);
  memory.SetBackground(*wxWHITE_BRUSH);
  memory.Clear();
  {
    wxGCDC dc(memory);
    AnnPainterDeviceContext painter(dc, 1.0);
    painter.DrawEllipseCurves(CornersAndMiddles(0, 0, 20, 20), ToColour(kBlue));
    painter.DrawPolygon(Corners(2, 2, 9, 9), ToColour(kRed));
  }
  memory.SelectObject(wxNullBitmap);
  wxImage const image = bitmap.ConvertToImage();
  EXPECT_EQ(BoundsOfPaint(image), wxRect(2, 2, 7, 7));
  EXPECT_EQ(CountOf(image, kBlue), 0);
}

/// A window that paints a square and an ellipse through a painter and remembers that it did.
class PaintedFrame : public wxFrame {
public:
  explicit PaintedFrame(IAnnPainter::AnnPainterType type)
      : wxFrame(nullptr, wxID_ANY, "painted", {0, 0}, {120, 120}, wxBORDER_NONE), m_type(type) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, [this](wxPaintEvent &) { paint(); });
  }

  bool HasPainted() const { return m_painted; }

private:
  void paint() {
    wxPaintDC dc(this);
    dc.SetBackground(*wxWHITE_BRUSH);
    dc.Clear();
    auto const painter = IAnnPainter::CreateAnnPainter(m_type, dc, this, 2.0);
    painter->DrawPolygon(Corners(5, 5, 15, 15), ToColour(kRed));
    painter->DrawEllipseCurves(CornersAndMiddles(20, 20, 30, 30), ToColour(kBlue));
    m_painted = true;
  }

  IAnnPainter::AnnPainterType m_type;
  bool m_painted = false;
};

wxImage ShownPixels(wxWindow &window, wxSize const &size) {
  wxBitmap bitmap(size, 24);
  wxMemoryDC memory(bitmap);
  wxClientDC client(&window);
  memory.Blit({0, 0}, size, &client, {0, 0});
  memory.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

TEST_P(PainterSurfaces, PaintOnAWindow) {
  PaintedFrame frame(GetParam());
  frame.Show();
  wxImage image;
  for (int i = 0; i < 100; ++i) {
    wxYield();
    image = ShownPixels(frame, {80, 80});
    if (frame.HasPainted() && CountOf(image, kRed) > 0) break;
    wxMilliSleep(20);
  }
  ASSERT_TRUE(frame.HasPainted());
  EXPECT_EQ(BoundsOf(image, kRed), wxRect(10, 10, 20, 20));
  EXPECT_EQ(BoundsOf(image, kBlue, 127), wxRect(40, 40, 20, 20));
}

}  // namespace
}  // namespace framenote::pixels
