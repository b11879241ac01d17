// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "media/media_source.h"

/// Decodes the still picture whose whole file `bytes` are, and turns it upright; alpha is dropped,
/// the colours stay as they are stored. Of several pictures in a file it is the first.
/// Throws MediaError that names `path`: Unrecognised, TooLarge, Damaged.
std::unique_ptr<MediaSource> OpenStill(std::string const &path, std::string bytes);
