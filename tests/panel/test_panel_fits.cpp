// SPDX-License-Identifier: MIT
// Nothing in the palette is cut off or covered: with long texts, mirrored, with large text, and on
// a screen of twice the resolution.
#include <cstdlib>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include <wx/checkbox.h>
#include <wx/fontpicker.h>
#include <wx/odcombo.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/stdpaths.h>
#include <wx/textctrl.h>
#include <wx/translation.h>

#include <gtest/gtest.h>

#include "framenote/annotation_catalogue.h"
#include "panel/panel_fixture.h"
#include "panel/pseudo_catalogue.h"
#include "support/screen_capture.h"

namespace framenote::test {

namespace {

/// Set in the process that this test starts: how high its text is at 96 dots per inch.
constexpr char const *kPlainTextHeight = "FRAMENOTE_PLAIN_TEXT_HEIGHT";
/// A folder for pictures of every panel; they are written if it is set.
constexpr char const *kPictureFolder = "FRAMENOTE_PANEL_PICTURES";

struct Condition {
  bool hasLongTexts;
  bool isMirrored;
  double fontScale;

  std::string Name() const {
    return std::string(hasLongTexts ? "Long" : "Plain") + (isMirrored ? "Mirrored" : "Straight") +
           (fontScale > 1.0 ? "Large" : "Normal");
  }
};

void PrintTo(Condition const &condition, std::ostream *out) {
  *out << condition.Name();
}

template <class Action>
void ForEachShown(wxWindow &window, Action const &action) {
  for (wxWindow *child : window.GetChildren()) {
    if (!child->IsShown() || child->IsTopLevel()) continue;
    action(*child);
    ForEachShown(*child, action);
  }
}

std::string NameOf(wxWindow const &window) {
  return (window.GetName() + " '" + window.GetLabel() + "' " + std::to_string(window.GetId()))
      .utf8_string();
}

class PanelFit : public PanelTest {
protected:
  void SetUp() override { Open({false, false, 1.0}); }
  void TearDown() override {
    PanelTest::TearDown();
    m_catalogue.reset();
  }

  void Open(Condition const &condition) {
    if (condition.hasLongTexts) m_catalogue = std::make_unique<PseudoCatalogue>(Texts());
    m_frame = new wxFrame(nullptr, wxID_ANY, "");  // destroyed in TearDown
    if (condition.isMirrored) m_frame->SetLayoutDirection(wxLayout_RightToLeft);
    m_frame->SetFont(m_frame->GetFont().Scaled(static_cast<float>(condition.fontScale)));
    m_panel = m_tool->InitGui(m_frame, &m_sink, m_tool);
    ASSERT_NE(m_panel, nullptr);
    m_frame->Show();
    wxYield();
  }
  /// All texts of a palette, as they are looked up.
  static std::vector<wxString> Texts() {
    auto const tool = std::make_shared<AnnotationTool>(Config(true));
    auto *const frame = new wxFrame(nullptr, wxID_ANY, "");  // destroyed below
    AnnotationPanel *const panel = tool->InitGui(frame, nullptr, tool);
    std::set<wxString> texts;
    std::vector<wxWindow *> windows = {panel};
    while (!windows.empty()) {
      wxWindow *const window = windows.back();
      windows.pop_back();
      for (wxWindow *child : window->GetChildren()) windows.push_back(child);
      auto *const combo = dynamic_cast<wxOwnerDrawnComboBox *>(window);
      // The families and the sizes of fonts are not translated.
      for (unsigned i = 0; combo != nullptr && !IsTyped(*combo) && i < combo->GetCount(); ++i) {
        texts.insert(combo->GetString(i));
      }
      if (HasText(*window)) texts.insert(window->GetLabel());
    }
    tool->UnlinkGui();
    frame->Destroy();
    texts.erase("");
    return {texts.begin(), texts.end()};
  }
  static bool HasText(wxWindow const &window) {
    return dynamic_cast<wxStaticText const *>(&window) != nullptr ||
           dynamic_cast<wxAnyButton const *>(&window) != nullptr ||
           dynamic_cast<wxCheckBox const *>(&window) != nullptr;
  }
  static bool IsTyped(wxWindow const &combo) { return !combo.HasFlag(wxCB_READONLY); }

