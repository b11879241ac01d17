// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include <wx/string.h>

#include "framenote/export.h"

/// Texts of several lines, with a line feed between two lines.
namespace framenote {

/// The lines as one text; empty for none.
FRAMENOTE_API wxString JoinLines(std::vector<wxString> const &lines);

///@{
/// The beginning of a text: at most so many lines and characters. A line may hold line feeds, which
/// count as ends of lines too.
FRAMENOTE_API wxString FirstLines(wxString const &text, std::size_t maxLines,
                                  std::size_t maxLength);
FRAMENOTE_API std::vector<wxString> FirstLines(std::vector<wxString> lines, std::size_t maxLines,
                                               std::size_t maxLength);
///@}

}  // namespace framenote
