// SPDX-License-Identifier: MIT
// Hide regions and lenses in a tool: the workers of SetImage, and burnt-in frames.
#include <cmath>
#include <tuple>
#include <vector>

#include <wx/dcmemory.h>

#include <gtest/gtest.h>

#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "objects/ann_hide.h"
#include "objects/ann_magnify.h"
#include "objects/hidden_picture_cache.h"
#include "painters/pixel_matchers.h"
#include "support/test_pictures.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

/// A video of ten frames with a hand on the hide and the magnify tool.
class ToolPictures : public testing::Test {
protected:
  explicit ToolPictures(bool withDeviceContext = false) : m_driver(10, false, withDeviceContext) {
    m_driver.Tool().SetExtensionColour(wxNullColour);
  }

  AnnotationTool &Tool() { return m_driver.Tool(); }
  AnnHideProperties &HideLook() { return *Tool().GetToolModes().hide->m_properties; }
  AnnMagnifyProperties &LensLook() { return *Tool().GetToolModes().magnify->m_properties; }
  int Runs() { return Tool().GetToolModes().hide->WholePictures().RunCount(); }

  AnnHide &AddRegion(wxPoint const &from, wxPoint const &to) {
    m_driver.UseTool(Types::Hide);
    m_driver.Drag(from, to);
    Tool().Deactivate();
    return *m_driver.ObjectAs<AnnHide>();
  }
  AnnMagnify &AddLens(wxPoint const &from, wxPoint const &to) {
    m_driver.UseTool(Types::Magnify);
    m_driver.Drag(from, to);
    Tool().Deactivate();
    return *m_driver.ObjectAs<AnnMagnify>();
  }
  wxImage Burn(wxImage const &picture, std::int64_t frame = 0) {
    return Tool().GetAnnotatedFrame(picture, {frame, 10, false}, {});
  }
  static wxImage Pixelated(wxImage const &picture, int strength) {
    return AnnHide::GetPixelatedBitmapFromImage(picture, strength).ConvertToImage();
  }
  wxJSONValue Document() {
    wxJSONValue document(wxJSONTYPE_OBJECT);
    document.Set("Annotate", Tool().GetJSON());
    return document;
  }

  ToolDriver m_driver;
};

TEST_F(ToolPictures, EachFrameShowsItsOwnPixels) {
  wxImage const first = NoisePicture(80, 60, 1);
  wxImage const second = NoisePicture(80, 60, 2);
  Tool().SetImage(first, true);
  AddRegion({10, 10}, {50, 40}).SetEndFrame(9);
  wxImage burnt = Burn(second, 3);
  EXPECT_EQ(pixels::ColourAt(burnt, 30, 20), pixels::ColourAt(Pixelated(second, 40), 30, 20));
  EXPECT_EQ(pixels::ColourAt(burnt, 60, 20), pixels::ColourAt(second, 60, 20));
  burnt = Burn(first, 3);
  EXPECT_EQ(pixels::ColourAt(burnt, 30, 20), pixels::ColourAt(Pixelated(first, 40), 30, 20));
}

TEST_F(ToolPictures, RegionIsBurntInWhereItIsInThatFrame) {
  wxImage const picture = NoisePicture(80, 60);
  Tool().SetImage(picture, true);
  AnnHide &region = AddRegion({10, 10}, {30, 30});
  region.SetEndFrame(9);
  m_driver.GoToFrame(5);
  region.MoveFor({40, 20});
  region.OnObjectModified();
  m_driver.GoToFrame(0);
  // The tool stands at frame 0, where the region lies elsewhere.
  wxImage const burnt = Burn(picture, 5);
  wxImage const hidden = Pixelated(picture, 40);
  HideLook().SetShape(AnnShapeProperties::Rectangle);
  EXPECT_EQ(pixels::ColourAt(burnt, 60, 40), pixels::ColourAt(hidden, 60, 40));
  EXPECT_EQ(pixels::ColourAt(burnt, 20, 20), pixels::ColourAt(picture, 20, 20));
  EXPECT_EQ(pixels::ColourAt(Burn(picture, 0), 20, 20), pixels::ColourAt(hidden, 20, 20));
  // And afterwards it is shown as before.
  EXPECT_EQ(region.GetCoordinates().Coords().m_topLeft.m_x, 10.0);
}

