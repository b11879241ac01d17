// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class MediaSource;

/// Positions as people read and type them. Times are those of the frames' own time stamps, from the
/// first frame's on, so that they hold where the rate varies. Numbers look the same whatever the
/// user's language is.

/// When the frame begins: hours, minutes, seconds and milliseconds, "00:01:02.345"; what is beyond
/// the milliseconds is cut off. REQUIRES: 0 <= frame < frameCount.
std::string FormatTimeCode(MediaSource const &source, std::int64_t frame);

/// The frame that a typed position means: a frame number from 0 on ("250"), or a time as h:m:s.f,
/// m:s.f or s.f, where f is a decimal fraction of a second after a point or a comma. Without colons
/// a time has a fraction ("10.0"), or it would be a frame number. The time that FormatTimeCode
/// gives finds its frame again, up to a thousand frames a second.
/// Nothing for other texts and for positions outside the media.
std::optional<std::int64_t> ParsePosition(std::string_view text, MediaSource const &source);
