// SPDX-License-Identifier: MIT
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "modes/ann_image_tool_mode.h"
#include "object_support.h"
#include "objects/ann_image.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

constexpr double kPi = 3.141592653589793;

/// Pictures in a folder of their own. The usual one is 40 by 20, its left half red, its right half
/// blue.
class PictureFiles {
public:
  PictureFiles() : m_folder(fs::temp_directory_path() / "framenote_ann_image") {
    fs::create_directories(m_folder);
    wxImage picture(40, 20);
    picture.SetRGB(wxRect(0, 0, 20, 20), 255, 0, 0);
    picture.SetRGB(wxRect(20, 0, 20, 20), 0, 0, 255);
    Save("halves.png", picture);
  }
  ~PictureFiles() { fs::remove_all(m_folder); }

  std::string PathOf(std::string const &name) const { return (m_folder / name).string(); }
  std::string Save(std::string const &name, wxImage const &picture) const {
    EXPECT_TRUE(picture.SaveFile(PathOf(name), wxBITMAP_TYPE_PNG));
    return PathOf(name);
  }
  std::string Write(std::string const &name, std::string const &bytes) const {
    std::ofstream(PathOf(name), std::ios::binary) << bytes;
    return PathOf(name);
  }

private:
  fs::path m_folder;
};

class AnnImageTest : public ObjectTest {
protected:
  explicit AnnImageTest(std::int64_t frameCount = 1) : ObjectTest(frameCount) {
    Look().SetFileName(wxFileName(m_files.PathOf("halves.png")));
  }

  AnnImageProperties &Look() { return *Modes().image->m_properties; }
  AnnImage Picture(wxPoint const &a, wxPoint const &b, std::int64_t frame = 0) {
    return {Modes().shape, Modes().image, wxRect(a, b), frame};
  }
  AnnImage Restored(wxJSONValue const &json) { return {Modes().shape, Modes().image, json}; }
  wxImage Paint(AnnImage const &image,
                IAnnPainter::AnnPainterType type = IAnnPainter::GraphicsContext) {
    return PaintedBy(type, wxSize(200, 160), 1.0,
                     [&](auto &painter) { image.Draw(painter, wxPoint2DDouble(0.0, 0.0)); });
  }
  static pixels::Rgb At(wxImage const &image, int x, int y) {
    return pixels::ColourAt(image, x, y);
  }
  /// Drags a handle and lets it go, as the mode does.
  static void DragHandle(AnnImage &image, wxPoint2DInt const &handle, wxPoint2DInt const &to,
                         bool release = true) {
    wxStockCursor cursor = wxCURSOR_ARROW;
    ASSERT_TRUE(image.IsAtResizePoint(handle, cursor));
    image.PrepareResizing();
    image.ResizeTo(to, false);
    image.CheckIfReflectedAlongAxis(false);
    if (release) image.CheckIfReflectedAlongAxis(true);
  }

  PictureFiles m_files;
};

TEST_F(AnnImageTest, PictureFillsItsRectangle) {
  Look().SetKeepAspectRatio(false);
  for (auto const type : {IAnnPainter::GraphicsContext, IAnnPainter::DeviceContext}) {
    wxImage const painted = Paint(Picture({20, 30}, {120, 110}), type);
    EXPECT_EQ(pixels::BoundsOfPaint(painted), wxRect(20, 30, 100, 80));
    EXPECT_EQ(At(painted, 30, 70), pixels::kRed);
    EXPECT_EQ(At(painted, 110, 70), pixels::kBlue);
  }
}

TEST_F(AnnImageTest, ProportionsAreThoseOfThePicture) {
  AnnImage const image = Picture({20, 30}, {120, 110});
  // 100 wide, so 50 high: the top side stays.
  EXPECT_TRUE(test::At(RecordOf(image).m_topLeft, 20, 30));
  EXPECT_TRUE(test::At(RecordOf(image).m_bottomRight, 120, 80));
  EXPECT_TRUE(test::At(RecordOf(image).m_bottomLeft, 20, 80));
  EXPECT_NE(JsonToUtf8(image.ToJSON()).find("[120.0,80.0]"), std::string::npos);
}

