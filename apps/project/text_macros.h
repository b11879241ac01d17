// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "framenote/annotation_config.h"
#include "framenote/annotation_tool.h"

class MediaSource;

/// The macros that text boxes may hold in the programs, and what they stand for.
///
/// | macro     | stands for                                                                  |
/// |-----------|-----------------------------------------------------------------------------|
/// | `%frame%` | the frame's number, from 0 on                                               |
/// | `%time%`  | when the frame begins, as FormatTimeCode says it                            |
/// | `%date%`  | when the media file was last changed, in UTC: "2024-05-01T12:34:56Z"        |
/// | `%file%`  | the media file's name, without its folder                                   |
/// | `%size%`  | width and height of the pictures: "1920x1080"                               |
///
/// The date is the file's and not today's, and in UTC, so that burning in gives the same picture
/// on any day and in any time zone.

/// With their names in the user's language, and a label for the list.
AnnotationToolConfig::TextMacrosConfig OfferedMacros();
/// REQUIRES: 0 <= frame < frameCount.
AnnotationTool::MacroPairs MacroValues(MediaSource const &source, std::int64_t frame);
