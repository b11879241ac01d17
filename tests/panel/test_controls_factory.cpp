// SPDX-License-Identifier: MIT
// Controls that the palette does not use itself, but a host that derives from it may.
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/frame.h>
#include <wx/odcombo.h>
#include <wx/panel.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/uiaction.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include <gtest/gtest.h>

#include "panel/ann_slider_double_ctrl.h"
#include "panel/annotation_controls_factory.h"

namespace framenote::test {

namespace {

class ControlsFactory : public testing::Test, protected AnnotationControlsFactory {
protected:
  ControlsFactory() : m_frame(new wxFrame(nullptr, wxID_ANY, "")) {  // destroyed below
    m_names.Add("one");
    m_names.Add("two");
  }
  ~ControlsFactory() override { m_frame->Destroy(); }
  void setBackgroundColorRecursively(wxWindow *, wxColour const &) override {}
  void setForegroundColorRecursively(wxWindow *, wxColour const &) override {}

  /// Whether a control has what every one is made with.
  testing::AssertionResult IsMade(wxWindow const &control, int id, wxString const &name) const {
    if (control.GetParent() == m_frame && control.GetId() == id && control.GetName() == name) {
      return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << control.GetId() << ' ' << control.GetName();
  }

  wxPoint const m_at = wxDefaultPosition;
  wxSize const m_size = wxDefaultSize;
  wxFrame *m_frame;
  wxArrayString m_names;
};

TEST_F(ControlsFactory, ListsHoldTheirItems) {
  wxString const items[] = {"red", "green", "blue"};
  wxChoice const *const byList =
      CreateChoiceCtrl(m_frame, 5, m_at, m_size, m_names, 0, wxDefaultValidator, "list");
  EXPECT_TRUE(IsMade(*byList, 5, "list"));
  EXPECT_EQ(byList->GetStrings(), m_names);
  wxChoice const *const byCount =
      CreateChoiceCtrl(m_frame, 6, m_at, m_size, 2, items, 0, wxDefaultValidator, "count");
  EXPECT_TRUE(IsMade(*byCount, 6, "count"));
  ASSERT_EQ(byCount->GetCount(), 2U);
  EXPECT_EQ(byCount->GetString(1), "green");
}

TEST_F(ControlsFactory, ComboBoxesHoldTheirItemsAndTheirText) {
  wxString const items[] = {"red", "green", "blue"};
  wxComboBox const *const byList =
      CreateComboBox(m_frame, 5, "zero", m_at, m_size, m_names, 0, wxDefaultValidator, "list");
  EXPECT_TRUE(IsMade(*byList, 5, "list"));
  EXPECT_EQ(byList->GetStrings(), m_names);
  EXPECT_EQ(byList->GetValue(), "zero");
  wxComboBox const *const byCount = CreateComboBox(m_frame, 6, "green", m_at, m_size, 3, items,
                                                   wxCB_READONLY, wxDefaultValidator, "count");
  EXPECT_TRUE(IsMade(*byCount, 6, "count"));
  EXPECT_EQ(byCount->GetCount(), 3U);
  EXPECT_EQ(byCount->GetSelection(), 1);
}

// The list lost the focus while it was taken down, and asked the half gone control for heights.
TEST_F(ControlsFactory, AWindowMayGoWhileAListIsOpen) {
  wxOwnerDrawnComboBox *const list = CreateOwnerDrawnComboBox(
      m_frame, 5, "two", m_at, m_size, m_names, wxCB_READONLY, wxDefaultValidator, "list");
  wxWindow const &items = *list->GetPopupControl()->GetControl();
  m_frame->Show();
  wxYield();
  list->Popup();
  // Without a window manager the focus is where the pointer is.
  wxUIActionSimulator mouse;
  mouse.MouseMove(items.GetScreenPosition() + wxPoint(5, 5));
  for (int i = 0; i < 100; ++i) {
    wxYield();
    wxMilliSleep(2);
  }
  ASSERT_TRUE(list->IsPopupShown());
  ASSERT_TRUE(items.HasFocus());
  wxWeakRef<wxWindow> const known(list);
  list->Destroy();
  EXPECT_EQ(known.get(), nullptr);
}

TEST_F(ControlsFactory, SlidersHaveTheirRange) {
  wxSliderBase const *const plain =
      CreateSlider(m_frame, 5, 7, 2, 9, m_at, m_size, wxSL_HORIZONTAL, wxDefaultValidator, "plain");
  EXPECT_TRUE(IsMade(*plain, 5, "plain"));
  EXPECT_EQ(plain->GetMin(), 2);
  EXPECT_EQ(plain->GetMax(), 9);
  EXPECT_EQ(plain->GetValue(), 7);
  // Positions stand for halves.
  wxSliderBase const *const halves = CreateSliderDouble(
      m_frame, 6, 3.5, 1.0, 6.0, 0.5, m_at, m_size, wxSL_HORIZONTAL, wxDefaultValidator, "halves");
  EXPECT_TRUE(IsMade(*halves, 6, "halves"));
  EXPECT_EQ(halves->GetMin(), 2);
  EXPECT_EQ(halves->GetMax(), 12);
  EXPECT_EQ(halves->GetValue(), 7);
  EXPECT_EQ(dynamic_cast<AnnSliderDoubleCtrl const &>(*halves).GetDouble(), 3.5);
}

TEST_F(ControlsFactory, SpinControlHasItsRange) {
  wxSpinCtrl const *const spin =
      CreateSpinCtrl(m_frame, 5, "", m_at, m_size, wxSP_ARROW_KEYS, -3, 12, 8, "spin");
  EXPECT_TRUE(IsMade(*spin, 5, "spin"));
  EXPECT_EQ(spin->GetMin(), -3);
  EXPECT_EQ(spin->GetMax(), 12);
  EXPECT_EQ(spin->GetValue(), 8);
}

}  // namespace

}  // namespace framenote::test