TEST_F(AnnImageTest, RectangleHasNoLookOfItsOwn) {
  AnnImage const image = Picture({20, 30}, {120, 110});
  AnnShapeProperties const &look = image.GetProperties();
  EXPECT_EQ(look.GetThickness(), 0);
  EXPECT_EQ(look.GetBorderColor().Alpha(), 0);
  EXPECT_EQ(look.GetFillColor().Alpha(), 0);
  EXPECT_EQ(look.GetShape(), AnnShapeProperties::Rectangle);
}

TEST_F(AnnImageTest, SideThatIsPulledAcrossMirrorsAndPulledBackRestores) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70});
  wxStockCursor cursor = wxCURSOR_ARROW;
  ASSERT_TRUE(image.IsAtResizePoint({114, 50}, cursor));
  image.PrepareResizing();
  image.ResizeTo({20, 50}, false);
  image.CheckIfReflectedAlongAxis(false);
  // Between 20 and 60: red is now to the right, where the fixed side is.
  EXPECT_EQ(At(Paint(image), 50, 50), pixels::kRed);
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
  image.ResizeTo({120, 50}, false);
  image.CheckIfReflectedAlongAxis(false);
  EXPECT_EQ(At(Paint(image), 70, 50), pixels::kRed);
  EXPECT_EQ(At(Paint(image), 110, 50), pixels::kBlue);
}

TEST_F(AnnImageTest, MirroringStaysAfterTheRelease) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70});
  DragHandle(image, {114, 50}, {20, 50});
  image.OnObjectModified();
  EXPECT_EQ(At(Paint(image), 50, 50), pixels::kRed);
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
  EXPECT_NE(JsonToUtf8(image.ToJSON()).find(R"("Mirrored":true)"), std::string::npos);
  // A second pull across restores it.
  DragHandle(image, {6, 50}, {110, 50});
  EXPECT_EQ(At(Paint(image), 70, 50), pixels::kRed);
  EXPECT_EQ(At(Paint(image), 100, 50), pixels::kBlue);
}

TEST_F(AnnImageTest, DragThatWasCutOffLeavesThePictureAsItIsSeen) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70});
  DragHandle(image, {114, 50}, {20, 50}, false);
  wxImage const before = Paint(image);
  image.OnObjectModified();
  AnnImage restored = Restored(image.ToJSON());
  for (AnnImage *one : {&image, &restored}) {
    wxStockCursor cursor = wxCURSOR_ARROW;
    ASSERT_TRUE(one->IsAtResizePoint({6, 50}, cursor));
    one->PrepareResizing();
    one->ResizeTo({20, 50}, false);
    one->CheckIfReflectedAlongAxis(false);
    EXPECT_EQ(At(Paint(*one), 30, 50), At(before, 30, 50));
    EXPECT_EQ(At(Paint(*one), 50, 50), At(before, 50, 50));
  }
}

TEST_F(AnnImageTest, ObjectsOfOneFileShareItsPicture) {
  AnnImage const first = Picture({10, 20}, {50, 40});
  AnnImage const second = Picture({60, 20}, {90, 40});
  EXPECT_EQ(first.GetImage().GetData(), second.GetImage().GetData());
  // A file that has changed is read again.
  wxImage other(10, 10);
  other.SetRGB(wxRect(0, 0, 10, 10), 0, 255, 0);
  m_files.Save("halves.png", other);
  EXPECT_EQ(Picture({10, 20}, {50, 40}).GetImage().GetWidth(), 10);
}

TEST_F(AnnImageTest, FileNameOutlivesAPictureThatIsGone) {
  AnnImage image = Picture({10, 20}, {50, 40});
  image.SetImage("/nowhere.png");
  image.OnSelection(false);
  image.UpdateProperties();
  EXPECT_EQ(image.ImageProperties().GetFileName().GetFullPath().utf8_string(),
            m_files.PathOf("halves.png"));
}

