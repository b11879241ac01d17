// SPDX-License-Identifier: MIT
// Where the text stands in its box: by the pixels that are inked.
#include <cmath>
#include <mutex>
#include <string>
#include <tuple>
#include <vector>

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/frame.h>
#include <wx/graphics.h>

#include <gtest/gtest.h>

#include "modes/ann_text_tool_mode.h"
#include "objects/ann_text.h"
#include "objects/object_support.h"

namespace framenote::test {

namespace {

using pixels::BoundsOfPaint;

constexpr double kPi = 3.141592653589793;
constexpr int kSide = 420;

wxFont LetterFont() {
  return wxFont(wxFontInfo(20).FaceName("DejaVu Sans"));
}

/// A line of text by itself: its size, and the pixels it inks, from its top left corner.
struct Line {
  wxSize size;
  std::vector<wxPoint> ink;
};

/// Drawn with the toolkit alone, upright.
Line DrawnLine(wxString const &text) {
  constexpr int kMargin = 30;
  wxBitmap bitmap(wxSize(kSide, 100), 24);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  dc.SetFont(LetterFont());
  dc.DrawText(text, kMargin, kMargin);
  Line line;
  line.size = dc.GetTextExtent(text);
  dc.SelectObject(wxNullBitmap);
  wxImage const image = bitmap.ConvertToImage();
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      if (image.GetRed(x, y) < 255) line.ink.emplace_back(x - kMargin, y - kMargin);
    }
  }
  return line;
}

/// Whether each edge of `painted` is within two pixels of `expected`.
testing::AssertionResult Within2(wxRect const &painted, wxRect const &expected) {
  wxPoint const first = painted.GetTopLeft() - expected.GetTopLeft();
  wxPoint const last = painted.GetBottomRight() - expected.GetBottomRight();
  for (int const difference : {first.x, first.y, last.x, last.y}) {
    if (std::abs(difference) <= 2 && !painted.IsEmpty()) continue;
    return testing::AssertionFailure()
           << "(" << painted.x << ", " << painted.y << ", " << painted.width << ", "
           << painted.height << ") instead of (" << expected.x << ", " << expected.y << ", "
           << expected.width << ", " << expected.height << ")";
  }
  return testing::AssertionSuccess();
}

/// A box with the corners (90, 120) and (330, 300), two lines, one of the painters, and an angle.
class AnnTextLayout : public ObjectTest, public testing::WithParamInterface<std::tuple<bool, int>> {
protected:
  static constexpr int kLeft = 90, kTop = 120, kRight = 330, kBottom = 300;

  AnnTextLayout() {
    AnnTextProperties &look = *Modes().text->m_properties;
    look.SetFont(LetterFont());
    look.SetBackgroundColor(wxColour(255, 255, 255, 0));
  }

  AnnText Box(wxString const &text) {
    AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(kLeft, kTop), wxPoint(kRight, kBottom)),
                0);
    box.SetTextAndParse(text, {});
    return box;
  }

  static double Angle() { return std::get<1>(GetParam()) * kPi / 180.0; }

  /// Turns a box about its middle by dragging its handle far out, so that the angle is exact.
  static void Turn(AnnText &box, double angle) {
    constexpr double kFar = 1e6;
    box.RememberCurrentPosition();
    box.Rotate(wxPoint(static_cast<int>(std::lround(210 + kFar * std::sin(angle))),
                       static_cast<int>(std::lround(210 - kFar * std::cos(angle)))));
  }

  /// What is inked by `lines`, their tops and lefts given in the upright box, when the box is
  /// turned about its middle (210, 210).
  static wxRect TurnedInk(std::vector<Line> const &lines, std::vector<wxRealPoint> const &places) {
    wxRect bounds;
    double const c = std::cos(Angle());
    double const s = std::sin(Angle());
    for (std::size_t i = 0; i < lines.size(); ++i) {
      for (wxPoint const &pixel : lines[i].ink) {
        double const x = places[i].x + pixel.x - 210;
        double const y = places[i].y + pixel.y - 210;
        bounds.Union(wxRect(static_cast<int>(std::floor(210 + x * c - y * s + 0.5)),
                            static_cast<int>(std::floor(210 + x * s + y * c + 0.5)), 1, 1));
      }
    }
    return bounds;
  }

  static wxImage Paint(AnnText const &box) {
    auto const type =
        std::get<0>(GetParam()) ? IAnnPainter::DeviceContext : IAnnPainter::GraphicsContext;
    return PaintedBy(type, wxSize(kSide, kSide), 1.0,
                     [&](auto &painter) { box.Draw(painter, wxPoint2DDouble(0.0, 0.0)); });
  }
};

