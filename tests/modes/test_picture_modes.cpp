// SPDX-License-Identifier: MIT
// The modes of pasted pictures, hide regions and lenses.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "framenote/annotation_events.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "objects/ann_hide.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "objects/hidden_picture_cache.h"
#include "painters/pixel_matchers.h"
#include "support/test_pictures.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

/// The preview of a drag, painted on white with either painter.
class PictureModes : public testing::TestWithParam<IAnnPainter::AnnPainterType> {
protected:
  PictureModes() : m_driver(10), m_picture(PlacePicture(120, 100)) {
    Tool().SetImage(m_picture, true);
  }

  AnnotationTool &Tool() { return m_driver.Tool(); }
  AnnHideToolMode &Hide() { return *Tool().GetToolModes().hide; }
  AnnImageToolMode &Image() { return *Tool().GetToolModes().image; }
  AnnMagnifyToolMode &Magnify() { return *Tool().GetToolModes().magnify; }
  int Runs() { return Hide().WholePictures().RunCount(); }

  void StartDrag(Types tool, wxPoint const &from, wxPoint const &to) {
    m_driver.UseTool(tool);
    m_driver.Press(from.x, from.y);
    m_driver.Move(to.x, to.y);
  }
  wxImage Preview(wxPoint2DDouble const &offset = {0.0, 0.0}) {
    return pixels::PaintedBy(GetParam(), wxSize(200, 160), 1.0, [&](auto &painter) {
      Tool().GetActiveTool()->DrawPreview(painter, offset);
    });
  }

  ToolDriver m_driver;
  wxImage m_picture;
};

INSTANTIATE_TEST_SUITE_P(, PictureModes,
                         testing::Values(IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext),
                         [](auto const &painter) {
                           return painter.param == IAnnPainter::DeviceContext ? "DeviceContext"
                                                                              : "GraphicsContext";
                         });