TEST_F(AnnImageTest, BottomThatIsPulledOverTheTopTurnsThePictureUpsideDown) {
  Look().SetKeepAspectRatio(false);
  wxImage quarters(40, 40);
  quarters.SetRGB(wxRect(0, 0, 40, 20), 255, 0, 0);
  quarters.SetRGB(wxRect(0, 20, 40, 20), 0, 0, 255);
  quarters.SetRGB(wxRect(0, 0, 20, 20), 0, 255, 0);
  Look().SetFileName(wxFileName(m_files.Save("quarters.png", quarters)));
  AnnImage image = Picture({60, 60}, {100, 100});
  DragHandle(image, {80, 114}, {80, 20});
  wxImage const painted = Paint(image);
  // Upside down only: green, at the top left, is at the bottom left.
  EXPECT_EQ(At(painted, 70, 50), pixels::kGreen);
  EXPECT_EQ(At(painted, 90, 50), pixels::kRed);
  EXPECT_EQ(At(painted, 70, 30), pixels::kBlue);
}

TEST_F(AnnImageTest, PictureTurnsWithItsRectangle) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 50}, {140, 90});
  image.RememberCurrentPosition();
  image.Rotate({180, 70});
  ASSERT_NEAR(image.GetRotationAngle(), kPi / 2.0, 1e-9);
  wxImage const painted = Paint(image);
  // A quarter turn clockwise: the left half is above.
  EXPECT_EQ(At(painted, 100, 45), pixels::kRed);
  EXPECT_EQ(At(painted, 100, 95), pixels::kBlue);
  EXPECT_EQ(At(painted, 70, 70), pixels::kWhite);
}

TEST_F(AnnImageTest, WhiteWithToleranceIsTransparent) {
  wxImage picture(40, 20);
  picture.SetRGB(wxRect(0, 0, 20, 20), 252, 252, 252);
  picture.SetRGB(wxRect(20, 0, 20, 20), 251, 251, 251);
  Look().SetFileName(wxFileName(m_files.Save("white.png", picture)));
  Look().SetTransparentColor(AnnImageProperties::White);
  wxImage const cut = Paint(Picture({20, 30}, {60, 50}));
  EXPECT_EQ(pixels::BoundsOfPaint(cut), wxRect(40, 30, 20, 20));
  EXPECT_EQ(pixels::CountOf(cut, {251, 251, 251}), 400);
  // Without a transparent colour nothing is touched.
  Look().SetTransparentColor(AnnImageProperties::None);
  EXPECT_EQ(pixels::CountOf(Paint(Picture({20, 30}, {60, 50})), {252, 252, 252}), 400);
}

TEST_F(AnnImageTest, ToleranceSnapsByTheMeanOfTheChannels) {
  wxImage picture(4, 1);
  picture.SetRGB(0, 0, 255, 255, 246);  // 252
  picture.SetRGB(1, 0, 255, 255, 245);  // 251.67
  picture.SetRGB(2, 0, 9, 0, 0);        // 3
  picture.SetRGB(3, 0, 10, 0, 0);       // 3.33
  AnnImage::ApplyWhiteBlackToleranceToImage(picture, 3);
  EXPECT_EQ(At(picture, 0, 0), pixels::kWhite);
  EXPECT_EQ(At(picture, 1, 0), (pixels::Rgb{255, 255, 245}));
  EXPECT_EQ(At(picture, 2, 0), pixels::kBlack);
  EXPECT_EQ(At(picture, 3, 0), (pixels::Rgb{10, 0, 0}));
}

TEST_F(AnnImageTest, RectKeepsTheRatioOfTheWidth) {
  EXPECT_EQ(AnnImage::GetRectKeepAspectRatio({10, 10}, {50, 90}, 0.0),
            wxRect(wxPoint(10, 10), wxPoint(50, 90)));
  EXPECT_EQ(AnnImage::GetRectKeepAspectRatio({10, 10}, {50, 90}, 0.5),
            wxRect(wxPoint(10, 10), wxPoint(50, 30)));
  // Up and to the right: the height goes up.
  EXPECT_EQ(AnnImage::GetRectKeepAspectRatio({10, 50}, {50, 10}, 0.5),
            wxRect(wxPoint(10, 50), wxPoint(50, 30)));
  EXPECT_EQ(AnnImage::GetRectKeepAspectRatio({50, 50}, {10, 20}, 0.5),
            wxRect(wxPoint(50, 50), wxPoint(10, 30)));
  EXPECT_EQ(AnnImage::GetRectKeepAspectRatio({50, 50}, {51, 51}, 1e300).width, 2);
}

