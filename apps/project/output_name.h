// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

/// What a burn makes.
enum class BurnOutput {
  Picture,   ///< one frame: .png, .jpg, .jpeg, .bmp, .tif or .tiff
  Pictures,  ///< a picture for each frame; the name holds the place of its number: frame-%06d.png
  Video,     ///< .mkv, .mp4 or .mov
  Unknown
};

/// What the name of an output asks for. Capitals in the extension do not matter.
BurnOutput BurnOutputOf(std::string const &path);
/// A line that says of an unknown one what is known.
std::string UnknownOutputText(std::string const &path);
/// Whether a video of this name is in the container that holds any codec.
bool IsMatroska(std::string const &path);
/// The format of a picture by its name; wxBITMAP_TYPE_INVALID if it is none that is written.
wxBitmapType PictureTypeOf(std::string const &path);
/// The path with the frame's number in the place of "%d" or "%0Nd" in the file's name, N from 1 to
/// 9 its least number of digits; the path itself if there is no such place.
std::string OutputPathOf(std::string const &path, std::int64_t frame);
