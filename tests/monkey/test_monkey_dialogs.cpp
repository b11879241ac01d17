// SPDX-License-Identifier: MIT
// The monkey itself: what it opens it closes, too.
#include <string>

#include <gtest/gtest.h>

#include "desktop/canvas.h"
#include "monkey/monkey.h"

namespace framenote::test {

namespace {

constexpr int kRight = 3;

/// The modifiers that are held meanwhile.
class MonkeyMenuTest : public testing::TestWithParam<int> {};

TEST_P(MonkeyMenuTest, IsClosedAlthoughKeysAreHeld) {
  Monkey monkey(1);
  for (int step = 1; step <= 5; ++step) {
    monkey.BeginStep(step, "right click");
    monkey.Input().SetModifiers(GetParam(), true);
    monkey.Click(monkey.PlaceOf(10.0, 10.0), kRight);
    monkey.Input().SetModifiers(GetParam(), false);
  }
  EXPECT_NE(monkey.LastSteps().find("[menu]"), std::string::npos) << monkey.LastSteps();
  EXPECT_TRUE(monkey.Dialogs().TakeErrors().empty());
}

INSTANTIATE_TEST_SUITE_P(Modifiers, MonkeyMenuTest,
                         testing::Values(wxMOD_NONE, wxMOD_SHIFT, wxMOD_CONTROL,
                                         wxMOD_SHIFT | wxMOD_CONTROL));

}  // namespace

}  // namespace framenote::test
