// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace framenote::test {

/// What stands between "```language" and "```" in a page of documentation, in order; empty if the
/// page cannot be read.
std::vector<std::string> CodeBlocks(std::string const &path, std::string const &language);

}  // namespace framenote::test
