// SPDX-License-Identifier: MIT
#include "talbase/layout_direction.h"

#include <gtest/gtest.h>
#include <wx/app.h>

namespace {

/// An application of a given direction, the running one for as long as it lives.
class DirectedApp : public wxApp {
public:
  explicit DirectedApp(wxLayoutDirection direction) : m_direction(direction) {}

  wxLayoutDirection GetLayoutDirection() const override { return m_direction; }

private:
  wxLayoutDirection m_direction;
};

/// Leaves the direction and the running application as it found them.
class LayoutDirection : public testing::Test {
protected:
  ~LayoutDirection() override {
    TalSetLayoutDirection(wxLayout_Default);
    wxApp::SetInstance(m_running);
  }

private:
  wxAppConsole *const m_running = wxApp::GetInstance();
};

TEST_F(LayoutDirection, IsAsItWasSet) {
  TalSetLayoutDirection(wxLayout_RightToLeft);
  EXPECT_TRUE(TalHasRTLLayout());
  TalSetLayoutDirection(wxLayout_LeftToRight);
  EXPECT_FALSE(TalHasRTLLayout());
}

TEST_F(LayoutDirection, ByDefaultIsTheRunningApplications) {
  DirectedApp app(wxLayout_RightToLeft);
  EXPECT_TRUE(TalHasRTLLayout());
  TalSetLayoutDirection(wxLayout_LeftToRight);
  EXPECT_FALSE(TalHasRTLLayout());
  TalSetLayoutDirection(wxLayout_Default);
  EXPECT_TRUE(TalHasRTLLayout());
}

TEST_F(LayoutDirection, OfALeftToRightOrUndecidedApplicationIsNotMirrored) {
  {
    DirectedApp app(wxLayout_LeftToRight);
    EXPECT_FALSE(TalHasRTLLayout());
  }
  DirectedApp app(wxLayout_Default);
  EXPECT_FALSE(TalHasRTLLayout());
}

TEST_F(LayoutDirection, WithoutAnApplicationIsLeftToRight) {
  wxApp::SetInstance(nullptr);
  EXPECT_FALSE(TalHasRTLLayout());
  TalSetLayoutDirection(wxLayout_RightToLeft);
  EXPECT_TRUE(TalHasRTLLayout());
}

}  // namespace