  void ShowAtBestSize(Types type) {
    if (!Button(type).GetValue()) Toggle(type);
    // The best size settles with the first paint, some frames later.
    constexpr int kQuietTurns = 12;
    for (int quiet = 0, turn = 0; quiet < kQuietTurns && turn < 200; ++quiet, ++turn) {
      wxSize const size = m_panel->GetEffectiveMinSize();
      if (m_frame->GetClientSize() != size) {
        m_frame->SetClientSize(size);
        quiet = 0;
      }
      wxYield();
      wxMilliSleep(5);
    }
    m_panel->SetSize(m_frame->GetClientSize());
    wxYield();
    wxSize const content = m_panel->GetSizer()->CalcMin();
    EXPECT_GE(m_panel->GetClientSize().x, content.x);
    EXPECT_GE(m_panel->GetClientSize().y, content.y);
  }
  void ExpectEverythingFits() {
    ForEachShown(*m_panel, [this](wxWindow &child) {
      // A combo box lays its text field out by itself, with less room about the text.
      bool const isPart = dynamic_cast<wxOwnerDrawnComboBox *>(child.GetParent()) != nullptr;
      wxSize const best = isPart ? wxSize(0, child.GetCharHeight()) : child.GetBestSize();
      EXPECT_GE(child.GetSize().x, best.x) << NameOf(child);
      EXPECT_GE(child.GetSize().y, best.y) << NameOf(child);
      wxWindow const &parent = *child.GetParent();
      wxRect const room(
          &parent == m_panel ? m_panel->CalcScrolledPosition(wxPoint(0, 0)) : wxPoint(0, 0),
          &parent == m_panel ? m_panel->GetVirtualSize() : parent.GetClientSize());
      EXPECT_TRUE(room.Contains(child.GetRect())) << NameOf(child);
      ExpectTextFits(child);
      for (wxWindow *other : parent.GetChildren()) {
        if (other == &child || !other->IsShown() || other->IsTopLevel()) continue;
        EXPECT_FALSE(child.GetRect().Intersects(other->GetRect()))
            << NameOf(child) << " and " << NameOf(*other);
      }
    });
  }
  static void ExpectTextFits(wxWindow const &child) {
    if (HasText(child)) {
      EXPECT_GE(child.GetSize().x,
                child.GetTextExtent(wxControl::RemoveMnemonics(child.GetLabel())).x)
          << NameOf(child);
    }
    auto const *const combo = dynamic_cast<wxOwnerDrawnComboBox const *>(&child);
    if (combo == nullptr || IsTyped(*combo)) return;
    for (unsigned i = 0; i < combo->GetCount(); ++i) {
      EXPECT_GE(combo->GetTextRect().width, combo->GetTextExtent(combo->GetString(i)).x)
          << combo->GetString(i);
    }
  }
  void SavePicture(std::string const &name) {
    wxString const folder = wxString::FromUTF8(std::getenv(kPictureFolder));
    m_frame->Raise();
    m_frame->Update();
    for (int i = 0; i < 20; ++i) {
      wxYield();
      wxMilliSleep(10);
    }
    ASSERT_TRUE(CaptureScreen(m_frame->GetScreenRect()).SaveFile(folder + "/" + name + ".png"));
  }

