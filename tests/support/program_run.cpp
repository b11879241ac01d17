// SPDX-License-Identifier: MIT
#include "support/program_run.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <sys/wait.h>

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

std::string ReadAll(fs::path const &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

ProgramRun RunToTheEnd(std::string const &line) {
  std::string folder = (fs::temp_directory_path() / "framenote-run-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) return {-1, {}, "no folder for the output"};
  std::string const whole =
      "timeout 60 " + line + " >'" + folder + "/out' 2>'" + folder + "/err' </dev/null";
  int const status = std::system(whole.c_str());
  ProgramRun run = {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadAll(folder + "/out"),
                    ReadAll(folder + "/err")};
  fs::remove_all(folder);
  return run;
}

}  // namespace framenote::test
