// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace framenote::fuzz {

/// Starts wxWidgets without a display, until the process ends. A failed assertion, of wxWidgets or
/// of ours, is a defect from then on. To be called once, before anything else.
void StartWithoutDisplay();

/// Ends the process as a defect, with a line that says which.
[[noreturn]] void Fail(std::string const &message);

}  // namespace framenote::fuzz
