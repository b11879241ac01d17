// SPDX-License-Identifier: MIT
#pragma once

/// Lets a terminal show what the program writes, which is UTF-8. To be called first.
void PrepareTerminal();

/// Whether the error output goes to a terminal rather than into a file or to a program.
bool IsErrorOutputTerminal();
