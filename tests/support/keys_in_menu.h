// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include <wx/timer.h>
#include <wx/uiaction.h>

namespace framenote::test {

/// Presses keys while a menu is open, one at a time; the toolkit's own loop runs then.
class KeysInMenu : public wxTimer {
public:
  KeysInMenu(std::vector<int> keys, wxUIActionSimulator &simulator)
      : m_keys(std::move(keys)), m_simulator(simulator) {
    Start(kOpening);
  }

  void Notify() override {
    if (m_next == m_keys.size()) {
      Stop();
    } else {
      m_simulator.Char(m_keys[m_next++]);
      Start(kPause);
    }
  }

private:
  // Milliseconds: what a menu takes to open, and to follow a key.
  static constexpr int kOpening = 150;
  static constexpr int kPause = 40;

  std::vector<int> m_keys;
  wxUIActionSimulator &m_simulator;
  std::size_t m_next = 0;
};

}  // namespace framenote::test
