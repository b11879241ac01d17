// SPDX-License-Identifier: MIT
#include "objects/picture_header.h"

#include <string>

#include <wx/filename.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/quantize.h>
#include <wx/wfstream.h>
#include <wx/zstream.h>

#include <gtest/gtest.h>

#include "objects/picture_file.h"
#include "support/processor_time.h"

namespace framenote::test {

namespace {

std::optional<PictureExtent> ExtentOf(std::string const &bytes) {
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  return ExtentInHeader(stream);
}

void ExpectExtent(std::string const &bytes, long long width, long long height) {
  auto const extent = ExtentOf(bytes);
  ASSERT_TRUE(extent.has_value());
  EXPECT_EQ(extent->width, width);
  EXPECT_EQ(extent->height, height);
}

std::string Saved(wxImage const &image, wxBitmapType type) {
  wxMemoryOutputStream stream;
  EXPECT_TRUE(image.SaveFile(stream, type));
  std::string bytes(stream.GetSize(), '\0');
  stream.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

std::string BigEndianOf(unsigned value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xff);
  return bytes;
}

/// A chunk of a PNG file, with its checksum.
std::string Chunk(std::string const &body) {
  unsigned crc = ~0U;
  for (char const letter : body) {
    crc ^= static_cast<unsigned char>(letter);
    for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc % 2 == 1 ? 0xedb88320U : 0U);
  }
  return BigEndianOf(static_cast<unsigned>(body.size() - 4)) + body + BigEndianOf(~crc);
}

/// A black and white PNG file without a black pixel.
std::string WhitePng(unsigned width, unsigned height) {
  wxMemoryOutputStream packed;
  {
    wxZlibOutputStream stream(packed, 9);
    std::string const row = std::string(1, '\0') + std::string((width + 7) / 8, '\xff');
    for (unsigned y = 0; y < height; ++y) stream.Write(row.data(), row.size());
  }
  std::string data(packed.GetSize(), '\0');
  packed.CopyTo(data.data(), data.size());
  std::string const oneBitGray("\x01\x00\x00\x00\x00", 5);
  return "\x89PNG\r\n\x1a\n" +
         Chunk("IHDR" + BigEndianOf(width) + BigEndianOf(height) + oneBitGray) +
         Chunk("IDAT" + data) + Chunk("IEND");
}

class PictureHeader : public testing::Test {
protected:
  void SetUp() override { m_image.Clear(128); }

  wxImage m_image{37, 21};
};

TEST_F(PictureHeader, TellsTheExtentInEachFormat) {
  ExpectExtent(Saved(m_image, wxBITMAP_TYPE_PNG), 37, 21);
  ExpectExtent(Saved(m_image, wxBITMAP_TYPE_JPEG), 37, 21);
  ExpectExtent(Saved(m_image, wxBITMAP_TYPE_BMP), 37, 21);
  wxImage paletted;
  wxQuantize::Quantize(m_image, paletted, 16);
  ExpectExtent(Saved(paletted, wxBITMAP_TYPE_GIF), 37, 21);
}

TEST_F(PictureHeader, TellsTheExtentOfOldAndUpsideDownBitmaps) {
  std::string bytes = Saved(m_image, wxBITMAP_TYPE_BMP);
  // -21 in four bytes.
  bytes.replace(22, 4, "\xeb\xff\xff\xff", 4);
  ExpectExtent(bytes, 37, 21);
  std::string old(26, '\0');
  old.replace(0, 2, "BM");
  old[14] = 12;
  old.replace(18, 4, std::string("\x2c\x01\x05\x00", 4));
  ExpectExtent(old, 300, 5);
}

TEST_F(PictureHeader, IsEmptyForAnythingElse) {
  EXPECT_FALSE(ExtentOf("").has_value());
  EXPECT_FALSE(ExtentOf("\x89PNG\r\n\x1a\n").has_value());
  EXPECT_FALSE(ExtentOf(std::string(100, 'x')).has_value());
  EXPECT_FALSE(ExtentOf("\xff\xd8\xff" + std::string(100, '\0')).has_value());
  std::string const jpeg = Saved(m_image, wxBITMAP_TYPE_JPEG);
  std::size_t const frame = jpeg.find("\xff\xc0");
  ASSERT_NE(frame, std::string::npos);
  EXPECT_FALSE(ExtentOf(jpeg.substr(0, frame + 6)).has_value());
}

// 400,000,000 pixels in 50 kB: to decode them took seconds and more than a gigabyte.
TEST_F(PictureHeader, HugePictureInASmallFileIsRefusedUnread) {
  std::string const bytes = WhitePng(20'000, 20'000);
  ASSERT_LT(bytes.size(), 1'000'000U);
  wxString const path = wxFileName::CreateTempFileName("framenote-huge");
  ASSERT_TRUE(wxFFileOutputStream(path).WriteAll(bytes.data(), bytes.size()));
  ProcessorTime const watch;
  EXPECT_FALSE(ReadPictureFile(path).IsOk());
  EXPECT_LT(watch.Seconds(), 0.2);
  wxRemoveFile(path);
}

TEST_F(PictureHeader, SmallPictureOfTheSameMakingIsRead) {
  std::string const bytes = WhitePng(100, 50);
  wxString const path = wxFileName::CreateTempFileName("framenote-small");
  ASSERT_TRUE(wxFFileOutputStream(path).WriteAll(bytes.data(), bytes.size()));
  wxImage const image = ReadPictureFile(path);
  ASSERT_TRUE(image.IsOk());
  EXPECT_EQ(image.GetSize(), wxSize(100, 50));
  EXPECT_EQ(image.GetRed(99, 49), 255);
  wxRemoveFile(path);
}

}  // namespace

}  // namespace framenote::test
