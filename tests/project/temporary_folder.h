// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

namespace framenote::test {

namespace fs = std::filesystem;

/// A folder of the test's own.
class InTemporaryFolder : public testing::Test {
protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "framenote-project-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
  }

  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  std::string In(std::string const &name) const { return (m_folder / name).string(); }

  /// The names in a folder, sorted.
  static std::vector<std::string> NamesIn(fs::path const &folder) {
    std::vector<std::string> names;
    for (auto const &entry : fs::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  std::vector<std::string> Names() const { return NamesIn(m_folder); }

  static std::string ReadAll(std::string const &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  static void WriteAll(std::string const &path, std::string const &bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }

  fs::path m_folder;
};

using Strings = std::vector<std::string>;

}  // namespace framenote::test
