// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include <wx/gdicmn.h>
#include <wx/geometry.h>

class AnnotationTool;

/// Pictures from the system's clipboard. A picture object names a file, so the picture is kept in
/// the user's data folder, under the sum of its pixels: the same picture is kept once.

/// Stores the picture of the clipboard and returns its path; nothing if there is none.
/// Throws FileError.
std::optional<std::string> KeepClipboardPicture();

/// Makes a picture object of the file in the current frame, by the drag that draws one: within
/// `seen`, a rectangle in picture pixels, and nowhere above another object. Returns whether there
/// was room. `scale` and `offset` are those of the view.
bool PastePictureObject(AnnotationTool &tool, std::string const &path, wxRect const &seen,
                        double scale, wxPoint2DDouble const &offset);