TEST_P(PictureModes, DraggedRegionShowsTheEffect) {
  Hide().m_properties->SetShape(AnnShapeProperties::Rectangle);
  StartDrag(Types::Hide, {20, 30}, {60, 70});
  wxImage const hidden = AnnHide::GetPixelatedBitmapFromImage(m_picture, 40).ConvertToImage();
  EXPECT_EQ(pixels::BoundsOfPaint(Preview()), wxRect(20, 30, 41, 41));
  EXPECT_EQ(pixels::ColourAt(Preview(), 25, 35), pixels::ColourAt(hidden, 25, 35));
  EXPECT_EQ(pixels::ColourAt(Preview({10.0, 5.0}), 35, 40), pixels::ColourAt(hidden, 25, 35));
  Hide().m_properties->SetEffect(AnnHideProperties::Blur);
  wxImage const blurred = AnnHide::GetBlurredBitmapFromImage(m_picture, 40).ConvertToImage();
  EXPECT_EQ(pixels::ColourAt(Preview(), 25, 35), pixels::ColourAt(blurred, 25, 35));
  m_driver.Release(60, 70);
  EXPECT_NE(m_driver.ObjectAs<AnnHide>(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(pixels::BoundsOfPaint(Preview()), wxRect());
}

TEST_P(PictureModes, DraggedEllipseIsCut) {
  StartDrag(Types::Hide, {20, 30}, {60, 70});
  EXPECT_EQ(pixels::ColourAt(Preview(), 23, 33), pixels::kWhite);
  EXPECT_FALSE(pixels::ColourAt(Preview(), 40, 50) == pixels::kWhite);
}

TEST_P(PictureModes, DragThatOverhangsShowsWhatIsInThePictureAndTheWholeBorder) {
  Hide().m_properties->SetShape(AnnShapeProperties::Rectangle);
  Hide().m_properties->SetBorderColor(*wxRED);
  StartDrag(Types::Hide, {100, 30}, {160, 70});
  wxImage preview = Preview();
  // The picture ends at column 119, the border at 159.
  EXPECT_TRUE(pixels::AreaHas(preview, wxRect(120, 35, 35, 30), pixels::kWhite));
  EXPECT_EQ(pixels::CountOf(preview.GetSubImage(wxRect(104, 34, 16, 32)), pixels::kWhite), 0);
  EXPECT_EQ(pixels::ColourAt(preview, 158, 50), pixels::kRed);
  EXPECT_EQ(pixels::ColourAt(preview, 140, 31), pixels::kRed);
  Tool().Deactivate();
  // Wholly outside there is the border alone.
  StartDrag(Types::Hide, {130, 30}, {160, 70});
  preview = Preview();
  EXPECT_TRUE(pixels::AreaHas(preview, wxRect(135, 35, 20, 30), pixels::kWhite));
  EXPECT_EQ(pixels::ColourAt(preview, 158, 50), pixels::kRed);
}

TEST_P(PictureModes, EffectIsMadeOncePerStrengthAndFrame) {
  auto const drag = [this] {
    StartDrag(Types::Hide, {20, 30}, {60, 70});
    Tool().Deactivate();
  };
  drag();
  int const runs = Runs();
  drag();
  EXPECT_EQ(Runs(), runs);
  m_driver.GoToFrame(1);
  Tool().SetImage(NoisePicture(120, 100), false);
  drag();
  EXPECT_EQ(Runs(), runs + 1);
  Hide().m_properties->SetStrength(12);
  EXPECT_EQ(Runs(), runs + 1);
  drag();
  EXPECT_EQ(Runs(), runs + 2);
}

TEST_P(PictureModes, PreviewFollowsAPictureThatChangesDuringTheDrag) {
  Hide().m_properties->SetShape(AnnShapeProperties::Rectangle);
  StartDrag(Types::Hide, {20, 30}, {60, 70});
  wxImage const next = NoisePicture(120, 100);
  Tool().SetImage(next, false);
  wxImage const hidden = AnnHide::GetPixelatedBitmapFromImage(next, 40).ConvertToImage();
  EXPECT_EQ(pixels::ColourAt(Preview(), 25, 35), pixels::ColourAt(hidden, 25, 35));
}

TEST_P(PictureModes, NoPictureNoPreview) {
  Tool().SetImage(wxNullImage, true);
  for (Types const tool : {Types::Hide, Types::Magnify}) {
    Hide().m_properties->SetBorderColor(*wxRED);
    StartDrag(tool, {20, 30}, {60, 70});
    EXPECT_EQ(pixels::BoundsOfPaint(Preview()), wxRect());
    Tool().Deactivate();
  }
}

TEST_P(PictureModes, DraggedLensShowsWhatItEnlarges) {
  StartDrag(Types::Magnify, {20, 30}, {60, 70});
  wxImage const preview = Preview();
  EXPECT_EQ(pixels::BoundsOfPaint(preview), wxRect(20, 30, 41, 41));
  // The middle is (40, 50); at zoom 2, x shows (x + 40) / 2.
  EXPECT_EQ(pixels::ColourAt(preview, 40, 50), (pixels::Rgb{40, 50, 128}));
  EXPECT_EQ(pixels::ColourAt(preview, 22, 50), (pixels::Rgb{31, 50, 128}));
  Magnify().m_properties->SetShape(AnnShapeProperties::Ellipse);
  EXPECT_EQ(pixels::ColourAt(Preview(), 23, 33), pixels::kWhite);
  m_driver.Release(60, 70);
  EXPECT_NE(m_driver.ObjectAs<AnnMagnify>(), nullptr);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
}

TEST_P(PictureModes, LensWithoutABorderTypeHasNoBorderWhateverItsColour) {
  Magnify().m_properties->SetBorderColor(*wxRED);
  StartDrag(Types::Magnify, {20, 30}, {60, 70});
  EXPECT_EQ(pixels::CountOf(Preview(), pixels::kRed), 0);
  Magnify().m_properties->SetBorderColor(wxColour(255, 0, 0, 0));
  Magnify().m_properties->SetBorderType(AnnMagnifyProperties::ShapeOnly);
  Magnify().m_properties->SetBorderColor(*wxRED);
  EXPECT_GT(pixels::CountOf(Preview(), pixels::kRed), 100);
}

TEST_P(PictureModes, CentreOfALensIsDraggedAloneAndOutranksTheHandles) {
  StartDrag(Types::Magnify, {20, 30}, {80, 90});
  m_driver.Release(80, 90);
  auto &lens = *m_driver.ObjectAs<AnnMagnify>();
  // Beside the centre's reach.
  m_driver.Move(35, 45);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  EXPECT_EQ(m_driver.Move(50, 60), wxCURSOR_QUESTION_ARROW);
  m_driver.Press(50, 60);
  EXPECT_EQ(m_driver.State(), ToolState::Moving);
  m_driver.Move(80, 60);
  m_driver.Release(80, 60);
  AnnShapePoints const &record = lens.GetCoordinates().Coords();
  EXPECT_EQ(record.m_topLeft.m_x, 20.0);
  EXPECT_TRUE(lens.IsAtCenterPoint({80, 60}));
  // The centre lies on the right side's handle now.
  EXPECT_EQ(m_driver.Move(80, 60), wxCURSOR_QUESTION_ARROW);
  EXPECT_EQ(m_driver.State(), ToolState::Selected);
  // The lens itself is moved at any other place.
  m_driver.Move(40, 50);
  m_driver.Press(40, 50);
  m_driver.Move(50, 50);
  m_driver.Release(50, 50);
  EXPECT_EQ(record.m_topLeft.m_x, 30.0);
  EXPECT_TRUE(lens.IsAtCenterPoint({80, 60}));
}

/// The image mode, with a picture of 40 by 20 at hand.
class ImageMode : public PictureModes {
protected:
  ImageMode() : m_path((fs::temp_directory_path() / "framenote_image_mode.png").string()) {
    wxImage picture(40, 20);
    picture.SetRGB(wxRect(0, 0, 40, 20), 255, 0, 0);
    EXPECT_TRUE(picture.SaveFile(m_path, wxBITMAP_TYPE_PNG));
  }
  ~ImageMode() override { fs::remove(m_path); }

  void ChoosePicture() {
    Image().m_properties->SetFileName(wxFileName(m_path));
    Image().SetPicture(m_path);
  }

  std::string m_path;
};

INSTANTIATE_TEST_SUITE_P(, ImageMode,
                         testing::Values(IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext),
                         [](auto const &painter) {
                           return painter.param == IAnnPainter::DeviceContext ? "DeviceContext"
                                                                              : "GraphicsContext";
                         });

TEST_P(ImageMode, WithoutAPictureNoDragStarts) {
  EXPECT_EQ(Image().GetAspectRatio(), 0.0);
  StartDrag(Types::Image, {20, 30}, {60, 70});
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(m_driver.Sink().Count(wxEVT_ANN_STARTED), 0U);
  m_driver.Release(60, 70);
  EXPECT_EQ(m_driver.ObjectCount(), 0U);
}

TEST_P(ImageMode, PictureKeepsItsProportionsWhileItIsDragged) {
  ChoosePicture();
  EXPECT_EQ(Image().GetAspectRatio(), 0.5);
  StartDrag(Types::Image, {20, 30}, {99, 35});
  // 80 wide, so 40 high.
  EXPECT_EQ(pixels::BoundsOfPaint(Preview()), wxRect(20, 30, 80, 40));
  m_driver.Release(99, 35);
  auto *const image = m_driver.ObjectAs<AnnImage>();
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->GetCoordinates().Coords().m_bottomRight.m_y, 30 + 79 * 0.5);
  // The pointer is near the handle that it let go, and the state follows it.
  EXPECT_EQ(m_driver.State(), ToolState::AtResizePoint);
}

TEST_P(ImageMode, PictureTakesTheDragWithoutProportions) {
  ChoosePicture();
  Image().m_properties->SetKeepAspectRatio(false);
  StartDrag(Types::Image, {20, 30}, {99, 79});
  EXPECT_EQ(pixels::BoundsOfPaint(Preview()), wxRect(20, 30, 80, 50));
}

TEST_P(ImageMode, ProportionsBeforeThereIsAPictureGiveNoPreview) {
  ChoosePicture();
  Image().SetPictureImage(wxNullImage);
  EXPECT_TRUE(Image().m_properties->GetFileName().GetFullPath().empty());
  EXPECT_FALSE(Image().HasPicture());
  StartDrag(Types::Image, {20, 30}, {99, 79});
  EXPECT_EQ(pixels::BoundsOfPaint(Preview()), wxRect());
}

TEST_P(ImageMode, OnePictureIsPlacedManyTimes) {
  ChoosePicture();
  for (int i = 0; i < 3; ++i) {
    StartDrag(Types::Image, {5, 5 + 30 * i}, {25, 20 + 30 * i});
    m_driver.Release(25, 20 + 30 * i);
    Tool().Deactivate();
  }
  EXPECT_EQ(m_driver.ObjectCount(), 3U);
  EXPECT_TRUE(m_driver.ObjectAs<AnnImage>()->GetImage().IsOk());
}

TEST_P(ImageMode, PictureThatCannotBeReadLeavesTheModeWithout) {
  ChoosePicture();
  Image().SetPicture("/nowhere.png");
  EXPECT_FALSE(Image().HasPicture());
  Image().UpdatePictureBitmap();
  EXPECT_FALSE(Image().HasPicture());
}

TEST_P(ImageMode, SelectedObjectTakesTheChosenPicture) {
  ChoosePicture();
  StartDrag(Types::Image, {20, 30}, {99, 79});
  m_driver.Release(99, 79);
  wxImage other(10, 10);
  other.SetRGB(wxRect(0, 0, 10, 10), 0, 0, 255);
  std::string const path = m_path + ".blue.png";
  ASSERT_TRUE(other.SaveFile(path, wxBITMAP_TYPE_PNG));
  Image().SetPicture(path);
  fs::remove(path);
  auto const *const object = m_driver.ObjectAs<AnnImage>();
  EXPECT_EQ(pixels::ColourAt(object->GetImage(), 5, 5), pixels::kBlue);
  EXPECT_EQ(object->ToJSON().ItemAt("Properties").ItemAt("FileName").AsString(), path);
  EXPECT_EQ(Image().m_properties->GetFileName().GetFullPath(), path);
}

TEST_P(ImageMode, SelectingGivesThePictureToTheMode) {
  ChoosePicture();
  StartDrag(Types::Image, {20, 30}, {99, 79});
  m_driver.Release(99, 79);
  Tool().Deactivate();
  Image().SetPictureImage(wxNullImage);
  m_driver.Move(60, 50);
  m_driver.Press(60, 50);
  m_driver.Release(60, 50);
  EXPECT_TRUE(Image().HasPicture());
  EXPECT_EQ(Image().m_properties->GetFileName().GetFullPath().utf8_string(), m_path);
}

TEST_P(ImageMode, SideThatIsDraggedAcrossMirrorsThePicture) {
  Image().m_properties->SetKeepAspectRatio(false);
  ChoosePicture();
  StartDrag(Types::Image, {60, 30}, {100, 70});
  m_driver.Release(100, 70);
  m_driver.Move(114, 50);
  ASSERT_EQ(m_driver.State(), ToolState::AtResizePoint);
  m_driver.Press(114, 50);
  m_driver.Move(40, 50);
  m_driver.Move(10, 50);
  m_driver.Release(10, 50);
  Tool().OnJsonChanged();
  EXPECT_NE(m_driver.DocumentText().find(R"("Mirrored":true)"), std::string::npos);
}

TEST_P(ImageMode, PressOnNothingStartsTheNextPicture) {
  ChoosePicture();
  StartDrag(Types::Image, {5, 5}, {25, 20});
  m_driver.Release(25, 20);
  m_driver.Move(90, 90);
  m_driver.Press(90, 90);
  EXPECT_EQ(m_driver.State(), ToolState::Drawing);
  m_driver.Release(90, 90);
  // Without a picture the press only ends the selection.
  m_driver.Move(10, 10);
  m_driver.Press(10, 10);
  m_driver.Release(10, 10);
  ASSERT_NE(m_driver.Selected(), nullptr);
  Image().SetPictureImage(wxNullImage);
  m_driver.Move(90, 90);
  m_driver.Press(90, 90);
  EXPECT_EQ(m_driver.State(), ToolState::Default);
  EXPECT_EQ(m_driver.Selected(), nullptr);
}

}  // namespace

}  // namespace framenote::test
