// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The user's folder for what programs remember between their runs: $XDG_STATE_HOME (by default
/// ~/.local/state), %LOCALAPPDATA% on Windows, ~/Library/Application Support on macOS. Empty if the
/// user has none.
std::string StateFolder();
