// SPDX-License-Identifier: MIT
#include "media/still_format.h"

#include <cstdlib>

namespace {

using namespace std::string_view_literals;
using Format = StillHeader::Format;

constexpr auto kPngSignature = "\x89PNG\r\n\x1a\n"sv;

bool BeginsWith(std::string_view bytes, std::string_view beginning) {
  return bytes.substr(0, beginning.size()) == beginning;
}

bool IsSpace(char character) {
  return " \t\r\n\v\f"sv.find(character) != std::string_view::npos;
}

/// Numbers anywhere in the bytes, in one byte order; 0 beyond their end.
class Reader {
public:
  Reader(std::string_view bytes, bool isBigEndian) : m_bytes(bytes), m_isBig(isBigEndian) {}

  std::uint32_t Byte(std::size_t at) const {
    return at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[at]) : 0;
  }
  std::uint32_t Two(std::size_t at) const {
    return m_isBig ? Byte(at) << 8 | Byte(at + 1) : Byte(at + 1) << 8 | Byte(at);
  }
  std::uint32_t Four(std::size_t at) const {
    return m_isBig ? Two(at) << 16 | Two(at + 2) : Two(at + 2) << 16 | Two(at);
  }

private:
  std::string_view m_bytes;
  bool m_isBig;
};

/// Two digits and white space: "P2" to "P6" are pictures, "P1" and "P4" bitmaps.
bool IsPnm(std::string_view bytes) {
  return bytes.size() > 3 && bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6' &&
         (IsSpace(bytes[2]) || bytes[2] == '#');
}

/// The letters alone begin many texts; a file's reserved bytes are zeros.
bool IsBmp(std::string_view bytes) {
  return bytes.size() > 10 && BeginsWith(bytes, "BM") && bytes.substr(6, 4) == "\0\0\0\0"sv;
}

std::optional<Format> FormatOf(std::string_view bytes) {
  if (BeginsWith(bytes, kPngSignature)) return Format::Png;
  if (BeginsWith(bytes, "\xFF\xD8\xFF")) return Format::Jpeg;
  if (BeginsWith(bytes, "II*\0"sv) || BeginsWith(bytes, "MM\0*"sv)) return Format::Tiff;
  if (BeginsWith(bytes, "GIF87a") || BeginsWith(bytes, "GIF89a")) return Format::Gif;
  if (IsBmp(bytes)) return Format::Bmp;
  if (IsPnm(bytes)) return Format::Pnm;
  return std::nullopt;
}

void ReadPng(std::string_view bytes, StillHeader &header) {
  Reader const reader(bytes, true);
  header.width = reader.Four(16);
  header.height = reader.Four(20);
  header.bitsPerChannel = static_cast<int>(reader.Byte(24));
}

void ReadGif(std::string_view bytes, StillHeader &header) {
  Reader const reader(bytes, false);
  header.width = reader.Two(6);
  header.height = reader.Two(8);
}

void ReadBmp(std::string_view bytes, StillHeader &header) {
  Reader const reader(bytes, false);
  constexpr std::uint32_t kOldHeader = 12;
  if (reader.Four(14) == kOldHeader) {
    header.width = reader.Two(18);
    header.height = reader.Two(20);
    return;
  }
  header.width = static_cast<std::int32_t>(reader.Four(18));
  // Negative for rows from the top.
  header.height = std::abs(std::int64_t{static_cast<std::int32_t>(reader.Four(22))});
}

