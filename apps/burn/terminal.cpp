// SPDX-License-Identifier: MIT
#include "burn/terminal.h"

#ifdef _WIN32
#include <cstdio>

#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

#ifdef _WIN32

void PrepareTerminal() {
  SetConsoleOutputCP(CP_UTF8);
}

bool IsErrorOutputTerminal() {
  return _isatty(_fileno(stderr)) != 0;
}

#else

// Terminals go by the locale, which is one of UTF-8 wherever names are.
void PrepareTerminal() {}

bool IsErrorOutputTerminal() {
  return isatty(STDERR_FILENO) != 0;
}

#endif