class AnnImageFit : public AnnImageTest {
protected:
  AnnShapePoints Fitted(wxSize const &picture, wxSize const &annotated, bool keep) {
    Look().SetFileName(wxFileName(m_files.Save("fit.png", wxImage(picture.x, picture.y))));
    Look().SetKeepAspectRatio(keep);
    AnnImage image = Picture({20, 30}, {60, 60});
    image.RememberCurrentPosition();
    image.Rotate({100, 31});
    image.FitToImage(annotated);
    EXPECT_EQ(image.GetRotationAngle(), 0.0);
    return RecordOf(image);
  }
};

TEST_F(AnnImageFit, NarrowPictureTouchesTopAndBottom) {
  AnnShapePoints const record = Fitted({40, 30}, {160, 90}, true);
  // 120 by 90 about (80, 45).
  EXPECT_TRUE(test::At(record.m_topLeft, 20, 0));
  EXPECT_TRUE(test::At(record.m_bottomRight, 140, 90));
}

TEST_F(AnnImageFit, WidePictureTouchesLeftAndRight) {
  AnnShapePoints const record = Fitted({160, 90}, {120, 90}, true);
  // 120 by 67.5 about (60, 45).
  EXPECT_TRUE(test::At(record.m_topLeft, 0, 11.25));
  EXPECT_TRUE(test::At(record.m_bottomRight, 120, 78.75));
}

TEST_F(AnnImageFit, WithoutProportionsItFillsThePicture) {
  AnnShapePoints const record = Fitted({40, 30}, {160, 90}, false);
  EXPECT_TRUE(test::At(record.m_topLeft, 0, 0));
  EXPECT_TRUE(test::At(record.m_topRight, 160, 0));
  EXPECT_TRUE(test::At(record.m_bottomRight, 160, 90));
}

TEST_F(AnnImageTest, ResettingGivesItsOwnSizeUprightAndUnmirrored) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 110});
  DragHandle(image, {114, 70}, {20, 70});
  image.RememberCurrentPosition();
  image.Rotate({100, 90});
  image.ResetToOriginal();
  EXPECT_TRUE(image.ImageProperties().GetKeepAspectRatio());
  EXPECT_EQ(image.GetRotationAngle(), 0.0);
  // 40 by 20 about (40, 70).
  EXPECT_TRUE(test::At(RecordOf(image).m_topLeft, 20, 60));
  EXPECT_TRUE(test::At(RecordOf(image).m_bottomRight, 60, 80));
  EXPECT_EQ(At(Paint(image), 30, 70), pixels::kRed);
  EXPECT_EQ(At(Paint(image), 50, 70), pixels::kBlue);
  image.OnObjectModified();
  EXPECT_NE(JsonToUtf8(image.ToJSON()).find(R"("Mirrored":false)"), std::string::npos);
}

TEST_F(AnnImageTest, DocumentHoldsThePathAndTheFlag) {
  AnnImage const image = Picture({10, 20}, {50, 40});
  wxJSONValue const json = image.ToJSON();
  EXPECT_EQ(json.ItemAt("Id").AsInt(), 6);
  EXPECT_EQ(json.ItemAt("Properties").ItemAt("FileName").AsString().utf8_string(),
            m_files.PathOf("halves.png"));
  EXPECT_EQ(JsonToUtf8(json.ItemAt("Rectangle").ItemAt("Coordinates")),
            R"([{"TopLeft":[10.0,20.0],"TopRight":[50.0,20.0],"BottomRight":[50.0,40.0],)"
            R"("BottomLeft":[10.0,40.0],"Mirrored":false,"Range":[0,0]}])");
  EXPECT_EQ(JsonToUtf8(json).rfind(R"({"Id":6,"Properties":)", 0), 0U);
}

TEST_F(AnnImageTest, RestoredPictureIsTheSame) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70});
  DragHandle(image, {114, 50}, {20, 50});
  image.RememberCurrentPosition();
  image.Rotate({90, 90});
  image.OnObjectModified();
  AnnImage const restored = Restored(image.ToJSON());
  EXPECT_TRUE(pixels::Alike(Paint(restored), Paint(image), 2));
  EXPECT_EQ(JsonToUtf8(restored.ToJSON()), JsonToUtf8(image.ToJSON()));
}

