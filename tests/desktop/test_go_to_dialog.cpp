// SPDX-License-Identifier: MIT
#include "desktop/go_to_dialog.h"

#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include "project/fake_media.h"

namespace framenote::test {

namespace {

/// 250 frames at 25 a second: ten seconds.
class GoTo : public testing::Test {
protected:
  void Type(wxString const &text) {
    dynamic_cast<wxTextCtrl &>(*m_dialog.FindWindow("position")).SetValue(text);
  }
  wxWindow &Problem() { return *m_dialog.FindWindow("problem"); }

  FakeMedia m_media{EvenTimes(250, 1), {1, 25}};
  GoToDialog m_dialog{nullptr, m_media, 40};
};

TEST_F(GoTo, BeginsAtTheCurrentFrame) {
  EXPECT_EQ(m_dialog.Frame(), 40);
  ASSERT_TRUE(m_dialog.TransferDataFromWindow());
  EXPECT_EQ(m_dialog.Frame(), 40);
}

TEST_F(GoTo, TakesAFrameNumber) {
  Type("123");
  ASSERT_TRUE(m_dialog.TransferDataFromWindow());
  EXPECT_EQ(m_dialog.Frame(), 123);
}

TEST_F(GoTo, TakesATime) {
  Type("0:02.04");
  ASSERT_TRUE(m_dialog.TransferDataFromWindow());
  EXPECT_EQ(m_dialog.Frame(), 51);
}

TEST_F(GoTo, TellsWrongInputBesideTheFieldUntilItIsChanged) {
  for (char const *const wrong : {"", "250", "-1", "abc", "1:00"}) {
    Type(wrong);
    EXPECT_FALSE(m_dialog.TransferDataFromWindow()) << wrong;
    EXPECT_TRUE(Problem().IsShown()) << wrong;
    EXPECT_NE(Problem().GetLabel().find("249"), wxString::npos) << wrong;
    EXPECT_EQ(m_dialog.Frame(), 40) << wrong;
  }
  Type("1");
  EXPECT_FALSE(Problem().IsShown());
}

}  // namespace

}  // namespace framenote::test
