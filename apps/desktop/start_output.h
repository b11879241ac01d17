// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Tells who started the program a text in UTF-8, with its line breaks, where no window is there
/// yet. REQUIRES: wxWidgets is initialised, with or without a display.
void TellStarter(std::string const &text, bool isProblem);