TEST_F(AnnImageTest, FileThatIsGoneLeavesAnObjectWithoutAPicture) {
  wxJSONValue const json = Picture({10, 20}, {50, 40}).ToJSON();
  fs::remove(m_files.PathOf("halves.png"));
  AnnImage const restored = Restored(json);
  EXPECT_FALSE(restored.GetImage().IsOk());
  EXPECT_TRUE(restored.WouldDisappear());
  EXPECT_EQ(pixels::BoundsOfPaint(Paint(restored)), wxRect());
  EXPECT_EQ(JsonToUtf8(restored.ToJSON()), JsonToUtf8(json));
}

TEST_F(AnnImageTest, OnlyPicturesInRegularFilesAreRead) {
  std::string const pipe = m_files.PathOf("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::ifstream whole(m_files.PathOf("halves.png"), std::ios::binary);
  std::string const bytes((std::istreambuf_iterator<char>(whole)),
                          std::istreambuf_iterator<char>());
  for (std::string const &path :
       {m_files.PathOf("none.png"), fs::temp_directory_path().string(), pipe,
        std::string("/dev/zero"), m_files.Write("text.png", "no picture"),
        m_files.Write("cut.png", bytes.substr(0, bytes.size() / 2)),
        m_files.Write("huge.ppm", "P6\n60000 60000\n255\nabc"), std::string()}) {
    Look().SetFileName(wxFileName(wxString::FromUTF8(path)));
    AnnImage const image = Picture({10, 20}, {50, 40});
    EXPECT_FALSE(image.GetImage().IsOk()) << path;
    EXPECT_EQ(pixels::BoundsOfPaint(Paint(image)), wxRect()) << path;
  }
}

TEST_F(AnnImageTest, FileThatCannotBeReadLeavesWhatWasPainted) {
  AnnImage image = Picture({10, 20}, {50, 40});
  wxImage const before = Paint(image);
  image.SetImage("/nowhere.png");
  EXPECT_FALSE(image.GetImage().IsOk());
  EXPECT_TRUE(pixels::Alike(Paint(image), before, 0));
  EXPECT_TRUE(image.WouldDisappear());
}

TEST_F(AnnImageTest, IsHitAllOverItsRectangle) {
  Look().SetTransparentColor(AnnImageProperties::White);
  Look().SetKeepAspectRatio(false);
  AnnImage const image = Picture({10, 20}, {50, 40});
  EXPECT_TRUE(image.Contains({10, 20}));
  EXPECT_TRUE(image.Contains({30, 30}));
  EXPECT_FALSE(image.Contains({51, 30}));
  AnnImage const point = Picture({10, 20}, {10, 20});
  EXPECT_TRUE(point.Contains({10, 20}));
  EXPECT_FALSE(point.Contains({11, 20}));
  EXPECT_TRUE(point.WouldDisappear());
}

TEST_F(AnnImageTest, PropertiesReachPictureAndProportions) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({20, 30}, {120, 110});
  Look().SetKeepAspectRatio(true);
  image.UpdateProperties();
  EXPECT_TRUE(test::At(RecordOf(image).m_bottomRight, 120, 80));
  EXPECT_EQ(image.GetDominantColor(), *wxBLACK);
}

TEST_F(AnnImageTest, CopyIsItsOwn) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70});
  AnnImage const copy(image);
  wxImage const before = Paint(copy);
  DragHandle(image, {114, 50}, {20, 50});
  image.OnObjectModified();
  EXPECT_TRUE(pixels::Alike(Paint(copy), before, 0));
  EXPECT_EQ(JsonToUtf8(copy.ToJSON()).find(R"("Mirrored":true)"), std::string::npos);
}

class AnnImageInAVideo : public AnnImageTest {
protected:
  AnnImageInAVideo() : AnnImageTest(10) {}
};

TEST_F(AnnImageInAVideo, EachFrameHasItsMirroring) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70});
  image.SetEndFrame(9);
  GoTo(image, 4);
  DragHandle(image, {114, 50}, {20, 50});
  image.OnObjectModified();
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
  GoTo(image, 6);
  EXPECT_EQ(At(Paint(image), 70, 50), pixels::kRed);
  GoTo(image, 4);
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
  AnnImage restored = Restored(image.ToJSON());
  for (int const frame : {0, 4, 9}) {
    GoTo(restored, frame);
    GoTo(image, frame);
    EXPECT_TRUE(pixels::Alike(Paint(restored), Paint(image), 2)) << frame;
  }
}

