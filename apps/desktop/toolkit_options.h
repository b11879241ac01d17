// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "project/command_line.h"

/// The options that the toolkit takes out of the arguments itself when it starts, as GTK's
/// --display. Help does not tell them.
std::vector<CommandOptionText> ToolkitOptions();
