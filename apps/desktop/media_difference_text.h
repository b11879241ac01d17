// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <wx/string.h>

#include "project/project_file.h"

/// The warning that the media at `path` is not what the project was made on: a sentence, a line for
/// each difference, and what follows from them. Empty without differences.
wxString MediaDifferenceText(std::vector<MediaDifference> const &differences,
                             std::string const &path);
