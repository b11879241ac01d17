// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

/// SHA-256 (FIPS 180-4) of bytes that come in parts.
class Sha256 {
public:
  Sha256();
  ~Sha256();
  Sha256(Sha256 const &) = delete;
  Sha256 &operator=(Sha256 const &) = delete;

  void Add(void const *bytes, std::size_t count);
  /// 64 hexadecimal digits in lower case; ends the sum.
  std::string Finish();

private:
  struct State;
  std::unique_ptr<State> m_state;
};

std::string Sha256OfBytes(void const *bytes, std::size_t count);
/// The sum of a whole file. Throws MediaError: NotFound, NotAFile, ReadFailed; Cancelled when
/// `progress`, called with 0 to 1, returns false. `progress` may be empty.
std::string Sha256OfFile(std::string const &path, std::function<bool(double)> const &progress = {});