TEST_F(ToolPictures, RegionsOfOneStrengthShareTheWholePicture) {
  Tool().SetImage(NoisePicture(80, 60), true);
  for (int i = 0; i < 10; ++i) AddRegion({5 * i, 5}, {5 * i + 20, 40});
  int runs = Runs();
  Tool().SetImage(NoisePicture(80, 60, 2), true);
  EXPECT_EQ(Runs(), runs + 1);
  HideLook().SetStrength(10);
  AddRegion({5, 5}, {40, 40});
  runs = Runs();
  Tool().SetImage(NoisePicture(80, 60, 3), true);
  EXPECT_EQ(Runs(), runs + 2);
}

TEST_F(ToolPictures, PlayingRunsNoWholePictureEffect) {
  Tool().SetImage(NoisePicture(80, 60), true);
  AddRegion({10, 10}, {50, 40}).SetEndFrame(9);
  int const runs = Runs();
  for (int frame = 1; frame < 5; ++frame) {
    m_driver.GoToFrame(frame, true);
    Tool().SetImage(NoisePicture(80, 60, static_cast<unsigned>(frame)), false);
    Burn(NoisePicture(80, 60, static_cast<unsigned>(frame)), frame);
  }
  EXPECT_EQ(Runs(), runs);
}

TEST_F(ToolPictures, ObjectsThatAreNotThereKeepTheirBitmaps) {
  wxImage const first = NoisePicture(80, 60, 1);
  Tool().SetImage(first, true);
  AnnHide &region = AddRegion({10, 10}, {50, 40});
  auto const painted = [&] {
    return pixels::PaintedBy(IAnnPainter::GraphicsContext, wxSize(80, 60), 1.0, [&](auto &painter) {
      region.Draw(painter, {0.0, 0.0});
    });
  };
  wxImage const before = painted();
  m_driver.GoToFrame(3);
  Tool().SetImage(NoisePicture(80, 60, 2), true);
  EXPECT_TRUE(pixels::Alike(painted(), before, 0));
  // A selected one is kept up to date wherever the tool is.
  m_driver.GoToFrame(0);
  m_driver.Move(30, 25);
  m_driver.Press(30, 25);
  m_driver.Release(30, 25);
  ASSERT_EQ(m_driver.Selected(), &region);
  Tool().SetImage(NoisePicture(80, 60, 3), false);
  EXPECT_FALSE(pixels::Alike(painted(), before, 0));
}

TEST_F(ToolPictures, PictureMayChangeItsSizeAndGo) {
  Tool().SetImage(NoisePicture(80, 60), true);
  AnnHide &region = AddRegion({40, 30}, {79, 59});
  AnnMagnify &lens = AddLens({10, 10}, {60, 50});
  for (wxSize const &size : {wxSize(20, 20), wxSize(50, 40), wxSize(300, 200), wxSize(1, 1)}) {
    for (bool const refresh : {false, true}) {
      Tool().SetImage(NoisePicture(size.x, size.y), refresh);
      region.MoveFor({1, 0});
      region.MoveFor({-1, 0});
      lens.MoveFor({1, 0});
      lens.MoveFor({-1, 0});
      EXPECT_EQ(Burn(NoisePicture(size.x, size.y)).GetSize(), size);
    }
  }
  Tool().SetImage(wxNullImage, true);
  region.MoveFor({1, 0});
  lens.MoveFor({1, 0});
  EXPECT_FALSE(Burn(wxNullImage).IsOk());
  EXPECT_TRUE(Burn(NoisePicture(80, 60)).IsOk());
}