  std::unique_ptr<PseudoCatalogue> m_catalogue;
};

class PanelFits : public PanelFit, public testing::WithParamInterface<Condition> {
protected:
  void SetUp() override { Open(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(, PanelFits,
                         testing::Values(Condition{false, false, 1.0}, Condition{false, false, 1.5},
                                         Condition{false, true, 1.0}, Condition{false, true, 1.5},
                                         Condition{true, false, 1.0}, Condition{true, false, 1.5},
                                         Condition{true, true, 1.0}, Condition{true, true, 1.5}),
                         [](auto const &condition) { return condition.param.Name(); });

TEST_P(PanelFits, WhateverToolIsShown) {
  wxString const shape = Button(Types::Shape).GetLabel();
  EXPECT_EQ(shape, GetParam().hasLongTexts ? "ShapeSha" : "Shape");
  EXPECT_EQ(Button(Types::Shape).GetLayoutDirection(),
            GetParam().isMirrored ? wxLayout_RightToLeft : wxLayout_LeftToRight);
  for (int id = 2; id <= 9; ++id) {
    SCOPED_TRACE(id);
    ShowAtBestSize(static_cast<Types>(id));
    ExpectEverythingFits();
    if (std::getenv(kPictureFolder) == nullptr) continue;
    SavePicture(GetParam().Name() + (std::getenv(kPlainTextHeight) ? "192" : "96") + "-" +
                std::to_string(id));
  }
}

TEST_P(PanelFits, ScrollingReachesWhatALowWindowDoesNotShow) {
  for (int id = 2; id <= 9; ++id) {
    SCOPED_TRACE(id);
    Toggle(static_cast<Types>(id));
    m_frame->SetClientSize(wxSize(160, 120));
    wxYield();
    m_panel->SetSize(m_frame->GetClientSize());
    wxYield();
    ExpectEverythingFits();
    EXPECT_TRUE(m_panel->IsScrollbarShown(wxVERTICAL));
    EXPECT_TRUE(m_panel->IsScrollbarShown(wxHORIZONTAL));
    m_panel->Scroll(1000, 1000);
    wxPoint const end = m_panel->CalcUnscrolledPosition(wxPoint(0, 0) + m_panel->GetClientSize());
    wxSize const content = m_panel->GetSizer()->CalcMin();
    EXPECT_GE(end.x + 10, content.x);
    EXPECT_GE(end.y + 10, content.y);
  }
}

/// The palette in a language of the catalogues that come with it.
class PanelFitsIn : public PanelFit, public testing::WithParamInterface<char const *> {
protected:
  void SetUp() override {
    m_english = Texts();
    auto *const translations = new wxTranslations;  // owned by wxTranslations::Set
    wxTranslations::Set(translations);
    translations->SetLanguage(GetParam());
    ASSERT_TRUE(AddAnnotationCatalogue());
    Open({false, GetParam() == std::string("ar"), 1.0});
  }
  void TearDown() override {
    PanelFit::TearDown();
    wxTranslations::Set(nullptr);
  }

  std::vector<wxString> m_english;
};

INSTANTIATE_TEST_SUITE_P(, PanelFitsIn, testing::Values("ar", "de", "es", "fr", "it", "zh_CN"),
                         [](auto const &language) { return std::string(language.param); });

TEST_P(PanelFitsIn, WhateverToolIsShown) {
  for (int id = 2; id <= 9; ++id) {
    SCOPED_TRACE(id);
    ShowAtBestSize(static_cast<Types>(id));
    ExpectEverythingFits();
    if (std::getenv(kPictureFolder) != nullptr) {
      SavePicture(std::string(GetParam()) + "-" + std::to_string(id));
    }
  }
}

TEST_P(PanelFitsIn, NoTextIsLeftInEnglish) {
  // What the host gave, and what has no words.
  std::set<wxString> const kept = {"Frame", "Time", "..."};
  std::set<wxString> expected;
  for (wxString const &text : m_english) {
    if (kept.count(text) != 0) {
      expected.insert(text);
      continue;
    }
    wxString const *const translated = wxTranslations::Get()->GetTranslatedString(text);
    ASSERT_NE(translated, nullptr) << text;
    expected.insert(*translated);
  }
  std::vector<wxString> const shown = Texts();
  EXPECT_EQ(std::set<wxString>(shown.begin(), shown.end()), expected);
  EXPECT_GT(expected.size(), 60u);
}

TEST_F(PanelFit, LabelOfALongFontFits) {
  ShowAtBestSize(Types::Text);
  auto *const size = Find<wxOwnerDrawnComboBox>(25);
  for (int const id : {22, 23, 24}) {
    Find<wxToggleButton>(id)->SetValue(true);
    Send(*Find<wxToggleButton>(id), wxEVT_TOGGLEBUTTON);
  }
  size->SetValue("10000");
  Send(*size, wxEVT_TEXT_ENTER);
  ShowAtBestSize(Types::Text);
  ExpectEverythingFits();
}

int HeightOfText() {
  auto *const frame = new wxFrame(nullptr, wxID_ANY, "");  // destroyed below
  int const height = frame->GetTextExtent("Text").y;
  frame->Destroy();
  return height;
}

TEST(PanelFitsAt192Dpi, InAProcessOfItsOwn) {
  if (char const *const plain = std::getenv(kPlainTextHeight)) {
    // In the other process: the text is in fact twice as large, but for rounding.
    EXPECT_NEAR(HeightOfText(), 2 * std::stoi(plain), 2);
    return;
  }
  // The toolkit reads the resolution once, when it starts.
  std::string const command = std::string(kPlainTextHeight) + "=" + std::to_string(HeightOfText()) +
                              " GDK_DPI_SCALE=2 '" +
                              wxStandardPaths::Get().GetExecutablePath().utf8_string() +
                              "' --gtest_brief=1 '--gtest_filter=*PanelFit*'";
  EXPECT_EQ(std::system(command.c_str()), 0);
}

}  // namespace

}  // namespace framenote::test
