// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

struct BurnOptions;

/// Why a burn failed; what() is one line that names the file.
class InputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};
class ArgumentError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};
class OutputError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// Reads the document and the picture, burns the annotations in and writes the result, whole or not
/// at all. Throws one of the errors above. REQUIRES: wxWidgets is started.
void Burn(BurnOptions const &options);
