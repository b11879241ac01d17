// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The orientation that the metadata of a picture file tells, 1 to 8; 1 if it tells none, or is
/// damaged.
int ExifOrientation(std::string_view file);
