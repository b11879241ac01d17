// SPDX-License-Identifier: MIT
#include "support/code_blocks.h"

#include <fstream>

namespace framenote::test {

std::vector<std::string> CodeBlocks(std::string const &path, std::string const &language) {
  std::ifstream page(path);
  std::vector<std::string> blocks;
  bool isInside = false;
  for (std::string line; std::getline(page, line);) {
    if (line == "```" + language) {
      blocks.emplace_back();
      isInside = true;
    } else if (line == "```") {
      isInside = false;
    } else if (isInside) {
      blocks.back() += line + "\n";
    }
  }
  return blocks;
}

}  // namespace framenote::test
