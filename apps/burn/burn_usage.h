// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The text of --help, in the user's language.
std::string BurnUsage();
