// SPDX-License-Identifier: MIT
#include <cmath>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/uiaction.h>

#include "panel/ann_slider_double_ctrl.h"
#include "panel/ann_spin_slider_double_ctrl.h"

namespace framenote::test {

namespace {

/// The zoom's control, 1.5 to 8.0 by 0.5, at 2.0, in a window.
class SpinSlider : public testing::Test {
protected:
  void SetUp() override {
    m_frame = new wxFrame(nullptr, wxID_ANY, "", {40, 40}, {400, 120});  // destroyed in TearDown
    m_control = new AnnSpinSliderDoubleCtrl(
        m_frame, 40, 2.0, 1.5, 8.0, 0.5, wxDefaultPosition, wxDefaultSize, wxHORIZONTAL,
        wxSP_ARROW_KEYS | wxTE_PROCESS_ENTER, wxDefaultValidator, "zoom");  // owned by the frame
    m_frame->Bind(wxEVT_SLIDER, [this](wxCommandEvent &event) {
      ++m_events;
      EXPECT_EQ(event.GetId(), 40);
      EXPECT_EQ(event.GetEventObject(), m_control);
    });
    m_frame->Show();
    m_frame->Layout();
    Settle([this] { return m_control->IsShownOnScreen(); });
  }
  void TearDown() override {
    m_frame->Destroy();
    wxYield();
  }

  template <class Condition>
  static void Settle(Condition const &isReached) {
    for (int i = 0; i < 100 && !isReached(); ++i) {
      wxYield();
      wxMilliSleep(5);
    }
  }
  AnnSliderDoubleCtrl &Slider() {
    return *dynamic_cast<AnnSliderDoubleCtrl *>(m_control->GetChildren()[0]);
  }
  wxSpinCtrlDouble &Spin() {
    return *dynamic_cast<wxSpinCtrlDouble *>(m_control->GetChildren()[1]);
  }
  static void Turn(wxWindow &window, int rotation) {
    wxMouseEvent event(wxEVT_MOUSEWHEEL);
    event.m_wheelRotation = rotation;
    event.m_wheelDelta = 120;
    window.GetEventHandler()->ProcessEvent(event);
  }

