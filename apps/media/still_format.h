// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// What the first bytes of a still picture say, read without decoding.
struct StillHeader {
  enum class Format { Png, Jpeg, Bmp, Tiff, Pnm, Gif };

  Format format = Format::Png;
  std::int64_t width = 0;  ///< as stored; 0 where the header is damaged
  std::int64_t height = 0;
  int bitsPerChannel = 8;
  /// TIFF: where the number of the orientation stands, as 16 bits; 0 if it does not.
  std::size_t orientationAt = 0;
  bool isBigEndian = false;  ///< TIFF: of that number
};

/// How many bytes of a file tell whether it is a still picture.
constexpr std::size_t kStillSignature = 16;

/// Whether a file that begins with these bytes is a still picture of a known format.
bool IsStill(std::string_view bytes);
/// The header of a whole file; nothing if it is no still picture of a known format.
std::optional<StillHeader> ReadStillHeader(std::string_view bytes);
/// "png" and the like.
char const *NameOf(StillHeader::Format format);
/// Whether a picture is there to its end, in the formats whose decoders fill up what is missing:
/// a JPEG's end mark, a PNM's numbers. True for the other formats.
bool IsWhole(std::string_view bytes, StillHeader const &header);
/// Whether the decoder makes the picture of what is there: a JPEG whose picture data have begun,
/// where it paints grey what is missing. For pictures that are not whole.
bool IsPartDecoded(std::string_view bytes, StillHeader const &header);