TEST_F(ToolPictures, DocumentBringsThemBack) {
  wxImage const picture = NoisePicture(80, 60);
  Tool().SetImage(picture, true);
  AddRegion({10, 10}, {50, 40}).SetEndFrame(9);
  m_driver.Object()->OnObjectModified();
  LensLook().SetBorderType(AnnMagnifyProperties::ShapeOnly);
  AddLens({30, 20}, {70, 50}).SetEndFrame(9);
  m_driver.Object()->OnObjectModified();
  wxImage const before = Burn(picture, 4);
  Tool().OnJsonChanged();
  wxJSONValue const document = Document();
  std::string const text = m_driver.DocumentText();
  Tool().FromJSON(document, 10);
  Tool().SetExtensionColour(wxNullColour);
  EXPECT_EQ(m_driver.ObjectCount(), 2U);
  EXPECT_TRUE(pixels::Alike(Burn(picture, 4), before, 0));
  Tool().FromJSON(document, 10);
  EXPECT_EQ(m_driver.DocumentText(), text);
}

TEST_F(ToolPictures, RestoredRegionIsWhereItIsInTheFirstFrame) {
  wxImage const picture = NoisePicture(80, 60);
  Tool().SetImage(picture, true);
  AnnHide &region = AddRegion({10, 10}, {30, 30});
  region.SetEndFrame(9);
  m_driver.GoToFrame(9);
  region.MoveFor({40, 20});
  region.OnObjectModified();
  Tool().OnJsonChanged();
  Tool().FromJSON(Document(), 10);
  auto const &restored = *m_driver.ObjectAs<AnnHide>();
  wxImage const painted =
      pixels::PaintedBy(IAnnPainter::GraphicsContext, wxSize(80, 60), 1.0, [&](auto &painter) {
        restored.Draw(painter, {0.0, 0.0});
      });
  EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(10, 10, 21, 21));
}

TEST_F(ToolPictures, LensThatShowsNothingYetIsKept) {
  std::string const lens =
      R"({"Id":8,"CoordinatesCenterPoint":[],"Rectangle":{"StartFrame":3,"EndFrame":6,)"
      R"("Coordinates":[{"TopLeft":[10.0,10.0],"TopRight":[40.0,10.0],"BottomRight":[40.0,40.0],)"
      R"("BottomLeft":[10.0,40.0],"Range":[3,6]}]}})";
  wxJSONValue const document =
      JsonFromText(wxString::FromUTF8(R"({"Annotate":{"Objects":[)" + lens + "]}}"));
  // Also before there is a picture.
  for (wxImage const &picture : {wxNullImage, NoisePicture(80, 60)}) {
    Tool().SetImage(picture, true);
    Tool().FromJSON(document, 10);
    EXPECT_EQ(m_driver.ObjectCount(), 1U);
  }
  Tool().SetExtensionColour(wxNullColour);
  EXPECT_FALSE(pixels::Alike(Burn(NoisePicture(80, 60), 4), NoisePicture(80, 60), 0));
}

TEST_F(ToolPictures, CentresOfLensesCountInTheBudgetOfADocument) {
  // Each asks for four million frames of centres, and two are the most that a document may have.
  std::string objects;
  for (int i = 0; i < 8; ++i) {
    objects +=
        std::string(i > 0 ? "," : "") +
        R"({"Id":8,"CoordinatesCenterPoint":[{"CenterPoint":[1.0,1.0],"Range":[0,4194000]}],)"
        R"("Rectangle":{"StartFrame":0,"EndFrame":0,"Coordinates":[{"TopLeft":[10.0,10.0],)"
        R"("TopRight":[40.0,10.0],"BottomRight":[40.0,40.0],"BottomLeft":[10.0,40.0],)"
        R"("Range":[0,0]}]}})";
  }
  Tool().FromJSON(JsonFromText(wxString::FromUTF8(R"({"Annotate":{"Objects":[)" + objects + "]}}")),
                  10);
  EXPECT_EQ(m_driver.ObjectCount(), 2U);
}

TEST_F(ToolPictures, FrameThatNoSurfaceHoldsIsNotBurnt) {
  EXPECT_FALSE(Burn(wxImage(32768, 2)).IsOk());
  EXPECT_TRUE(Burn(wxImage(32766, 2)).IsOk());
}

/// Painted by a device context, for which there need be no window.
class ShownOnAWindow : public ToolPictures {
protected:
  ShownOnAWindow() : ToolPictures(true) {}

  wxImage Shown(wxImage const &picture) {
    wxBitmap bitmap(picture);
    wxMemoryDC dc(bitmap);
    Tool().Draw(dc, nullptr, {0.0, 0.0}, 1.0);
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
  }
};

