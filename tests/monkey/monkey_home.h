// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace framenote::test {

/// The folder of its own that the whole process writes to: home, settings, caches, the current
/// folder and everything that is saved. It is there before the toolkit asks for any of these, and
/// goes with the process.
std::string const &MonkeyHome();

/// A file in it.
std::string InMonkeyHome(std::string const &name);

}  // namespace framenote::test