std::string CaseName(testing::TestParamInfo<std::tuple<bool, int>> const &parameter) {
  auto const [withDeviceContext, degrees] = parameter.param;
  return (withDeviceContext ? "DeviceContextAt" : "GraphicsContextAt") + std::to_string(degrees);
}

INSTANTIATE_TEST_SUITE_P(, AnnTextLayout,
                         testing::Combine(testing::Bool(), testing::Values(0, 90, 37)), CaseName);

TEST_P(AnnTextLayout, EachLineIsAlignedByItsWidthAndTheBlockByItsHeight) {
  Line const first = DrawnLine("Plate");
  Line const second = DrawnLine("reading 17");
  for (int const across : {0, 1, 2}) {
    for (int const down : {0, 1, 2}) {
      AnnTextProperties &look = *Modes().text->m_properties;
      look.SetHorizontalAlignment(static_cast<AnnTextProperties::HorizontalAlignment>(across));
      look.SetVerticalAlignment(static_cast<AnnTextProperties::VerticalAlignment>(down));
      // Two lines of a string are one element; a control or a document gives two.
      wxJSONValue json = Box("").ToJSON();
      json.Set(AnnText::textLinesKey, wxString(R"(["Plate","reading 17"])"));
      AnnText restored(Modes().shape, Modes().text, json);
      restored.ParseTextLines({});
      Turn(restored, Angle());
      double const room = kBottom - kTop - first.size.y - second.size.y;
      double const top = kTop + room * down * 0.5;
      auto const left = [&](Line const &line) {
        return kLeft + (kRight - kLeft - line.size.x) * across * 0.5;
      };
      wxRect const expected =
          TurnedInk({first, second}, {{left(first), top}, {left(second), top + first.size.y}});
      EXPECT_TRUE(Within2(BoundsOfPaint(Paint(restored)), expected))
          << "alignments " << across << " and " << down;
    }
  }
}

TEST_P(AnnTextLayout, MirroredBoxKeepsItsTextInside) {
  // The right side goes past the left one: the letters stay upright along the same direction.
  AnnText box = Box("Plate");
  Turn(box, Angle());
  box.RememberCurrentPosition();
  wxStockCursor cursor = wxCURSOR_NONE;
  AnnShapePoints const before = RecordOf(box);
  wxPoint2DInt const handle(IAnnotationObject::GetRounded(before.m_rightResizePoint));
  ASSERT_TRUE(box.IsAtResizePoint(handle, cursor));
  // By one and a half widths toward the left.
  wxPoint2DDouble const width = before.m_topRight - before.m_topLeft;
  wxPoint2DDouble const target = before.m_rightResizePoint - width * 1.5;
  box.ResizeTo(wxPoint2DInt(IAnnotationObject::GetRounded(target)), false);
  EXPECT_TRUE(box.IsReflected(RecordOf(box)));
  Line const line = DrawnLine("Plate");
  // Upright the box now spans 90 - 120 to 90, and the text is centred in it.
  wxRect const expected = TurnedInk({line}, {{30 - line.size.x * 0.5, 210 - line.size.y * 0.5}});
  wxRect const visible = expected.Intersect(wxRect(0, 0, kSide, kSide));
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), visible));
}

TEST_P(AnnTextLayout, TurningUpsideDownByAResizeTurnsTheText) {
  AnnText box = Box("Plate");
  box.RememberCurrentPosition();
  wxStockCursor cursor = wxCURSOR_NONE;
  ASSERT_TRUE(box.IsAtResizePoint(wxPoint2DInt(210, 300), cursor));
  box.ResizeTo(wxPoint2DInt(210, 20), false);
  // The bottom is at 20 now, so the middle is at 70, and each pixel is turned by half a turn.
  Line const line = DrawnLine("Plate");
  wxRect expected;
  for (wxPoint const &pixel : line.ink) {
    double const x = 210 - line.size.x * 0.5 + pixel.x;
    double const y = 70 - line.size.y * 0.5 + pixel.y;
    expected.Union(wxRect(wxRound(420 - x), wxRound(140 - y), 1, 1));
  }
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected));
}