TEST_F(ShownOnAWindow, RegionIsHiddenInWhateverOrderAHostSetsPictureAndPosition) {
  wxImage const first = NoisePicture(80, 60, 1);
  wxImage const second = NoisePicture(80, 60, 2);
  Tool().SetImage(first, true);
  AnnHide &region = AddRegion({10, 10}, {30, 30});
  region.SetEndFrame(9);
  m_driver.GoToFrame(5);
  region.MoveFor({40, 20});
  m_driver.GoToFrame(0);
  wxImage const hidden = Pixelated(second, 40);
  for (bool const pictureFirst : {true, false}) {
    m_driver.GoToFrame(0);
    Tool().SetImage(first, false);
    if (pictureFirst) Tool().SetImage(second, false);
    m_driver.GoToFrame(5);
    if (!pictureFirst) Tool().SetImage(second, false);
    wxImage const shown = Shown(second);
    EXPECT_EQ(pixels::ColourAt(shown, 60, 40), pixels::ColourAt(hidden, 60, 40));
    EXPECT_EQ(pixels::ColourAt(shown, 20, 20), pixels::ColourAt(second, 20, 20));
  }
}

TEST_F(ShownOnAWindow, PastedRegionHidesThePictureThatIsThereNow) {
  Tool().SetImage(NoisePicture(80, 60), true);
  AnnHide const copy(AddRegion({10, 10}, {30, 30}));
  Tool().ClearAllAnnotations();
  wxImage const black(80, 60, true);
  Tool().SetImage(black, true);
  copy.Paste();
  EXPECT_TRUE(pixels::Alike(Shown(black), black, 0));
}

TEST_F(ToolPictures, PictureObjectWithoutItsFileIsLeftOut) {
  wxJSONValue const document = JsonFromText(
      R"({"Annotate":{"Objects":[)"
      R"({"Id":6,"Properties":{"FileName":"/nowhere.png"},"Rectangle":{"StartFrame":0,)"
      R"("EndFrame":0,"Coordinates":[{"TopLeft":[1.0,2.0],"TopRight":[30.0,2.0],)"
      R"("BottomRight":[30.0,40.0],"BottomLeft":[1.0,40.0],"Range":[0,0]}]}},)"
      R"({"Id":7,"Rectangle":{"StartFrame":0,"EndFrame":0,"Coordinates":[{"TopLeft":[1.0,2.0],)"
      R"("TopRight":[30.0,2.0],"BottomRight":[30.0,40.0],"BottomLeft":[1.0,40.0],)"
      R"("Range":[0,0]}]}}]}})");
  Tool().FromJSON(document, 10);
  ASSERT_EQ(m_driver.ObjectCount(), 1U);
  EXPECT_NE(m_driver.ObjectAs<AnnHide>(), nullptr);
}

TEST_F(ToolPictures, ManyObjectsAreRefreshedByManyThreads) {
  std::vector<wxImage> const frames = {NoisePicture(200, 150, 1), NoisePicture(200, 150, 2)};
  Tool().SetImage(frames[0], true);
  for (int i = 0; i < 16; ++i) {
    HideLook().SetStrength(5 + i % 3 * 20);
    HideLook().SetEffect(i % 2 == 0 ? AnnHideProperties::Blur : AnnHideProperties::Pixelation);
    AddRegion({10 * i, 5 * i}, {10 * i + 40, 5 * i + 40});
    LensLook().SetZoomMethod(static_cast<wxImageResizeQuality>(i % 4));
    LensLook().SetShape(i % 2 == 0 ? AnnShapeProperties::Ellipse : AnnShapeProperties::Rectangle);
    AddLens({150 - 8 * i, 5 * i}, {190 - 8 * i, 5 * i + 40});
  }
  ASSERT_EQ(m_driver.ObjectCount(), 32U);
  wxImage const before = Burn(frames[0]);
  for (int i = 0; i < 200; ++i) {
    Tool().SetImage(frames[static_cast<std::size_t>(i % 2)], i % 5 == 0);
  }
  EXPECT_TRUE(pixels::Alike(Burn(frames[0]), before, 0));
}

