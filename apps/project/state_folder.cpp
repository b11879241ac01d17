// SPDX-License-Identifier: MIT
#include "project/state_folder.h"

#include <cstdlib>

#ifdef _WIN32

std::string StateFolder() {
  char const *const folder = std::getenv("LOCALAPPDATA");
  return folder != nullptr ? folder : "";
}

#else

namespace {

/// A relative path counts as none, as the base directory specification asks.
std::string AbsolutePathIn(char const *variable) {
  char const *const path = std::getenv(variable);
  return path != nullptr && path[0] == '/' ? path : "";
}

}  // namespace

std::string StateFolder() {
#ifdef __APPLE__
  constexpr char const *kBelowHome = "/Library/Application Support";
#else
  constexpr char const *kBelowHome = "/.local/state";
  std::string state = AbsolutePathIn("XDG_STATE_HOME");
  if (!state.empty()) return state;
#endif
  std::string const home = AbsolutePathIn("HOME");
  return home.empty() ? home : home + kBelowHome;
}

#endif
