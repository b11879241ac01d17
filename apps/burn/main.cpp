// SPDX-License-Identifier: MIT
// framenote-burn: a picture and a document in, the picture with the annotations burnt in out.
#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "burn.h"
#include "burn_options.h"
#include "displayless.h"

namespace {

enum ExitCode { kDone = 0, kInputError = 1, kArgumentError = 2, kOutputError = 3 };

/// Exactly one line, whatever the names in the message hold.
int Fail(ExitCode code, std::string message) {
  for (char &letter : message) {
    if (letter == '\n' || letter == '\r') letter = '?';
  }
  std::fprintf(stderr, "framenote-burn: %s\n", message.c_str());
  return code;
}

int Run(BurnOptions const &options) {
  DisplaylessSession const session;
  if (!session.IsOk()) return Fail(kInputError, "wxWidgets did not start");
  try {
    Burn(options);
  } catch (ArgumentError const &error) {
    return Fail(kArgumentError, error.what());
  } catch (OutputError const &error) {
    return Fail(kOutputError, error.what());
  } catch (std::exception const &error) {
    return Fail(kInputError, error.what());
  }
  return kDone;
}

}  // namespace

int main(int argc, char **argv) {
  // A file beyond the size limit is then a failed write, which is reported and cleaned up after.
  std::signal(SIGXFSZ, SIG_IGN);
  std::string error;
  BurnOptions const options =
      ParseBurnOptions(std::vector<std::string>(argv + 1, argv + argc), error);
  if (!error.empty()) return Fail(kArgumentError, error);
  switch (options.action) {
    case BurnOptions::Action::ShowHelp:
      std::fputs(BurnUsage().c_str(), stdout);
      return kDone;
    case BurnOptions::Action::ShowVersion:
      std::puts("framenote-burn " FRAMENOTE_VERSION);
      return kDone;
    case BurnOptions::Action::Burn:
      break;
  }
  return Run(options);
}