/// What a hide region covers: effect, shape, angle in degrees, and with which painter.
using Case = std::tuple<bool, bool, int, bool>;

class HidingIsSafe : public testing::WithParamInterface<Case>, public ToolPictures {
protected:
  HidingIsSafe() : ToolPictures(std::get<3>(GetParam())) {
    HideLook().SetEffect(std::get<0>(GetParam()) ? AnnHideProperties::Blur
                                                 : AnnHideProperties::Pixelation);
    HideLook().SetShape(std::get<1>(GetParam()) ? AnnShapeProperties::Ellipse
                                                : AnnShapeProperties::Rectangle);
  }

  wxImage Effect(wxImage const &picture, int strength) const {
    return (std::get<0>(GetParam()) ? AnnHide::GetBlurredBitmapFromImage(picture, strength)
                                    : AnnHide::GetPixelatedBitmapFromImage(picture, strength))
        .ConvertToImage();
  }
  static void Turn(AnnHide &region, int degrees) {
    AnnShapePoints const &record = region.GetCoordinates().Coords();
    wxPoint2DDouble const centre = (record.m_topLeft + record.m_bottomRight) * 0.5;
    double const angle = degrees * 3.141592653589793 / 180.0;
    region.RememberCurrentPosition();
    // The top follows the pointer, far away for the sake of the angle.
    region.Rotate(wxPoint(static_cast<int>(centre.m_x + 1e6 * std::sin(angle)),
                          static_cast<int>(centre.m_y - 1e6 * std::cos(angle))));
  }
};

INSTANTIATE_TEST_SUITE_P(, HidingIsSafe,
                         testing::Combine(testing::Bool(), testing::Bool(),
                                          testing::Values(0, 30, 45, 90, 123), testing::Bool()));

/// Every pixel whose middle lies in the shape is that of the hidden picture, which no single pixel
/// of the original makes; and so is every one that is hit with the mouse.
TEST_P(HidingIsSafe, NoPixelOfTheShapeIsLeftUncovered) {
  wxImage const picture = NoisePicture(150, 120);
  Tool().SetImage(picture, true);
  for (int const strength : {5, 20, 50}) {
    HideLook().SetStrength(strength);
    wxImage const hidden = Effect(picture, strength);
    for (wxRect const &rect : {wxRect(40, 30, 61, 41), wxRect(-20, 60, 70, 50),
                               wxRect(100, -30, 90, 61), wxRect(-50, -50, 300, 300)}) {
      Tool().ClearAllAnnotations();
      AnnHide &region = AddRegion(rect.GetTopLeft(), rect.GetBottomRight());
      Turn(region, std::get<2>(GetParam()));
      wxImage const burnt = Burn(picture);
      AnnShapePoints const &record = region.GetCoordinates().Coords();
      wxPoint2DDouble const centre = (record.m_topLeft + record.m_bottomRight) * 0.5;
      wxPoint2DDouble const across = (record.m_topRight - record.m_topLeft) * 0.5;
      wxPoint2DDouble const down = (record.m_bottomLeft - record.m_topLeft) * 0.5;
      int covered = 0;
      for (int y = 0; y < picture.GetHeight(); ++y) {
        for (int x = 0; x < picture.GetWidth(); ++x) {
          wxPoint2DDouble const from = wxPoint2DDouble(x, y) - centre;
          double const u = from.GetDotProduct(across) / across.GetDotProduct(across);
          double const v = from.GetDotProduct(down) / down.GetDotProduct(down);
          bool const isInside = std::get<1>(GetParam())
                                    ? u * u + v * v <= 1.0
                                    : std::max(std::abs(u), std::abs(v)) <= 1.0 + 1e-9;
          if (!isInside && !region.Contains({x, y})) continue;
          ++covered;
          ASSERT_EQ(pixels::ColourAt(burnt, x, y), pixels::ColourAt(hidden, x, y))
              << "(" << x << ", " << y << ") of " << rect.x << ", " << rect.y << ", strength "
              << strength;
        }
      }
      EXPECT_GT(covered, 500);
    }
  }
}

}  // namespace

}  // namespace framenote::test
