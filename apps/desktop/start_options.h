// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "media/message.h"

/// What the desktop host was asked to do when it was started.
struct StartOptions {
  enum class Action { ShowWindow, ShowHelp, ShowVersion };

  Action action = Action::ShowWindow;
  std::string file;      ///< to open, a picture, video or project; empty: none
  std::string document;  ///< whose annotations to show on it; empty: its own, if it has some
  std::vector<std::string> toolkit;  ///< arguments that are the toolkit's
};

/// Reads the arguments after the program's name. Returns what is wrong with them, and then
/// `options` is meaningless.
Message ReadStartOptions(std::vector<std::string> const &arguments, StartOptions &options);

/// The text of --help, in the user's language.
std::string StartUsage();
