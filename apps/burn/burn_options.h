// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// What the command was asked to do.
struct BurnOptions {
  enum class Action { Burn, ShowHelp, ShowVersion };

  Action action = Action::Burn;
  std::string document;
  std::string input;
  std::string output;
  std::int64_t frame = 0;
  bool withDeviceContext = false;
  bool extend = false;
  std::vector<std::pair<std::string, std::string>> macros;  ///< names with their values
};

/// Reads the arguments after the program's name. On failure `error` says what is wrong with them,
/// in one line, and the result is meaningless; otherwise it is empty.
BurnOptions ParseBurnOptions(std::vector<std::string> const &arguments, std::string &error);

/// The text of --help.
std::string BurnUsage();
