// SPDX-License-Identifier: MIT
#include "monkey/monkey_home.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

class Home {
public:
  Home() {
    std::string folder = (fs::temp_directory_path() / "framenote-monkey-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) {
      std::perror(folder.c_str());
      std::exit(1);
    }
    m_path = folder;
    for (char const *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME",
                             "XDG_STATE_HOME", "TMPDIR"}) {
      setenv(name, folder.c_str(), 1);
    }
    fs::current_path(folder);
  }
  ~Home() {
    std::error_code ignored;
    fs::current_path("/", ignored);
    fs::remove_all(m_path, ignored);
  }
  Home(Home const &) = delete;
  Home &operator=(Home const &) = delete;

  std::string const &Path() const { return m_path; }

private:
  std::string m_path;
};

// Before main: GLib reads the environment once.
Home const home;

}  // namespace

std::string const &MonkeyHome() {
  return home.Path();
}

std::string InMonkeyHome(std::string const &name) {
  return MonkeyHome() + "/" + name;
}

}  // namespace framenote::test