TEST_P(AnnTextLayout, TextHigherThanItsBoxRisesAboveIt) {
  AnnTextProperties &look = *Modes().text->m_properties;
  look.SetVerticalAlignment(AnnTextProperties::Bottom);
  AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(90, 250), wxPoint(330, 260)), 0);
  box.SetTextAndParse("Plate", {});
  Line const line = DrawnLine("Plate");
  wxRect expected;
  for (wxPoint const &pixel : line.ink) {
    expected.Union(
        wxRect(wxRound(210 - line.size.x * 0.5) + pixel.x, 260 - line.size.y + pixel.y, 1, 1));
  }
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected));
  EXPECT_LT(expected.y, 250);
}

TEST_P(AnnTextLayout, EmptyLineTakesTheHeightOfABlankAndDrawsNothing) {
  AnnTextProperties &look = *Modes().text->m_properties;
  look.SetVerticalAlignment(AnnTextProperties::Top);
  wxJSONValue json = Box("").ToJSON();
  json.Set(AnnText::textLinesKey, wxString(R"(["","","Plate"])"));
  AnnText box(Modes().shape, Modes().text, json);
  box.ParseTextLines({});
  Turn(box, Angle());
  Line const line = DrawnLine("Plate");
  Line const blank = DrawnLine(" ");
  wxRect const expected = TurnedInk({line}, {{210 - line.size.x * 0.5, kTop + 2.0 * blank.size.y}});
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected));
}

TEST_P(AnnTextLayout, CollapsedBoxTakesTheDirectionFromItsOtherSide) {
  // No height: the text is centred on the line, half of it to either side.
  AnnText flat(Modes().shape, Modes().text, wxRect(wxPoint(90, 210), wxPoint(330, 210)), 0);
  flat.SetTextAndParse("Plate", {});
  ASSERT_TRUE(flat.IsXLine(RecordOf(flat)));
  Turn(flat, Angle());
  Line const line = DrawnLine("Plate");
  wxRect const expected = TurnedInk({line}, {{210 - line.size.x * 0.5, 210 - line.size.y * 0.5}});
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(flat)), expected));
  // No width.
  AnnText narrow(Modes().shape, Modes().text, wxRect(wxPoint(210, 120), wxPoint(210, 300)), 0);
  narrow.SetTextAndParse("Plate", {});
  ASSERT_TRUE(narrow.IsYLine(RecordOf(narrow)));
  wxRect upright;
  for (wxPoint const &pixel : line.ink) {
    upright.Union(wxRect(wxRound(210 - line.size.x * 0.5) + pixel.x,
                         wxRound(210 - line.size.y * 0.5) + pixel.y, 1, 1));
  }
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(narrow)), upright));
}

TEST_P(AnnTextLayout, LineFeedsWithinAnElementMakeABlockThatIsAlignedAsOne) {
  AnnTextProperties &look = *Modes().text->m_properties;
  Line const first = DrawnLine("Plate");
  Line const second = DrawnLine("reading 17");
  for (int const across : {0, 1, 2}) {
    look.SetHorizontalAlignment(static_cast<AnnTextProperties::HorizontalAlignment>(across));
    AnnText box = Box("Plate\nreading 17");
    ASSERT_EQ(box.GetTextLines().size(), 1U);
    Turn(box, Angle());
    // Within the block, which is as wide as its widest line, both lines begin at its left.
    double const left = kLeft + (kRight - kLeft - second.size.x) * across * 0.5;
    double const top = 210 - (first.size.y + second.size.y) * 0.5;
    wxRect const expected = TurnedInk({first, second}, {{left, top}, {left, top + first.size.y}});
    EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected)) << "alignment " << across;
  }
}

