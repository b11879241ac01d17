// SPDX-License-Identifier: MIT
#include <cstdio>

#include <wx/debug.h>
#include <wx/string.h>

#include <gtest/gtest.h>

#include "support/wx_session.h"

namespace {

/// Makes a failed assertion of wxWidgets, or of ours, a failure of the running test.
void FailOnAssertion(wxString const &file, int line, wxString const &function,
                     wxString const &condition, wxString const &message) {
  ADD_FAILURE_AT(file.utf8_str().data(), line)
      << "assertion " << condition.utf8_str().data() << " failed in " << function.utf8_str().data()
      << ": " << message.utf8_str().data();
}

}  // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  wxSetAssertHandler(FailOnAssertion);
  framenote::WxSession session(argc, argv);
  if (!session.IsOk()) {
    std::fputs("wxWidgets did not start; the tests need a display: xvfb-run -a ctest\n", stderr);
    return 1;
  }
  return RUN_ALL_TESTS();
}
