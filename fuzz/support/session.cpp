// SPDX-License-Identifier: MIT
#include "support/session.h"

#include <cstdio>
#include <cstdlib>

#include <wx/debug.h>
#include <wx/string.h>

#include "burn/displayless.h"

namespace framenote::fuzz {
namespace {

void FailOnAssertion(wxString const &file, int line, wxString const &function,
                     wxString const &condition, wxString const &message) {
  Fail((file + ":" + std::to_string(line) + ": assertion " + condition + " failed in " + function +
        ": " + message)
           .utf8_string());
}

}  // namespace

void StartWithoutDisplay() {
  static DisplaylessSession const session;
  if (!session.IsOk()) Fail("wxWidgets did not start");
  wxSetAssertHandler(FailOnAssertion);
}

void Fail(std::string const &message) {
  std::fprintf(stderr, "DEFECT: %s\n", message.c_str());
  std::fflush(stderr);
  std::abort();
}

}  // namespace framenote::fuzz
