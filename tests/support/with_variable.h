// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace framenote::test {

/// Sets a variable of the environment, or takes it away, for as long as it lives.
class WithVariable {
public:
  WithVariable(char const *name, char const *value) : m_name(name) {
    if (char const *former = std::getenv(name)) m_former = former;
    value != nullptr ? setenv(name, value, 1) : unsetenv(name);
  }
  ~WithVariable() { m_former ? setenv(m_name, m_former->c_str(), 1) : unsetenv(m_name); }
  WithVariable(WithVariable const &) = delete;
  WithVariable &operator=(WithVariable const &) = delete;

private:
  char const *m_name;
  std::optional<std::string> m_former;
};

}  // namespace framenote::test
