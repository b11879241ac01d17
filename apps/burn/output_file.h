// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Writes a file whole or not at all: into a temporary file in the same folder, to the disk, and
/// then in the place of `path` in one step. Whatever was there stays until then. Returns why it
/// failed, or "".
std::string WriteWhole(std::string const &path, std::string const &bytes);
