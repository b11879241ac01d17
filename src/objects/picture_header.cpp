// SPDX-License-Identifier: MIT
#include "objects/picture_header.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace framenote {

namespace {

/// Enough for the extent in every format but JPEG, which has it farther on.
constexpr std::size_t kHeaderSize = 26;
using Header = std::array<unsigned char, kHeaderSize>;

long long BigEndian(unsigned char const *bytes, int count) {
  long long value = 0;
  for (int i = 0; i < count; ++i) value = value << 8 | bytes[i];
  return value;
}

long long LittleEndian(unsigned char const *bytes, int count) {
  long long value = 0;
  for (int i = count - 1; i >= 0; --i) value = value << 8 | bytes[i];
  return value;
}

bool Read(wxInputStream &file, unsigned char *bytes, std::size_t count) {
  return file.Read(bytes, count).LastRead() == count;
}

bool BeginsWith(Header const &header, char const *signature, std::size_t length) {
  return std::memcmp(header.data(), signature, length) == 0;
}

/// A BMP's height is negative if its rows go from top to bottom.
PictureExtent ExtentOfBitmap(Header const &header) {
  constexpr long long kOldInfoSize = 12;  // OS/2: sides of two bytes
  if (LittleEndian(&header[14], 4) == kOldInfoSize)
    return {LittleEndian(&header[18], 2), LittleEndian(&header[20], 2)};
  auto const height = static_cast<std::int32_t>(LittleEndian(&header[22], 4));
  return {LittleEndian(&header[18], 4), std::llabs(height)};
}

/// Of the segments of a JPEG file, a start of frame tells the extent (ITU-T T.81, B.2.2).
bool IsStartOfFrame(int marker) {
  constexpr int kFirst = 0xc0, kLast = 0xcf, kHuffman = 0xc4, kExtension = 0xc8, kArithmetic = 0xcc;
  return kFirst <= marker && marker <= kLast && marker != kHuffman && marker != kExtension &&
         marker != kArithmetic;
}

std::optional<PictureExtent> ExtentOfJpeg(wxInputStream &file) {
  constexpr int kMostSegments = 1000;
  if (file.SeekI(2) == wxInvalidOffset) return {};
  for (int i = 0; i < kMostSegments; ++i) {
    // 0xff, the marker, the length of what follows, and of a frame: precision, height, width.
    std::array<unsigned char, 4> segment{};
    if (!Read(file, segment.data(), segment.size()) || segment[0] != 0xff) return {};
    if (IsStartOfFrame(segment[1])) {
      std::array<unsigned char, 5> frame{};
      if (!Read(file, frame.data(), frame.size())) return {};
      return PictureExtent{BigEndian(&frame[3], 2), BigEndian(&frame[1], 2)};
    }
    long long const rest = BigEndian(&segment[2], 2) - 2;
    if (rest < 0 || file.SeekI(rest, wxFromCurrent) == wxInvalidOffset) return {};
  }
  return {};
}

}  // namespace

std::optional<PictureExtent> ExtentInHeader(wxInputStream &file) {
  Header header{};
  if (file.SeekI(0) == wxInvalidOffset || !Read(file, header.data(), header.size())) return {};
  if (BeginsWith(header, "\x89PNG\r\n\x1a\n", 8))
    return PictureExtent{BigEndian(&header[16], 4), BigEndian(&header[20], 4)};
  if (BeginsWith(header, "GIF8", 4))
    return PictureExtent{LittleEndian(&header[6], 2), LittleEndian(&header[8], 2)};
  if (BeginsWith(header, "BM", 2)) return ExtentOfBitmap(header);
  if (BeginsWith(header, "\xff\xd8\xff", 3)) return ExtentOfJpeg(file);
  return {};
}

}  // namespace framenote
