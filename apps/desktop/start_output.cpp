// SPDX-License-Identifier: MIT
#include "desktop/start_output.h"

#include <cstdio>

#include <wx/msgout.h>
#include <wx/string.h>

#ifdef _WIN32

void TellStarter(std::string const &text, bool) {
  // A program with windows has no output there: the console that it was started from, or a box.
  wxMessageOutputBest().Output(wxString::FromUTF8(text));
}

#else

void TellStarter(std::string const &text, bool isProblem) {
  std::fputs(text.c_str(), isProblem ? stderr : stdout);
}

#endif