  wxFrame *m_frame = nullptr;
  AnnSpinSliderDoubleCtrl *m_control = nullptr;
  int m_events = 0;
};

TEST_F(SpinSlider, PositionsStandForMultiplesOfTheStep) {
  EXPECT_EQ(m_control->GetMin(), 3);
  EXPECT_EQ(m_control->GetMax(), 16);
  EXPECT_EQ(m_control->GetValue(), 4);
  EXPECT_EQ(Spin().GetValue(), 2.0);
  EXPECT_EQ(Slider().GetName(), "AnnSliderDoubleCtrl");
  EXPECT_EQ(Spin().GetName(), "wxSpinCtrlDouble");
}

TEST_F(SpinSlider, SettingAPositionShowsItInBothAndRaisesNothing) {
  m_control->SetValue(7);
  EXPECT_EQ(Slider().GetValue(), 7);
  EXPECT_EQ(Spin().GetValue(), 3.5);
  m_control->SetValue(100);
  EXPECT_EQ(m_control->GetValue(), 16);
  EXPECT_EQ(Spin().GetValue(), 8.0);
  EXPECT_EQ(m_events, 0);
}

TEST_F(SpinSlider, RangeAndStepsAreThoseOfTheSlider) {
  m_control->SetRange(4, 10);
  EXPECT_EQ(m_control->GetMin(), 4);
  EXPECT_EQ(m_control->GetMax(), 10);
  EXPECT_EQ(Slider().GetMax(), 10);
  m_control->SetValue(16);
  EXPECT_EQ(Spin().GetValue(), 5.0);
  m_control->SetPageSize(3);
  EXPECT_EQ(m_control->GetPageSize(), 3);
  EXPECT_EQ(Slider().GetPageSize(), 3);
  // The toolkit's sliders here have thumbs of one length.
  m_control->SetThumbLength(9);
  EXPECT_EQ(m_control->GetThumbLength(), Slider().GetThumbLength());
}

TEST_F(SpinSlider, WheelOverTheSliderMovesByItsLine) {
  m_control->SetLineSize(2);
  EXPECT_EQ(m_control->GetLineSize(), 2);
  Turn(Slider(), 120);
  EXPECT_EQ(m_control->GetValue(), 6);
  EXPECT_EQ(Spin().GetValue(), 3.0);
  EXPECT_EQ(m_events, 1);
  Turn(Slider(), -120);
  Turn(Slider(), -120);
  EXPECT_EQ(m_control->GetValue(), 3);
  EXPECT_EQ(m_events, 3);
}

TEST_F(SpinSlider, WheelOverTheSpinMovesByTheStep) {
  Turn(Spin(), 120);
  EXPECT_EQ(Spin().GetValue(), 2.5);
  EXPECT_EQ(m_control->GetValue(), 5);
  EXPECT_EQ(m_events, 1);
  Turn(Spin(), -120);
  EXPECT_EQ(m_control->GetValue(), 4);
  EXPECT_EQ(m_events, 2);
}

TEST_F(SpinSlider, NumberIsTypedAndGoesToTheNearestStep) {
  wxUIActionSimulator keys;
  auto const type = [&](char const *text) {
    Spin().SetFocus();
    Settle([this] { return Spin().HasFocus(); });
    keys.Char('A', wxMOD_CONTROL);
    keys.Text(text);
    int const before = m_events;
    keys.Char(WXK_RETURN);
    Settle([&] { return m_events > before; });
    EXPECT_EQ(m_events, before + 1) << text;
  };
  type("2.3");
  EXPECT_EQ(m_control->GetValue(), 5);
  EXPECT_EQ(Spin().GetValue(), 2.5);
  // Beyond the range its end is taken.
  type("99");
  EXPECT_EQ(m_control->GetValue(), 16);
  EXPECT_EQ(Spin().GetValue(), 8.0);
}

TEST_F(SpinSlider, OnlyTheSpinTakesTheFocus) {
  EXPECT_FALSE(Slider().AcceptsFocus());
  EXPECT_TRUE(Spin().AcceptsFocus());
}

TEST_F(SpinSlider, DragOfTheSliderReachesTheSpin) {
  wxSize const size = Slider().GetSize();
  wxUIActionSimulator mouse;
  wxPoint const middle = Slider().ClientToScreen(wxPoint(size.x * 3 / 4, size.y / 2));
  mouse.MouseMove(middle);
  mouse.MouseClick();
  Settle([this] { return m_events > 0; });
  EXPECT_GT(m_events, 0);
  EXPECT_GT(m_control->GetValue(), 4);
  EXPECT_EQ(Spin().GetValue(), m_control->GetValue() * 0.5);
}

TEST_F(SpinSlider, ValuesBetweenGoToTheNearestPosition) {
  Slider().setFromDouble(2.24);
  EXPECT_EQ(Slider().GetValue(), 4);
  Slider().setFromDouble(2.25);
  EXPECT_EQ(Slider().GetValue(), 5);
  Slider().setFromDouble(-1e300);
  EXPECT_EQ(Slider().GetValue(), 3);
  Slider().setFromDouble(1e300);
  EXPECT_EQ(Slider().GetValue(), 16);
  Slider().setFromDouble(std::nan(""));
  EXPECT_EQ(Slider().GetValue(), 3);
}

TEST_F(SpinSlider, StepThatDoesNotDivideTheLimitTruncates) {
  auto *const slider = new AnnSliderDoubleCtrl(m_frame, wxID_ANY, 1.0, 1.0, 4.0, 0.3,
                                               wxDefaultPosition, wxDefaultSize, wxHORIZONTAL,
                                               wxDefaultValidator, "odd");  // owned by the frame
  EXPECT_EQ(slider->GetMin(), 3);
  EXPECT_NEAR(slider->GetDouble(), 0.9, 1e-9);
}

}  // namespace

}  // namespace framenote::test
