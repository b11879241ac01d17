// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace framenote::test {

class Monkey;

/// One thing that the monkey does.
struct MonkeyAction {
  char const *name;
  int weight;  ///< how often, beside the others
  void (*run)(Monkey &monkey);
};

/// With the mouse, on the picture, the timeline and everywhere else.
std::vector<MonkeyAction> const &MouseActions();
/// With the keyboard, with menus, and with files.
std::vector<MonkeyAction> const &KeyAndFileActions();

/// Both.
class MonkeyActions {
public:
  MonkeyActions();
  MonkeyAction const &Choose(Monkey &monkey) const;

private:
  std::vector<MonkeyAction> m_actions;
  int m_sum = 0;
};

}  // namespace framenote::test
