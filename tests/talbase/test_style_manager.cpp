// SPDX-License-Identifier: MIT
#include "talbase/style_manager.h"

#include <gtest/gtest.h>
#include <wx/settings.h>

namespace {

TEST(StyleManager, IsOneInstance) {
  EXPECT_EQ(&Singleton<StyleManager>::Instance(), &Singleton<StyleManager>::Instance());
}

TEST(StyleManager, ColoursAreThoseOfTheDesktopsWindows) {
  StyleManager const &manager = Singleton<StyleManager>::Instance();
  EXPECT_EQ(manager.GetBackgroundColor(), wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  EXPECT_EQ(manager.GetForegroundColor(), wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
}

TEST(StyleManager, TextStandsOutFromTheBackground) {
  StyleManager const &manager = Singleton<StyleManager>::Instance();
  ASSERT_TRUE(manager.GetBackgroundColor().IsOk());
  ASSERT_TRUE(manager.GetForegroundColor().IsOk());
  EXPECT_NE(manager.GetBackgroundColor(), manager.GetForegroundColor());
}

TEST(Singleton, KeepsOneStatePerClass) {
  struct Counter {
    int value = 0;
  };
  Singleton<Counter>::Instance().value += 2;
  Singleton<Counter>::Instance().value += 3;
  EXPECT_EQ(Singleton<Counter>::Instance().value, 5);
}

}  // namespace
