// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace framenote::test {

/// What a program left that ran to its end.
struct ProgramRun {
  int code;  ///< as shells count it
  std::string out;
  std::string err;
};

/// Runs a line of the shell, a minute at most; 124 is the code of one that took longer.
ProgramRun RunToTheEnd(std::string const &line);

}  // namespace framenote::test