TEST_P(AnnTextLayout, MirroredBoxIsFilledFromTheSideThatIsLeftOnTheScreen) {
  AnnTextProperties &look = *Modes().text->m_properties;
  Line const line = DrawnLine("Plate");
  for (int const across : {0, 1, 2}) {
    look.SetHorizontalAlignment(static_cast<AnnTextProperties::HorizontalAlignment>(across));
    AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(210, 120), wxPoint(330, 300)), 0);
    box.SetTextAndParse("Plate", {});
    box.PrepareResizing();
    wxStockCursor cursor = wxCURSOR_NONE;
    ASSERT_TRUE(box.IsAtResizePoint({330, 210}, cursor));
    box.ResizeTo({90, 210}, false);
    ASSERT_TRUE(At(RecordOf(box).m_topRight, 90, 120));
    // The box now spans 90 to 210.
    double const left = 90 + (120 - line.size.x) * across * 0.5;
    wxRect expected;
    for (wxPoint const &pixel : line.ink) {
      expected.Union(
          wxRect(wxRound(left) + pixel.x, wxRound(210 - line.size.y * 0.5) + pixel.y, 1, 1));
    }
    EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected)) << "alignment " << across;
    // The corners get their names back when the button is released: nothing moves.
    {
      std::lock_guard<std::mutex> const lock(box.GetCoordinatesMutex());
      box.CheckIfReflectedAlongAxis(lock, true);
    }
    ASSERT_TRUE(At(RecordOf(box).m_topLeft, 90, 120));
    EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected)) << "released, " << across;
    box.MoveFor({10, 20});
    expected.Offset(10, 20);
    EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected)) << "moved, " << across;
  }
}

TEST_P(AnnTextLayout, CornerDraggedPastTheOppositeOneTurnsTheTextByHalfATurn) {
  AnnTextProperties &look = *Modes().text->m_properties;
  look.SetHorizontalAlignment(AnnTextProperties::Left);
  look.SetVerticalAlignment(AnnTextProperties::Top);
  AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(250, 250), wxPoint(400, 350)), 0);
  box.SetTextAndParse("Plate", {});
  box.PrepareResizing();
  wxStockCursor cursor = wxCURSOR_NONE;
  ASSERT_TRUE(box.IsAtResizePoint({400, 350}, cursor));
  box.ResizeTo({50, 100}, false);
  EXPECT_FALSE(box.IsReflected(RecordOf(box)));
  // The text begins at the corner that stayed and runs to the left, its lines going up.
  wxRect expected;
  for (wxPoint const &pixel : DrawnLine("Plate").ink) {
    expected.Union(wxRect(250 - pixel.x, 250 - pixel.y, 1, 1));
  }
  EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected));
}

TEST_P(AnnTextLayout, TextWiderThanItsBoxComesOutWhereTheAlignmentLetsIt) {
  AnnTextProperties &look = *Modes().text->m_properties;
  Line const line = DrawnLine("reading 17");
  ASSERT_GT(line.size.x, 60);
  for (int const across : {0, 1, 2}) {
    look.SetHorizontalAlignment(static_cast<AnnTextProperties::HorizontalAlignment>(across));
    AnnText box(Modes().shape, Modes().text, wxRect(wxPoint(180, 180), wxPoint(240, 240)), 0);
    box.SetTextAndParse("reading 17", {});
    Turn(box, Angle());
    double const left = 180 + (60 - line.size.x) * across * 0.5;
    wxRect const expected = TurnedInk({line}, {{left, 210 - line.size.y * 0.5}});
    EXPECT_TRUE(Within2(BoundsOfPaint(Paint(box)), expected)) << "alignment " << across;
  }
}

/// The same box on a tool that has a window, in which texts are measured.
class AnnTextOnAWindow : public ObjectTest {
protected:
  AnnTextOnAWindow() : m_window(new wxFrame(nullptr, wxID_ANY, "")) {  // destroyed below
    Look().SetFont(LetterFont());
    wxClientDC dc(m_window);
    m_driver.Tool().Draw(dc, m_window, wxPoint2DDouble(0.0, 0.0), 1.0);
  }
  ~AnnTextOnAWindow() override {
    m_driver.Tool().Reset(false);
    m_window->Destroy();
  }

  AnnTextProperties &Look() { return *Modes().text->m_properties; }

  AnnText Box(wxPoint const &topLeft, wxPoint const &bottomRight) {
    AnnText box(Modes().shape, Modes().text, wxRect(topLeft, bottomRight), 0);
    box.SetTextAndParse("Plate", {});
    return box;
  }

  /// Whether the pointer is over the text, and whether the cursor says so.
  static bool IsOver(AnnText const &box, int x, int y) {
    wxStockCursor cursor = wxCURSOR_BULLSEYE;
    bool const isOver = box.IsOverText(wxPoint2DInt(x, y), cursor);
    EXPECT_EQ(cursor, isOver ? wxCURSOR_IBEAM : wxCURSOR_BULLSEYE);
    return isOver;
  }

