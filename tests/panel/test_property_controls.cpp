// SPDX-License-Identifier: MIT
// Every property control, both ways: to the record, the selected object, the next object and the
// document, and back from an object that is selected.
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <wx/dcmemory.h>
#include <wx/filedlg.h>
#include <wx/filepicker.h>
#include <wx/fontpicker.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <gtest/gtest.h>

#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "painters/ann_painter.h"
#include "panel/property_controls.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

// Colours are set to blue-green. Those with a transparent check keep their alpha.
Control const kControls[] = {{10, Types::Shape, 'l', 1, R"("Shape":1)"},
                             {11, Types::Shape, 'c', 0, R"("BorderColor":"#00A0B0FF")"},
                             {12, Types::Shape, 'x', 1, R"("BorderColorTransparent":true)"},
                             {13, Types::Shape, 'c', 0, R"("FillColor":"#00A0B0FF")"},
                             {14, Types::Shape, 'x', 0, R"("FillColorTransparent":false)"},
                             {15, Types::Shape, 's', 12, R"("Thickness":12)"},
                             {16, Types::Arrow, 'l', 1, R"("Head":1)"},
                             {17, Types::Arrow, 'c', 0, R"("Color":"#00A0B0FF")"},
                             {18, Types::Arrow, 's', 12, R"("Thickness":12)"},
                             {19, Types::Pencil, 'c', 0, R"("Color":"#00A0B0FF")"},
                             {20, Types::Pencil, 's', 12, R"("Thickness":12)"},
                             {22, Types::Text, 't', 1, ";700;0;0;"},
                             {23, Types::Text, 't', 1, ";italic;"},
                             {24, Types::Text, 't', 1, ";1;0;"},
                             {26, Types::Text, 'c', 0, R"("FontColor":"#00A0B0FF")"},
                             {27, Types::Text, 'l', 2, R"("HorizontalAlignment":2)"},
                             {28, Types::Text, 'l', 2, R"("VerticalAlignment":2)"},
                             {29, Types::Text, 'c', 0, R"("BackgroundColor":"#00A0B0FF")"},
                             {30, Types::Text, 'x', 0, R"("BackgroundColorTransparent":false)"},
                             {32, Types::Image, 'x', 0, R"("KeepAspectRatio":false)"},
                             {33, Types::Image, 'l', 2, R"("TransparentColor":2)"},
                             {34, Types::Hide, 'l', 0, R"("Effect":0)"},
                             {35, Types::Hide, 's', 12, R"("Strength":12)"},
                             {36, Types::Hide, 'l', 0, R"("Shape":0)"},
                             {37, Types::Hide, 'c', 0, R"("BorderColor":"#00A0B0FF")"},
                             {38, Types::Hide, 'x', 0, R"("BorderColorTransparent":false)"},
                             {39, Types::Hide, 's', 12, R"("Thickness":12)"},
                             {40, Types::Magnify, 's', 6, R"("Zoom":3.0)"},
                             {41, Types::Magnify, 'x', 0, R"("FixedSourceSize":false)"},
                             {42, Types::Magnify, 'l', 2, R"("ZoomMethod":2)"},
                             {43, Types::Magnify, 'l', 1, R"("Shape":1)"},
                             {44, Types::Magnify, 'c', 0, R"("BorderColor":"#00A0B0FF")"},
                             {45, Types::Magnify, 'l', 4, R"("BorderType":4)"},
                             {46, Types::Magnify, 's', 12, R"("Thickness":12)"}};

class EachControl : public PropertyControls, public testing::WithParamInterface<Control> {};

INSTANTIATE_TEST_SUITE_P(, EachControl, testing::ValuesIn(kControls), [](auto const &control) {
  return "Id" + std::to_string(control.param.id);
});

TEST_P(EachControl, ChangesTheSelectedAndTheNextObjectAndShowsTheValuesOfASelectedOne) {
  Control const &control = GetParam();
  // A shape without a border and a fill would be gone with its selection.
  if (control.id == 12) m_tool->GetToolModes().shape->m_properties->SetFillColor(*wxGREEN);
  DrawObject(control.type, {20, 20}, {90, 80});
  IAnnotationObject *const first = m_tool->GetSelectedObject();
  ASSERT_NE(first, nullptr);
  int const before = Shown(control);
  ASSERT_EQ(LookOf(*first).find(control.text), std::string::npos) << LookOf(*first);
  Use(control);
  EXPECT_NE(LookOf(*first).find(control.text), std::string::npos) << LookOf(*first);
  EXPECT_NE(JsonToUtf8(m_tool->GetJSON()).find(control.text), std::string::npos);
  int const after = Shown(control);
  EXPECT_NE(after, before);
  // The next object takes the record.
  m_tool->Deactivate();
  m_tool->SetActiveTool(control.type);
  Mouse(wxEVT_MOTION, {150, 120});
  DrawObject(control.type, {150, 120}, {220, 180});
  IAnnotationObject *const second = m_tool->GetSelectedObject();
  ASSERT_NE(second, first);
  EXPECT_NE(LookOf(*second).find(control.text), std::string::npos) << LookOf(*second);
  // What is selected is shown: an object that was restored has its own values.
  for (int const value : {before, after}) {
    Control back = control;
    if (control.kind != 'c') back.value = value;
    if (control.kind == 'c' && value == before) continue;
    Use(back);
    first->OnSelection(false);
    EXPECT_EQ(Shown(control), after);
    second->OnSelection(false);
    EXPECT_EQ(Shown(control), control.kind == 'c' ? after : value);
    first->SetSelected(false);
  }
}

TEST_F(PropertyControls, ShapePanelOpensWithTheRecord) {
  Toggle(Types::Shape);
  EXPECT_EQ(Find<wxOwnerDrawnComboBox>(10)->GetValue(), "Rectangle");
  EXPECT_EQ(Find<wxColourPickerCtrl>(11)->GetColour(), *wxRED);
  EXPECT_FALSE(Find<wxCheckBox>(12)->GetValue());
  EXPECT_EQ(Find<wxColourPickerCtrl>(13)->GetColour().GetRGB(), wxWHITE->GetRGB());
  EXPECT_TRUE(Find<wxCheckBox>(14)->GetValue());
  EXPECT_EQ(Find<wxSliderBase>(15)->GetValue(), 5);
}

TEST_F(PropertyControls, TransparencyKeepsTheColourAndAPickedColourTheTransparency) {
  AnnShapeProperties const &record = *m_tool->GetToolModes().shape->m_properties;
  Use({13, Types::Shape, 'c', 0, ""});
  EXPECT_EQ(record.GetFillColor(), wxColour(0, 160, 176, 0));
  Use({14, Types::Shape, 'x', 0, ""});
  EXPECT_EQ(record.GetFillColor(), wxColour(0, 160, 176, 255));
  Use({14, Types::Shape, 'x', 1, ""});
  EXPECT_EQ(record.GetFillColor(), wxColour(0, 160, 176, 0));
}

TEST_F(PropertyControls, BackgroundOfATextTakesTheBorderOfTheNextRegionAlong) {
  EXPECT_EQ(m_tool->GetToolModes().hide->m_properties->GetBorderColor().Alpha(), 0);
  Use({30, Types::Text, 'x', 0, ""});
  EXPECT_EQ(m_tool->GetToolModes().hide->m_properties->GetBorderColor(), wxColour(255, 0, 0, 255));
}

TEST_F(PropertyControls, FontIsChosenOrTyped) {
  AnnTextProperties const &record = *m_tool->GetToolModes().text->m_properties;
  auto *const face = Find<wxOwnerDrawnComboBox>(21);
  ASSERT_TRUE(face->SetStringSelection("DejaVu Sans"));
  Send(*face, wxEVT_COMBOBOX);
  EXPECT_EQ(record.GetFont().GetFaceName(), "DejaVu Sans");
  auto *const size = Find<wxOwnerDrawnComboBox>(25);
  size->SetStringSelection("28");
  Send(*size, wxEVT_COMBOBOX);
  EXPECT_EQ(record.GetFont().GetPointSize(), 28);
  size->SetValue("33");
  Send(*size, wxEVT_TEXT_ENTER);
  EXPECT_EQ(record.GetFont().GetPointSize(), 33);
  EXPECT_EQ(record.GetFont().GetFaceName(), "DejaVu Sans");
  for (char const *garbage : {"garbage", "", "-5", "99999999999999999999", "0"}) {
    size->SetValue(garbage);
    Send(*size, wxEVT_TEXT_ENTER);
    EXPECT_TRUE(record.GetFont().IsOk()) << garbage;
  }
  size->SetValue("garbage");
  Send(*size, wxEVT_TEXT_ENTER);
  EXPECT_EQ(record.GetFont().GetPointSize(), 0);
}

TEST_F(PropertyControls, NameOfNoFontLeavesTheFontAsItWas) {
  AnnTextProperties const &record = *m_tool->GetToolModes().text->m_properties;
  DrawObject(Types::Text, {20, 20}, {90, 80});
  auto *const face = Find<wxOwnerDrawnComboBox>(21);
  face->SetValue("DejaVu Serif");
  Send(*face, wxEVT_TEXT_ENTER);
  for (char const *unknown : {"DejaVu Serf", "", "7", "DejaVu Serif, "}) {
    face->SetValue(unknown);
    Send(*face, wxEVT_TEXT_ENTER);
    EXPECT_EQ(record.GetFont().GetFaceName(), "DejaVu Serif") << unknown;
    EXPECT_EQ(Front<AnnText>()->TextProperties().GetFont().GetFaceName(), "DejaVu Serif")
        << unknown;
    EXPECT_EQ(face->GetValue(), "DejaVu Serif") << unknown;
  }
}

TEST_F(PropertyControls, SizeThatIsNotListedLeavesTheListAsItWas) {
  AnnTextProperties &record = *m_tool->GetToolModes().text->m_properties;
  auto *const size = Find<wxOwnerDrawnComboBox>(25);
  record.SetFont(wxFont(wxFontInfo(28)));
  m_tool->UpdatePanelControls(Types::Text);
  EXPECT_EQ(size->GetString(static_cast<unsigned>(size->GetSelection())), "28");
  record.SetFont(wxFont(wxFontInfo(33)));
  m_tool->UpdatePanelControls(Types::Text);
  EXPECT_EQ(size->GetString(static_cast<unsigned>(size->GetSelection())), "28");
}

TEST_F(PropertyControls, FontDialogReachesAllFontControls) {
  wxFont const font(wxFontInfo(18).FaceName("DejaVu Serif").Bold().Italic().Underlined());
  wxFontPickerCtrl *picker = nullptr;
  for (wxWindow *child : Find<wxWindow>(21)->GetParent()->GetChildren()) {
    if (auto *const found = dynamic_cast<wxFontPickerCtrl *>(child)) picker = found;
  }
  ASSERT_NE(picker, nullptr);
  picker->SetSelectedFont(font);
  picker->SetSelectedColour(*wxBLUE);
  wxFontPickerEvent event(picker, picker->GetId(), font);
  picker->GetEventHandler()->ProcessEvent(event);
  EXPECT_EQ(Find<wxOwnerDrawnComboBox>(21)->GetValue(), "DejaVu Serif");
  EXPECT_EQ(Find<wxOwnerDrawnComboBox>(25)->GetValue(), "18");
  for (int const id : {22, 23, 24}) EXPECT_TRUE(Find<wxToggleButton>(id)->GetValue()) << id;
  EXPECT_EQ(m_tool->GetToolModes().text->m_properties->GetFontColor(), *wxBLUE);
}

TEST_F(PropertyControls, MacroIsAddedAndTheListGoesBack) {
  DrawObject(Types::Text, {20, 20}, {90, 80});
  auto *const macros = Find<wxOwnerDrawnComboBox>(31);
  EXPECT_EQ(macros->GetString(0), "--Select the Macro to Add--");
  EXPECT_EQ(macros->GetString(2), "Time");
  Send(*macros, wxEVT_COMBOBOX);
  EXPECT_EQ(Front<AnnText>()->GetText(), "abc");
  macros->SetSelection(2);
  Send(*macros, wxEVT_COMBOBOX);
  EXPECT_EQ(Front<AnnText>()->GetText(), "abc%T%");
  EXPECT_EQ(macros->GetSelection(), 0);
}

TEST_F(PropertyControls, ZoomIsShownInHalves) {
  AnnMagnifyProperties &record = *m_tool->GetToolModes().magnify->m_properties;
  auto *const zoom = Find<wxSliderBase>(40);
  EXPECT_EQ(zoom->GetMin(), 3);
  EXPECT_EQ(zoom->GetMax(), 16);
  record.SetZoom(8.0);
  m_tool->UpdatePanelControls(Types::Magnify);
  EXPECT_EQ(zoom->GetValue(), 16);
  record.SetZoom(1.75);
  m_tool->UpdatePanelControls(Types::Magnify);
  EXPECT_EQ(zoom->GetValue(), 3);
  EXPECT_EQ(record.GetZoom(), 1.75);
  zoom->SetValue(3);
  Send(*zoom, wxEVT_SLIDER);
  EXPECT_EQ(record.GetZoom(), 1.5);
}

TEST_F(PropertyControls, ThicknessIsShownFrom1To50AndKeptAsItWas) {
  ToolModes const &modes = m_tool->GetToolModes();
  for (int const thickness : {-7, 0, 51, 1000000}) {
    modes.shape->m_properties->SetThickness(thickness);
    modes.hide->m_properties->SetThickness(thickness);
    modes.magnify->m_properties->SetThickness(thickness);
    for (Types const type : {Types::Shape, Types::Hide, Types::Magnify}) {
      m_tool->UpdatePanelControls(type);
    }
    for (int const id : {15, 39, 46}) {
      EXPECT_EQ(Find<wxSliderBase>(id)->GetValue(), thickness < 1 ? 1 : 50) << id;
    }
    EXPECT_EQ(modes.shape->m_properties->GetThickness(), thickness);
  }
}

TEST_F(PropertyControls, PanelsHaveTheirRows) {
  auto const rowsBeside = [this](int id) {
    return Find<wxWindow>(id)->GetParent()->GetSizer()->GetItemCount() / 2;
  };
  EXPECT_EQ(rowsBeside(15), 4U);
  EXPECT_EQ(rowsBeside(18), 3U);
  EXPECT_EQ(rowsBeside(20), 2U);
  EXPECT_EQ(rowsBeside(27), 9U);
  EXPECT_EQ(rowsBeside(39), 5U);
  EXPECT_EQ(rowsBeside(46), 6U);
}

/// Without macros and without the choice of a zoom method.
class PlainPropertyControls : public PanelTest {
protected:
  PlainPropertyControls() : PanelTest(Config(false)) {}
};

TEST_F(PlainPropertyControls, LackTheRowsThatAreNotWanted) {
  EXPECT_EQ(Find<wxWindow>(27)->GetParent()->GetSizer()->GetItemCount(), 8U * 2);
  EXPECT_EQ(Find<wxWindow>(46)->GetParent()->GetSizer()->GetItemCount(), 5U * 2);
}

TEST_F(PropertyControls, TransparentColourOfAPictureReachesTheModeAtOnce) {
  AnnImageToolMode &mode = *m_tool->GetToolModes().image;
  auto const pixelOfPreview = [&] {
    if (!Button(Types::Image).GetValue()) Toggle(Types::Image);
    Mouse(wxEVT_MOTION, {20, 20});
    Mouse(wxEVT_LEFT_DOWN, {20, 20});
    Mouse(wxEVT_MOTION, {50, 35});
    Mouse(wxEVT_MOTION, {60, 40});
    EXPECT_EQ(m_tool->GetState(), ToolState::Drawing);
    wxBitmap bitmap(100, 100, 24);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(*wxBLUE_BRUSH);
    dc.Clear();
    auto painter = IAnnPainter::CreateAnnPainter(IAnnPainter::DeviceContext, dc, nullptr, 1.0);
    mode.DrawPreview(painter, {0.0, 0.0});
    painter.reset();
    dc.SelectObject(wxNullBitmap);
    m_tool->Deactivate();
    m_tool->SetActiveTool(Types::Image);
    wxImage const shown = bitmap.ConvertToImage();
    wxColour const colour(shown.GetRed(40, 30), shown.GetGreen(40, 30), shown.GetBlue(40, 30));
    return colour.GetAsString(wxC2S_HTML_SYNTAX);
  };
  ASSERT_TRUE(mode.HasPicture());
  EXPECT_EQ(pixelOfPreview(), "#000000");
  auto *const colours = Find<wxOwnerDrawnComboBox>(33);
  colours->SetSelection(2);
  Send(*colours, wxEVT_COMBOBOX);
  EXPECT_EQ(pixelOfPreview(), "#0000FF");
}

TEST_F(PropertyControls, PictureFileIsTakenByItsExtension) {
  std::string const capitals = (fs::temp_directory_path() / "framenote_panel.PNG").string();
  fs::copy_file(m_path, capitals, fs::copy_options::overwrite_existing);
  AnnImageProperties const &record = *m_tool->GetToolModes().image->m_properties;
  auto const choose = [&](std::string const &path) {
    Choose(path);
    return record.GetFileName().GetFullPath().utf8_string();
  };
  EXPECT_EQ(choose(capitals), m_path);
  EXPECT_EQ(choose("/nowhere.png"), m_path);
  wxImage(10, 10).SaveFile(m_path + ".2.png", wxBITMAP_TYPE_PNG);
  EXPECT_EQ(choose(m_path + ".2.png"), m_path + ".2.png");
  EXPECT_EQ(m_tool->GetToolModes().image->GetAspectRatio(), 1.0);
  fs::remove(m_path + ".2.png");
  fs::remove(capitals);
}

/// Chooses one file in the dialog that is shown next.
class ChooseFile : public wxModalDialogHook {
public:
  explicit ChooseFile(std::string const &path) : m_path(wxString::FromUTF8(path)) { Register(); }
  ~ChooseFile() override { Unregister(); }
  wxString const &Wildcard() const { return m_wildcard; }

private:
  int Enter(wxDialog *dialog) override {
    auto *const files = dynamic_cast<wxFileDialog *>(dialog);
    if (files == nullptr) return wxID_CANCEL;
    m_wildcard = files->GetWildcard();
    files->SetPath(m_path);
    files->Show();
    // The toolkit reads the folder in the background.
    for (int i = 0; i < 400 && files->GetPath() != m_path; ++i) {
      wxYield();
      wxMilliSleep(5);
    }
    files->Hide();
    return wxID_OK;
  }

  wxString m_path;
  wxString m_wildcard;
};

/// A folder with no more than one file: GTK 3's dialog leaks what it sorts several by.
fs::path DialogFolder() {
  fs::path folder = fs::temp_directory_path() / "framenote_dialog";
  fs::create_directories(folder);
  return folder;
}

TEST_F(PropertyControls, DialogForAMissingPictureTakesAnExtensionInCapitals) {
  std::string const capitals = (DialogFolder() / "picture.PNG").string();
  fs::copy_file(m_path, capitals, fs::copy_options::overwrite_existing);
  AnnImageToolMode &mode = *m_tool->GetToolModes().image;
  mode.SetPictureImage(wxImage());
  Toggle(Types::Image);
  ChooseFile const choice(capitals);
  Mouse(wxEVT_MOTION, {20, 20});
  Mouse(wxEVT_LEFT_DOWN, {20, 20});
  EXPECT_EQ(mode.m_properties->GetFileName().GetFullPath(), capitals);
  EXPECT_TRUE(mode.HasPicture());
  EXPECT_EQ(Picker().GetPath(), capitals);
  EXPECT_TRUE(choice.Wildcard().StartsWith("Image files (*.bmp, *.jpg, *.jpeg, *.png, *.gif)|"));
  fs::remove_all(DialogFolder());
}

TEST_F(PropertyControls, FileThatVanishedLeavesTheModeWithoutAPicture) {
  AnnImageToolMode &mode = *m_tool->GetToolModes().image;
  DrawObject(Types::Image, {20, 20}, {90, 80});
  fs::remove(m_path);
  // Chosen and gone: it is left out, and what was there stays.
  Choose(m_path);
  EXPECT_TRUE(mode.HasPicture());
  // There, but no picture.
  std::ofstream(m_path) << "no picture";
  Choose(m_path);
  EXPECT_FALSE(mode.HasPicture());
  ASSERT_NE(m_tool->GetSelectedObject(), nullptr);
  EXPECT_FALSE(mode.m_properties->GetFileName().IsOk());
}

TEST_F(PropertyControls, DialogWhoseFileVanishedLeavesTheModeWithoutAPicture) {
  AnnImageToolMode &mode = *m_tool->GetToolModes().image;
  mode.SetPictureImage(wxImage());
  Toggle(Types::Image);
  ChooseFile const choice((DialogFolder() / "vanished.png").string());
  Mouse(wxEVT_MOTION, {20, 20});
  Mouse(wxEVT_LEFT_DOWN, {20, 20});
  EXPECT_FALSE(mode.HasPicture());
  EXPECT_EQ(m_tool->GetState(), ToolState::Default);
  fs::remove_all(DialogFolder());
}

TEST_F(PropertyControls, ValuesBeyondTheLabelsAreShownAsNone) {
  m_tool->FromJSON(
      JsonFromText(
          R"({"Annotate":{"Objects":[{"Id":8,"CoordinatesCenterPoint":[],"Properties":{"Shape":9,)"
          R"("BorderType":-3,"ZoomMethod":77,"Zoom":1e300,"Thickness":0},"Rectangle":{)"
          R"("StartFrame":0,"EndFrame":0,"Coordinates":[{"TopLeft":[10.0,10.0],)"
          R"("TopRight":[60.0,10.0],"BottomRight":[60.0,60.0],"BottomLeft":[10.0,60.0],)"
          R"("Range":[0,0]}]}}]}})"),
      10);
  m_tool->AnnotationObjects().front()->OnSelection(false);
  for (int const id : {42, 43, 45}) {
    EXPECT_EQ(Find<wxOwnerDrawnComboBox>(id)->GetSelection(), wxNOT_FOUND) << id;
  }
  EXPECT_EQ(Find<wxSliderBase>(40)->GetValue(), 16);
  EXPECT_EQ(Find<wxSliderBase>(46)->GetValue(), 1);
}

/// Keeps what is logged, as long as it lives.
class LoggedLines : public wxLog {
public:
  LoggedLines() : m_before(SetActiveTarget(this)) {}
  ~LoggedLines() override { SetActiveTarget(m_before); }
  std::vector<std::string> lines;

private:
  void DoLogText(wxString const &text) override { lines.push_back(text.utf8_string()); }

  wxLog *m_before;  // owned by wxLog
};

// The control would make a name the current folder with each key.
TEST_F(PropertyControls, TypingThePictureFileLogsNothing) {
  LoggedLines const log;
  wxFilePickerCtrl &picker = Picker();
  picker.GetTextCtrl()->SetValue(wxString::FromUTF8(m_path) + ".non");
  EXPECT_EQ(picker.GetPath(), wxString::FromUTF8(m_path) + ".non");
  picker.GetTextCtrl()->SetValue(wxString::FromUTF8(m_path));
  EXPECT_EQ(picker.GetPath(), wxString::FromUTF8(m_path));
  EXPECT_EQ(log.lines, std::vector<std::string>());
}

}  // namespace

}  // namespace framenote::test