/// Whether a JPEG marker stands alone, without a length and content.
bool IsBareMarker(std::uint32_t marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

/// The start of a frame, which tells the size: C0 to CF but for three that are tables.
bool IsFrameMarker(std::uint32_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Walks over the segments of a JPEG up to its picture data; gives where that begins, or the end.
std::size_t WalkJpeg(std::string_view bytes, StillHeader &header) {
  constexpr std::uint32_t kStartOfScan = 0xDA;
  Reader const reader(bytes, true);
  std::size_t at = 2;
  while (at + 4 <= bytes.size()) {
    std::uint32_t const marker = reader.Byte(at + 1);
    if (reader.Byte(at) != 0xFF) return bytes.size();
    if (marker == 0xFF || IsBareMarker(marker)) {
      at += marker == 0xFF ? 1 : 2;
      continue;
    }
    if (IsFrameMarker(marker)) {
      header.bitsPerChannel = static_cast<int>(reader.Byte(at + 4));
      header.height = reader.Two(at + 5);
      header.width = reader.Two(at + 7);
    }
    at += 2 + reader.Two(at + 2);
    if (marker == kStartOfScan) return at;
  }
  return bytes.size();
}

/// White space and comments between the numbers of a PNM header.
std::size_t SkipBetween(std::string_view bytes, std::size_t at) {
  while (at < bytes.size() && (IsSpace(bytes[at]) || bytes[at] == '#')) {
    if (bytes[at] == '#') {
      while (at < bytes.size() && bytes[at] != '\n') ++at;
    } else {
      ++at;
    }
  }
  return at;
}

/// The number that follows at `at`, which is moved behind it; cut to a size that nothing has.
std::int64_t NextPnmNumber(std::string_view bytes, std::size_t &at) {
  constexpr std::int64_t kTooMuch = 1'000'000'000;
  std::int64_t number = 0;
  at = SkipBetween(bytes, at);
  for (; at < bytes.size() && bytes[at] >= '0' && bytes[at] <= '9'; ++at) {
    if (number < kTooMuch) number = number * 10 + (bytes[at] - '0');
  }
  return number;
}

void ReadPnm(std::string_view bytes, StillHeader &header) {
  std::size_t at = 2;
  header.width = NextPnmNumber(bytes, at);
  header.height = NextPnmNumber(bytes, at);
}

std::int64_t CountWords(std::string_view bytes) {
  std::int64_t words = 0;
  bool wasSpace = true;
  for (char const character : bytes) {
    bool const isSpace = IsSpace(character);
    if (wasSpace && !isSpace) ++words;
    wasSpace = isSpace;
  }
  return words;
}

/// REQUIRES: the size in the header is an accepted one.
bool IsWholePnm(std::string_view bytes, StillHeader const &header) {
  bool const isColoured = bytes[1] == '3' || bytes[1] == '6';
  bool const isText = bytes[1] <= '3';
  std::size_t at = 2;
  NextPnmNumber(bytes, at);
  NextPnmNumber(bytes, at);
  std::int64_t const highest = NextPnmNumber(bytes, at);
  std::int64_t const numbers = header.width * header.height * (isColoured ? 3 : 1);
  std::string_view const rest = bytes.substr(at);
  if (isText) return CountWords(rest) >= numbers;
  // One character of white space ends the header; numbers beyond a byte take two.
  return static_cast<std::int64_t>(rest.size()) >= 1 + numbers * (highest > 255 ? 2 : 1);
}

/// Reads what is needed of the first directory of a TIFF.
void ReadTiff(std::string_view bytes, StillHeader &header) {
  enum Tag : std::uint32_t { Width = 256, Height = 257, Bits = 258, Orientation = 274 };
  constexpr std::uint32_t kShort = 3;
  constexpr std::size_t kEntryBytes = 12;
  header.isBigEndian = bytes[0] == 'M';
  Reader const reader(bytes, header.isBigEndian);
  std::size_t const directory = reader.Four(4);
  std::size_t const count = reader.Two(directory);
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t const entry = directory + 2 + i * kEntryBytes;
    if (entry + kEntryBytes > bytes.size()) return;
    bool const isShort = reader.Two(entry + 2) == kShort;
    std::uint32_t const value = isShort ? reader.Two(entry + 8) : reader.Four(entry + 8);
    switch (reader.Two(entry)) {
      case Tag::Width:
        header.width = value;
        break;
      case Tag::Height:
        header.height = value;
        break;
      case Tag::Bits:
        // More than two of them stand elsewhere, at an offset.
        header.bitsPerChannel = static_cast<int>(
            reader.Four(entry + 4) > 2 ? reader.Two(reader.Four(entry + 8)) : value);
        break;
      case Tag::Orientation:
        if (isShort) header.orientationAt = entry + 8;
        break;
      default:
        break;
    }
  }
}

/// Where the picture data of a JPEG begin, or its end if they do not.
std::size_t DataOfJpeg(std::string_view bytes) {
  StillHeader header;
  return WalkJpeg(bytes, header);
}

bool IsWholeJpeg(std::string_view bytes) {
  std::size_t const data = DataOfJpeg(bytes);
  // Within picture data a mark is told from a byte of that value by what follows.
  return data < bytes.size() && bytes.substr(data).find("\xFF\xD9") != std::string_view::npos;
}

}  // namespace

bool IsStill(std::string_view bytes) {
  return FormatOf(bytes).has_value();
}

std::optional<StillHeader> ReadStillHeader(std::string_view bytes) {
  std::optional<Format> const format = FormatOf(bytes);
  if (!format) return std::nullopt;
  StillHeader header;
  header.format = *format;
  switch (*format) {
    case Format::Png:
      ReadPng(bytes, header);
      break;
    case Format::Jpeg:
      WalkJpeg(bytes, header);
      break;
    case Format::Bmp:
      ReadBmp(bytes, header);
      break;
    case Format::Tiff:
      ReadTiff(bytes, header);
      break;
    case Format::Pnm:
      ReadPnm(bytes, header);
      break;
    case Format::Gif:
      ReadGif(bytes, header);
      break;
  }
  return header;
}

char const *NameOf(Format format) {
  switch (format) {
    case Format::Png:
      return "png";
    case Format::Jpeg:
      return "jpeg";
    case Format::Bmp:
      return "bmp";
    case Format::Tiff:
      return "tiff";
    case Format::Pnm:
      return "pnm";
    case Format::Gif:
      return "gif";
  }
  return "";
}

bool IsWhole(std::string_view bytes, StillHeader const &header) {
  if (header.format == Format::Jpeg) return IsWholeJpeg(bytes);
  // Bitmaps, with one bit a pixel, have no highest number; their decoder refuses them anyway.
  bool const isNumbers = header.format == Format::Pnm && bytes[1] != '1' && bytes[1] != '4';
  return !isNumbers || IsWholePnm(bytes, header);
}

bool IsPartDecoded(std::string_view bytes, StillHeader const &header) {
  return header.format == Format::Jpeg && DataOfJpeg(bytes) < bytes.size();
}
