// SPDX-License-Identifier: MIT
#include "project/time_code.h"

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <limits>
#include <vector>

#include "media/media_source.h"

namespace {

constexpr std::int64_t kMaxInt64 = std::numeric_limits<std::int64_t>::max();
constexpr int kMilliDigits = 3;
constexpr int kMaxDigits = 9;  // nanoseconds: finer than any stream's time base
constexpr std::int64_t kPerMinute = 60;
constexpr std::int64_t kPerHour = 3600;
/// A million hours: more than any media lasts, and far from where arithmetic ends.
constexpr std::int64_t kMaxSeconds = 1000000 * kPerHour;
constexpr std::size_t kMaxFields = 3;

/// A time that a text says: `fraction` has `digits` decimal digits.
struct Time {
  std::int64_t seconds = 0;
  std::int64_t fraction = 0;
  int digits = 0;
};

bool operator<=(Time const &a, Time const &b) {
  return a.seconds != b.seconds ? a.seconds < b.seconds : a.fraction <= b.fraction;
}

std::int64_t PowerOfTen(int exponent) {
  std::int64_t power = 1;
  while (exponent-- > 0) power *= 10;
  return power;
}

/// `ticks` of the time base after the first frame, cut off after `digits` decimals. In whole
/// numbers: a double would show 0.999999 where a frame begins at a second.
Time TimeOfTicks(std::int64_t ticks, Rational const &timeBase, int digits) {
  std::int64_t const numerator = timeBase.numerator;
  std::int64_t const denominator = timeBase.denominator;
  if (ticks <= 0 || numerator <= 0 || denominator <= 0) return {0, 0, digits};
  std::int64_t const parts = ticks > kMaxInt64 / numerator ? kMaxInt64 : ticks * numerator;
  std::int64_t const power = PowerOfTen(digits);
  std::int64_t const rest = parts % denominator;
  bool const isExact = rest <= kMaxInt64 / power;
  auto const fraction = isExact ? rest * power / denominator
                                : static_cast<std::int64_t>(rest / (denominator / power));
  return {parts / denominator, std::min(fraction, power - 1), digits};
}

Time TimeOf(MediaSource const &source, std::int64_t frame, int digits) {
  return TimeOfTicks(source.TimeStamp(frame) - source.TimeStamp(0), source.Info().timeBase, digits);
}

/// A whole number of decimal digits and nothing else.
std::optional<std::int64_t> ParseNumber(std::string_view text) {
  std::int64_t number = 0;
  char const *const end = text.data() + text.size();
  bool const isSigned = !text.empty() && text.front() == '-';
  auto const [stop, error] = std::from_chars(text.data(), end, number);
  if (isSigned || error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::string_view Trimmed(std::string_view text) {
  constexpr char const *kSpaces = " \t\r\n";
  std::size_t const first = text.find_first_not_of(kSpaces);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpaces) - first + 1);
}

/// Seconds of h:m:s, m:s or s. Only the first field may pass 59.
std::optional<std::int64_t> ParseSeconds(std::string_view text) {
  std::int64_t seconds = 0;
  for (std::size_t fields = 1;; ++fields) {
    std::size_t const colon = text.find(':');
    auto const number = ParseNumber(text.substr(0, colon));
    if (!number || fields > kMaxFields || *number > kMaxSeconds) return std::nullopt;
    if (fields > 1 && *number >= kPerMinute) return std::nullopt;
    seconds = seconds * kPerMinute + *number;
    if (colon == std::string_view::npos) break;
    text.remove_prefix(colon + 1);
  }
  return seconds <= kMaxSeconds ? std::optional(seconds) : std::nullopt;
}

/// The fraction to at least milliseconds, as FormatTimeCode shows them; digits beyond the last that
/// counts are cut off.
std::optional<Time> ParseTime(std::string_view text) {
  std::size_t const point = text.find_first_of(".,");
  auto const seconds = ParseSeconds(text.substr(0, point));
  if (!seconds) return std::nullopt;
  if (point == std::string_view::npos) return Time{*seconds, 0, kMilliDigits};
  std::string_view const decimals = text.substr(point + 1);
  bool const hasOnlyDigits = decimals.find_first_not_of("0123456789") == std::string_view::npos;
  if (decimals.empty() || !hasOnlyDigits) return std::nullopt;
  std::string_view const counting = decimals.substr(0, kMaxDigits);
  int const given = static_cast<int>(counting.size());
  int const digits = std::max(given, kMilliDigits);
  return Time{*seconds, *ParseNumber(counting) * PowerOfTen(digits - given), digits};
}

/// The last frame that is shown to begin at the time or before it; nothing after the media's end.
std::optional<std::int64_t> FrameAtTime(MediaSource const &source, Time const &time) {
  std::int64_t const last = source.Info().frameCount - 1;
  std::int64_t const end = source.TimeStamp(last) + source.Duration(last) - source.TimeStamp(0);
  if (TimeOfTicks(end, source.Info().timeBase, time.digits) <= time) return std::nullopt;
  std::int64_t low = 0;
  std::int64_t high = last;
  while (low < high) {
    std::int64_t const middle = high - (high - low) / 2;
    if (TimeOf(source, middle, time.digits) <= time) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  return low;
}

}  // namespace

std::string FormatTimeCode(MediaSource const &source, std::int64_t frame) {
  Time const time = TimeOf(source, frame, kMilliDigits);
  char text[48];
  std::snprintf(text, sizeof text, "%02" PRId64 ":%02d:%02d.%03d", time.seconds / kPerHour,
                static_cast<int>(time.seconds / kPerMinute % kPerMinute),
                static_cast<int>(time.seconds % kPerMinute), static_cast<int>(time.fraction));
  return text;
}

std::optional<std::int64_t> ParsePosition(std::string_view text, MediaSource const &source) {
  std::int64_t const frameCount = source.Info().frameCount;
  std::string_view const position = Trimmed(text);
  if (frameCount <= 0) return std::nullopt;
  if (position.find_first_of(":.,") == std::string_view::npos) {
    auto const frame = ParseNumber(position);
    return frame && *frame < frameCount ? frame : std::nullopt;
  }
  auto const time = ParseTime(position);
  return time ? FrameAtTime(source, *time) : std::nullopt;
}
