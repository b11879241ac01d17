// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "project/burn_job.h"

struct BurnOptions;

/// Arguments that do not fit the files; what() is one line of the user's language.
class ArgumentError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Reads the document and the media, burns the annotations in and writes the result, whole or not
/// at all. `progress` is called as by RunBurnJob, and before that, with no frames, while the media
/// is opened; false stops.
/// Throws ArgumentError, and what reading and writing throw: ProjectError, MediaError, FileError.
/// REQUIRES: wxWidgets is started.
BurnResult Burn(BurnOptions const &options,
                std::function<bool(BurnProgress const &)> const &progress);