  wxFrame *m_window;
};

TEST_F(AnnTextOnAWindow, PointerIsOverTheTextsBlockAlone) {
  wxSize const size = Modes().text->MeasureText("Plate", LetterFont(), false);
  ASSERT_GT(size.x, size.y);
  AnnText const box = Box({90, 120}, {330, 300});
  EXPECT_TRUE(IsOver(box, 210, 210));
  EXPECT_TRUE(IsOver(box, 210 - size.x / 2 + 2, 210 - size.y / 2 + 2));
  EXPECT_FALSE(IsOver(box, 210 - size.x / 2 - 2, 210));
  EXPECT_FALSE(IsOver(box, 210 + size.x / 2 + 3, 210));
  EXPECT_FALSE(IsOver(box, 210, 210 - size.y / 2 - 2));
  EXPECT_FALSE(IsOver(box, 210, 210 + size.y / 2 + 3));
  EXPECT_FALSE(IsOver(box, 100, 130));
}

TEST_F(AnnTextOnAWindow, BlockTurnsWithTheBox) {
  wxSize const size = Modes().text->MeasureText("Plate", LetterFont(), false);
  AnnText box = Box({90, 120}, {330, 300});
  box.RememberCurrentPosition();
  box.Rotate({1000, 210});
  EXPECT_TRUE(IsOver(box, 210, 210 + size.x / 2 - 3));
  EXPECT_FALSE(IsOver(box, 210 + size.x / 2 - 3, 210));
}

TEST_F(AnnTextOnAWindow, CollapsedBoxIsHitOverItsTextAndAPointAtItsPixel) {
  AnnText const flat = Box({90, 210}, {330, 210});
  ASSERT_TRUE(flat.IsXLine(RecordOf(flat)));
  EXPECT_TRUE(flat.Contains({210, 202}));
  EXPECT_TRUE(flat.Contains({210, 218}));
  EXPECT_FALSE(flat.Contains({95, 210}));
  AnnText const narrow = Box({210, 120}, {210, 300});
  ASSERT_TRUE(narrow.IsYLine(RecordOf(narrow)));
  EXPECT_TRUE(narrow.Contains({190, 210}));
  EXPECT_TRUE(narrow.Contains({230, 210}));
  EXPECT_FALSE(narrow.Contains({210, 125}));
  AnnText const point = Box({210, 210}, {210, 210});
  EXPECT_TRUE(point.Contains({210, 210}));
  EXPECT_FALSE(point.Contains({211, 210}));
  EXPECT_FALSE(point.Contains({210, 211}));
}

TEST_F(AnnTextOnAWindow, EditorIsAlignedAsTheText) {
  wxSize const size = Modes().text->MeasureText("Plate", LetterFont(), false);
  wxSize const control = Modes().text->MeasureTextCtrl("Plate", LetterFont());
  ASSERT_GT(control.x, size.x);
  for (int const down : {0, 1, 2}) {
    for (int const across : {0, 1, 2}) {
      Look().SetHorizontalAlignment(static_cast<AnnTextProperties::HorizontalAlignment>(across));
      Look().SetVerticalAlignment(static_cast<AnnTextProperties::VerticalAlignment>(down));
      wxRect const place = Box({90, 120}, {330, 300}).GetTextBoxPosition();
      EXPECT_EQ(place.GetSize(), control);
      EXPECT_NEAR(place.x, 90 + (240 - control.x) * across * 0.5, 1.5);
      EXPECT_NEAR(place.y, 120 + (180 - size.y) * down * 0.5, 1.5);
    }
  }
}

TEST_F(AnnTextOnAWindow, EditorOfATurnedBoxIsUprightAboutTheTextsCentre) {
  Look().SetVerticalAlignment(AnnTextProperties::Top);
  AnnText box = Box({90, 120}, {330, 300});
  box.RememberCurrentPosition();
  box.Rotate({1000, 210});
  wxRect const place = box.GetTextBoxPosition();
  // The top of the box is at its right now, at 210 + 90.
  EXPECT_NEAR(place.x + place.width / 2.0, 300 - place.height / 2.0, 1.5);
  EXPECT_NEAR(place.y + place.height / 2.0, 210, 1.5);
  EXPECT_EQ(place.GetSize(), Modes().text->MeasureTextCtrl("Plate", LetterFont()));
}

}  // namespace

}  // namespace framenote::test
