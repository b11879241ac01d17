// SPDX-License-Identifier: MIT
// Still pictures: formats, orientation, limits and damage.
#include <string>

#include <wx/image.h>
#include <wx/mstream.h>

#include <gtest/gtest.h>
#include <exiv2/exiv2.hpp>

#include "media/clips.h"
#include "media/picture_image.h"
#include "media/picture_turn.h"

namespace framenote::test {

namespace {

/// 24 x 16 with a colour of its own in each quarter.
wxImage Quarters() {
  wxImage image(24, 16);
  for (int y = 0; y < 16; ++y) {
    for (int x = 0; x < 24; ++x) {
      auto const level = [](bool isHigh) { return static_cast<unsigned char>(isHigh ? 240 : 16); };
      image.SetRGB(x, y, level(x < 12), level(y < 8), level(x < 12 && y < 8));
    }
  }
  return image;
}

std::string Encoded(wxImage const &image, wxBitmapType type) {
  wxMemoryOutputStream stream;
  EXPECT_TRUE(image.SaveFile(stream, type));
  std::string bytes(stream.GetSize(), '\0');
  stream.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

/// What the orientation means, in the words of the EXIF standard: where row 0 and column 0 lie.
wxImage Upright(wxImage const &stored, int orientation) {
  switch (orientation) {
    case 2:
      return stored.Mirror(true);
    case 3:
      return stored.Rotate180();
    case 4:
      return stored.Mirror(false);
    case 5:
      return stored.Rotate90(true).Mirror(true);
    case 6:
      return stored.Rotate90(true);
    case 7:
      return stored.Rotate90(true).Mirror(false);
    case 8:
      return stored.Rotate90(false);
    default:
      return stored;
  }
}

void Tag(std::string const &path, int orientation) {
  auto const image = Exiv2::ImageFactory::open(path);
  Exiv2::ExifData exif;
  exif["Exif.Image.Orientation"] = static_cast<std::uint16_t>(orientation);
  image->setExifData(exif);
  image->writeMetadata();
}

std::string Bytes(wxImage const &image) {
  return BytesOf(ToPicture(image));
}

class Stills : public MediaTest {};

}  // namespace

TEST_F(Stills, EveryFormatIsKnownByWhatItHolds) {
  wxImage const image = Quarters();
  struct {
    wxBitmapType type;
    char const *name;
  } const formats[] = {{wxBITMAP_TYPE_PNG, "png"},
                       {wxBITMAP_TYPE_BMP, "bmp"},
                       {wxBITMAP_TYPE_TIFF, "tiff"},
                       {wxBITMAP_TYPE_PNM, "pnm"}};
  for (auto const &format : formats) {
    WriteAll(In("picture.mp4"), Encoded(image, format.type));
    auto const source = OpenMedia(In("picture.mp4"));
    EXPECT_EQ(source->Info().container, format.name);
    EXPECT_EQ(source->Info().kind, MediaInfo::Kind::Still);
    EXPECT_EQ(source->Info().frameCount, 1);
    EXPECT_EQ(source->Duration(0), 1);
    EXPECT_TRUE(BytesOf(source->Read(0).picture) == Bytes(image)) << format.name;
  }
}

TEST_F(Stills, LossyFormatsAndGifOpenToo) {
  WriteAll(In("picture"), Encoded(Quarters(), wxBITMAP_TYPE_JPEG));
  EXPECT_EQ(OpenMedia(In("picture"))->Info().container, "jpeg");
  Ffmpeg("-f lavfi -i testsrc2=s=64x48:d=1 several.gif");
  auto const source = OpenMedia(In("several.gif"));
  EXPECT_EQ(source->Info().frameCount, 1);
  EXPECT_EQ(source->Info().width, 64);
  EXPECT_EQ(source->Info().height, 48);
}

TEST_F(Stills, AllEightOrientationsAreTurnedUpright) {
  for (char const *name : {"turned.jpg", "turned.tif"}) {
    bool const isJpeg = std::string(name) == "turned.jpg";
    std::string const bytes = Encoded(Quarters(), isJpeg ? wxBITMAP_TYPE_JPEG : wxBITMAP_TYPE_TIFF);
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    wxImage const stored(stream);
    for (int orientation = 1; orientation <= 8; ++orientation) {
      WriteAll(In(name), bytes);
      if (isJpeg) {
        Tag(In(name), orientation);
      } else {
        auto const image = Exiv2::ImageFactory::open(In(name));
        image->readMetadata();
        image->exifData()["Exif.Image.Orientation"] = static_cast<std::uint16_t>(orientation);
        image->writeMetadata();
      }
      auto const source = OpenMedia(In(name));
      wxImage const expected = Upright(stored, orientation);
      EXPECT_EQ(source->Info().width, expected.GetWidth()) << name << orientation;
      EXPECT_TRUE(BytesOf(source->Read(0).picture) == Bytes(expected)) << name << orientation;
    }
  }
}

TEST_F(Stills, BrokenMetadataDoesNotCostThePicture) {
  std::string const bytes = Encoded(Quarters(), wxBITMAP_TYPE_JPEG);
  WriteAll(In("broken.jpg"), bytes);
  Tag(In("broken.jpg"), 6);
  std::string broken = ReadAll(In("broken.jpg"));
  std::size_t const exif = broken.find("Exif");
  ASSERT_NE(exif, std::string::npos);
  for (std::size_t i = exif + 6; i < exif + 20; ++i) broken[i] = '\xEE';
  WriteAll(In("broken.jpg"), broken);
  EXPECT_EQ(OpenMedia(In("broken.jpg"))->Info().width, 24);
}

TEST_F(Stills, CutOffPicturesAreDamaged) {
  Ffmpeg("-f lavfi -i testsrc2=s=320x240 -frames:v 1 whole.png");
  wxImage const image(wxString::FromUTF8(In("whole.png")));
  for (auto const type :
       {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_TIFF, wxBITMAP_TYPE_PNM}) {
    std::string const bytes = Encoded(image, type);
    WriteAll(In("cut"), bytes.substr(0, bytes.size() / 2));
    EXPECT_EQ(ProblemOf(In("cut")), MediaProblem::Damaged) << type;
    WriteAll(In("cut"), bytes.substr(0, 20));
    EXPECT_EQ(ProblemOf(In("cut")), MediaProblem::Damaged) << type;
  }
}

TEST_F(Stills, OfACutOffJpegTheRestIsGreyAndTheFrameIsToldDamaged) {
  wxImage grounds(320, 240);
  grounds.SetRGB(wxRect(0, 0, 320, 240), 200, 40, 40);
  std::string const bytes = Encoded(grounds, wxBITMAP_TYPE_JPEG);
  WriteAll(In("whole.jpg"), bytes);
  EXPECT_FALSE(OpenMedia(In("whole.jpg"))->Read(0).isDamaged);
  WriteAll(In("unended.jpg"), bytes.substr(0, bytes.size() - 2));
  EXPECT_TRUE(OpenMedia(In("unended.jpg"))->Read(0).isDamaged);

  // Colours that change from block to block: grey would be no continuation of them.
  Ffmpeg("-f lavfi -i testsrc2=s=320x240 -frames:v 1 -q:v 2 picture.jpg");
  std::string const picture = ReadAll(In("picture.jpg"));
  MediaFrame const whole = OpenMedia(In("picture.jpg"))->Read(0);
  WriteAll(In("cut.jpg"), picture.substr(0, picture.size() / 2));
  auto const source = OpenMedia(In("cut.jpg"));
  EXPECT_EQ(source->Info().width, 320);
  EXPECT_EQ(source->Info().height, 240);
  MediaFrame const cut = source->Read(0);
  EXPECT_TRUE(cut.isDamaged);
  // Up to the cut, which is past the first quarter of the rows, it is what it was.
  std::size_t const top = 60 * whole.picture.RowBytes();
  EXPECT_TRUE(BytesOf(cut.picture).substr(0, top) == BytesOf(whole.picture).substr(0, top));
  EXPECT_EQ(BytesOf(cut.picture).substr(239 * cut.picture.RowBytes() + 3 * 300),
            std::string(3 * 20, '\x80'));
}

TEST_F(Stills, AJpegWhosePictureDataHaveNotBegunIsDamaged) {
  std::string const bytes = Encoded(Quarters(), wxBITMAP_TYPE_JPEG);
  std::size_t const scan = bytes.rfind("\xFF\xDA");
  ASSERT_NE(scan, std::string::npos);
  for (std::size_t const length : {std::size_t{20}, scan, scan + 14}) {
    WriteAll(In("cut.jpg"), bytes.substr(0, length));
    EXPECT_EQ(ProblemOf(In("cut.jpg")), MediaProblem::Damaged) << length;
  }
}

TEST_F(Stills, HugePicturesAreRefusedByTheirHeader) {
  std::string const header = "P6\n# a comment\n";
  WriteAll(In("wide.ppm"), header + "32767 1\n255\n");
  EXPECT_EQ(ProblemOf(In("wide.ppm")), MediaProblem::TooLarge);
  WriteAll(In("large.ppm"), header + "16385 16384\n255\n");
  EXPECT_EQ(ProblemOf(In("large.ppm")), MediaProblem::TooLarge);
  WriteAll(In("endless.ppm"), header + "99999999999999999999 1\n255\n");
  EXPECT_EQ(ProblemOf(In("endless.ppm")), MediaProblem::TooLarge);
}

TEST(PictureImage, HandsPixelsOverWithoutCopying) {
  Picture picture = ToPicture(Quarters());
  unsigned char const *pixels = picture.Pixels();
  wxImage const image = ToImage(std::move(picture));
  EXPECT_EQ(image.GetData(), pixels);
  EXPECT_EQ(image.GetWidth(), 24);
  EXPECT_EQ(image.GetHeight(), 16);
  EXPECT_TRUE(Bytes(image) == Bytes(Quarters()));
}

TEST(PictureTurnOfMatrix, SlantsAreNoTurn) {
  EXPECT_TRUE(TurnOfMatrix(65536, 0, 0, 65536).IsNone());
  EXPECT_EQ(TurnOfMatrix(0, 65536, -65536, 0).quarters, 1);
  EXPECT_EQ(TurnOfMatrix(-65536, 0, 0, -65536).quarters, 2);
  EXPECT_EQ(TurnOfMatrix(0, -65536, 65536, 0).quarters, 3);
  EXPECT_TRUE(TurnOfMatrix(-65536, 0, 0, 65536).isMirrored);
  EXPECT_TRUE(TurnOfMatrix(46341, 46341, -46341, 46341).IsNone());
}

}  // namespace framenote::test