TEST_F(AnnImageInAVideo, MoveByNothingChangesNothing) {
  AnnImage image = Picture({20, 30}, {60, 50});
  image.SetEndFrame(9);
  image.OnObjectModified();
  std::string const before = JsonToUtf8(image.ToJSON());
  GoTo(image, 3);
  image.MoveFor({0, 0});
  image.OnObjectModified();
  EXPECT_EQ(JsonToUtf8(image.ToJSON()), before);
}

TEST_F(AnnImageInAVideo, MoveGivesTheFrameAFlagOfItsOwnAndMovingAllFramesDoesNot) {
  AnnImage image = Picture({20, 30}, {60, 50});
  image.SetEndFrame(9);
  auto const runs = [&] {
    image.OnObjectModified();
    return image.ToJSON().ItemAt("Rectangle").ItemAt("Coordinates").Size();
  };
  EXPECT_EQ(runs(), 1);
  GoTo(image, 3);
  image.MoveAllFramesFor({5, 5});
  EXPECT_EQ(runs(), 1);
  image.MoveFor({5, 5});
  EXPECT_EQ(runs(), 3);
}

TEST_F(AnnImageInAVideo, RunningVideoTakesCornersAndMirroringAlong) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70}, 4);
  GoTo(image, 4);
  DragHandle(image, {114, 50}, {20, 50});
  GoTo(image, 5);
  EXPECT_TRUE(pixels::BoundsOfPaint(Paint(image)).IsEmpty());
  image.DuplicateLastCoordinates(5);
  GoTo(image, 5);
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
  EXPECT_EQ(At(Paint(image), 50, 50), pixels::kRed);
  // The first frame has none before it.
  image.DuplicateLastCoordinates(4);
  GoTo(image, 4);
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
}

TEST_F(AnnImageInAVideo, LongerVideoHasRoomForTheMirroredPicture) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70}, 9);
  GoTo(image, 9);
  DragHandle(image, {114, 50}, {20, 50});
  image.OnVideoLengthIncreased(20);
  image.SetEndFrame(15);
  image.UpdateCoordinatesPointers(15);
  EXPECT_EQ(At(Paint(image), 30, 50), pixels::kBlue);
  image.OnObjectModified();
  wxJSONValue const runs = image.ToJSON().ItemAt("Rectangle").ItemAt("Coordinates");
  ASSERT_EQ(runs.Size(), 1);
  EXPECT_EQ(JsonToUtf8(runs.ItemAt(0).ItemAt("Range")), "[9,15]");
  EXPECT_TRUE(runs.ItemAt(0).ItemAt("Mirrored").AsBool());
}

TEST_F(AnnImageInAVideo, CountBelowTheLastFrameLeavesThePictureAndItsFlag) {
  Look().SetKeepAspectRatio(false);
  AnnImage image = Picture({60, 30}, {100, 70}, 9);
  GoTo(image, 9);
  DragHandle(image, {114, 50}, {20, 50});
  image.OnVideoLengthIncreased(5);
  EXPECT_FALSE(image.AreCoordinatesEmpty(9));
  image.SetStartFrame(8);
  image.OnObjectModified();
  wxJSONValue const runs = image.ToJSON().ItemAt("Rectangle").ItemAt("Coordinates");
  ASSERT_EQ(runs.Size(), 1);
  EXPECT_EQ(JsonToUtf8(runs.ItemAt(0).ItemAt("Range")), "[8,9]");
  EXPECT_TRUE(runs.ItemAt(0).ItemAt("Mirrored").AsBool());
}

// Two thirds of 160 are the height, which its own corners miss by a rounding error.
TEST_F(AnnImageTest, RestoredPictureThatKeepsItsProportionsIsWrittenAsItWasRead) {
  Look().SetFileName(wxFileName(m_files.Save("thirds.png", wxImage(30, 20))));
  Look().SetKeepAspectRatio(true);
  AnnImage image = Picture({10, 10}, {70, 50});
  image.FitToImage(wxSize(160, 120));
  image.OnObjectModified();
  AnnImage restored = Restored(image.ToJSON());
  restored.OnObjectModified();
  EXPECT_TRUE(restored.ToJSON().IsSameAs(image.ToJSON()));
}

}  // namespace

}  // namespace framenote::test
