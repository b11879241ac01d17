// SPDX-License-Identifier: MIT
// The window of the desktop host, used with the mouse and the keys of the X server.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <wx/checkbox.h>
#include <wx/dataview.h>
#include <wx/fileconf.h>
#include <wx/filedlg.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/translation.h>

#include <gtest/gtest.h>

#include "desktop/main_frame.h"
#include "desktop/object_list.h"
#include "desktop/timeline.h"
#include "desktop/window_fixture.h"
#include "framenote/annotation_catalogue.h"
#include "framenote/annotation_panel.h"
#include "objects/annotation_object.h"
#include "project/project_file.h"
#include "project/recovery_store.h"
#include "support/find_child.h"
#include "support/objects_of_kinds.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

/// Answers every dialog: files by a path, questions by a button. Keeps what was said.
class Answers : public wxModalDialogHook {
public:
  Answers() { Register(); }
  ~Answers() override { Unregister(); }

  std::string path;
  int button = wxID_CANCEL;
  std::vector<std::string> messages;
  std::function<void()> meanwhile;  ///< while a file is chosen

private:
  int Enter(wxDialog *dialog) override {
    if (auto *const files = dynamic_cast<wxFileDialog *>(dialog)) return choose(*files);
    if (auto *const message = dynamic_cast<wxMessageDialog *>(dialog)) {
      messages.push_back(message->GetMessage().utf8_string());
      if ((message->GetMessageDialogStyle() & wxYES_NO) == 0) return wxID_OK;
    }
    return button;
  }
  int choose(wxFileDialog &files) {
    files.SetPath(wxString::FromUTF8(path));
    files.Show();
    // The toolkit reads the folder in the background.
    for (int i = 0; i < 400 && files.GetPath() != wxString::FromUTF8(path); ++i) {
      wxYield();
      wxMilliSleep(5);
    }
    if (meanwhile) meanwhile();
    files.Hide();
    return wxID_OK;
  }
};

class MainFrameTest : public testing::Test {
protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "framenote-desktop-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
    wxConfigBase::Set(new wxFileConfig("", "", In("config")));  // owned by wxConfigBase
    std::string const command =
        "ffmpeg -v error -nostdin -f lavfi -i testsrc2=size=160x120:rate=25:duration=1.2 "
        "-c:v ffv1 " +
        In("clip.mkv");
    ASSERT_EQ(std::system(command.c_str()), 0);
  }
  void TearDown() override {
    if (m_frame) Destroy();
    delete wxConfigBase::Set(nullptr);
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  std::string In(std::string const &name) const { return (m_folder / name).string(); }

  void Start() {
    m_frame = new MainFrame(In("recovery"));  // destroyed by the test
    m_frame->Show();
    m_canvas = FindChild<Canvas>(*m_frame);
    ASSERT_NE(m_canvas, nullptr);
    Settle([this] { return m_canvas->HasFocus(); });
  }
  void OpenClip() {
    m_frame->OpenPath(In("clip.mkv"));
    m_canvas->ZoomTo(2.0);
    Settle();
  }
  /// As when the program is killed: nothing is asked, nothing is saved.
  void Destroy() {
    m_frame->Destroy();
    m_frame = nullptr;
    Settle();
  }

  static void Settle() {
    for (int i = 0; i < 10; ++i) {
      wxYield();
      wxTheApp->ProcessPendingEvents();
      wxMilliSleep(5);
    }
  }
  template <class Condition>
  static bool Settle(Condition const &isReached) {
    for (int i = 0; i < 100 && !isReached(); ++i) Settle();
    return isReached();
  }

  void Key(int key, int modifiers = wxMOD_NONE) {
    m_mouse.Char(key, modifiers);
    Settle();
  }
  /// From one place of the picture to another.
  void Drag(wxPoint const &from, wxPoint const &to) {
    MoveTo(from);
    m_mouse.MouseDown();
    Settle();
    MoveTo((from + to) / 2);
    MoveTo(to);
    m_mouse.MouseUp();
    Settle();
  }
  void MoveTo(wxPoint const &pixel) {
    wxPoint2DDouble const at = m_canvas->View().ToWindow({double(pixel.x), double(pixel.y)});
    m_mouse.MouseMove(m_canvas->ClientToScreen(wxPoint(wxRound(at.m_x), wxRound(at.m_y))));
    Settle();
  }
  std::string Title() const { return m_frame->GetTitle().utf8_string(); }
  /// The objects of the project as it is saved with the keyboard.
  wxJSONValue Saved(std::string const &name) {
    m_answers.path = In(name);
    Key('S', wxMOD_CONTROL);
    Settle([&] { return fs::exists(In(name)) && Title()[0] != '*'; });
    return ReadProject(In(name)).document.ItemAt("Annotate").ItemAt("Objects");
  }

  fs::path m_folder;
  Answers m_answers;
  MainFrame *m_frame = nullptr;
  Canvas *m_canvas = nullptr;
  wxUIActionSimulator m_mouse;
};

TEST_F(MainFrameTest, WorkIsDoneUndoneRedoneSavedAndOpenedAgain) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  EXPECT_EQ(Title(), "clip.mkv - Framenote");
  Key('H');
  Drag({20, 20}, {60, 60});
  EXPECT_EQ(Title(), "*clip.mkv - Framenote");
  for (int i = 0; i < 10; ++i) Key('.');
  Key(WXK_ESCAPE);
  Key('S');
  Drag({80, 20}, {140, 80});
  Key(WXK_ESCAPE);
  EXPECT_EQ(Saved("work.framenote").Size(), 2);
  EXPECT_EQ(Title(), "work.framenote - Framenote");
  Key('Z', wxMOD_CONTROL);
  EXPECT_EQ(Title(), "*work.framenote - Framenote");
  Key('Y', wxMOD_CONTROL);
  EXPECT_EQ(Title(), "work.framenote - Framenote");
  Key('Z', wxMOD_CONTROL);
  wxJSONValue const objects = Saved("work.framenote");
  ASSERT_EQ(objects.Size(), 1);
  wxJSONValue const region = objects.ItemAt(0);
  EXPECT_EQ(region.ItemAt("Id").AsInt(), 7);
  EXPECT_EQ(region.ItemAt("Rectangle").ItemAt("StartFrame").AsInt(), 0);
  EXPECT_EQ(region.ItemAt("Rectangle").ItemAt("EndFrame").AsInt(), 10);
  Destroy();
  ASSERT_NO_FATAL_FAILURE(Start());
  m_frame->OpenPath(In("work.framenote"));
  Settle();
  EXPECT_EQ(Title(), "work.framenote - Framenote");
  EXPECT_TRUE(Saved("work.framenote").IsSameAs(objects));
}

TEST_F(MainFrameTest, ArrowKeysMoveTheSelectedObject) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Key(WXK_RIGHT);
  Key(WXK_DOWN, wxMOD_SHIFT);
  wxJSONValue const run = Saved("work.framenote").ItemAt(0).ItemAt("Coordinates").ItemAt(0);
  EXPECT_EQ(run.ItemAt("TopLeft").ItemAt(0).AsInt(), 41);
  EXPECT_EQ(run.ItemAt("TopLeft").ItemAt(1).AsInt(), 40);
}

TEST_F(MainFrameTest, SavingLeavesTheToolAsThePaletteShowsIt) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  EXPECT_EQ(Saved("work.framenote").Size(), 1);
  Drag({100, 40}, {140, 80});
  EXPECT_EQ(Saved("work.framenote").Size(), 2);
}

TEST_F(MainFrameTest, EndedTextLeavesItsTool) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('T');
  Drag({10, 10}, {70, 50});
  Key('X');
  Key(WXK_ESCAPE);
  Drag({80, 60}, {150, 110});
  Key('Y');
  Key(WXK_ESCAPE);
  EXPECT_EQ(Saved("work.framenote").Size(), 2);
}

TEST_F(MainFrameTest, PaletteOfLongWordsIsNotCutOff) {
  for (char const *language : {"ar", "de", "es", "fr", "it", "zh_CN"}) {
    SCOPED_TRACE(language);
    auto *const translations = new wxTranslations;  // owned by wxTranslations::Set
    wxTranslations::Set(translations);
    translations->SetLanguage(language);
    EXPECT_TRUE(AddAnnotationCatalogue());
    Start();
    wxWindow const &palette = *FindChild<AnnotationPanel>(*m_frame);
    EXPECT_GE(palette.GetClientSize().x, palette.GetSizer()->CalcMin().x);
    Destroy();
  }
  wxTranslations::Set(nullptr);
}

TEST_F(MainFrameTest, ClosingAsksAndCancelStays) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  m_answers.button = wxID_CANCEL;
  m_frame->Close();
  Settle();
  EXPECT_EQ(m_answers.messages, std::vector<std::string>{"Do you want to save your changes?"});
  EXPECT_EQ(Title(), "*clip.mkv - Framenote");
  m_answers.button = wxID_NO;
  m_frame->Close();
  m_frame = nullptr;
  Settle();
  EXPECT_TRUE(FindOrphans(In("recovery")).empty());
}

TEST_F(MainFrameTest, WhatWasNotSavedIsOfferedAtTheNextStart) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Destroy();
  ASSERT_EQ(FindOrphans(In("recovery")).size(), 1U);
  ASSERT_NO_FATAL_FAILURE(Start());
  m_answers.button = wxID_YES;
  m_frame->OfferRecovery();
  Settle();
  EXPECT_EQ(Title(), "*clip.mkv - Framenote");
  EXPECT_EQ(Saved("back.framenote").Size(), 1);
  Destroy();
  EXPECT_TRUE(FindOrphans(In("recovery")).empty());
}

TEST_F(MainFrameTest, FilesThatCannotBeOpenedAreNamedAndWhatIsOpenStays) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  std::ofstream(In("empty.mp4"));
  std::ofstream(In("noise.png")) << "no picture";
  std::ofstream(In("future.framenote"))
      << R"({"format":"framenote project","formatVersion":99,"Annotate":{}})";
  std::ofstream(In("lost.framenote"))
      << R"({"format":"framenote project","formatVersion":1,"media":{"path":"gone.mp4"},)"
      << R"("Annotate":{}})";
  std::system(("ffmpeg -v error -nostdin -f lavfi -i sine=duration=1 " + In("sound.wav")).c_str());
  for (char const *name :
       {"empty.mp4", "noise.png", "sound.wav", "missing.mp4", "future.framenote"}) {
    m_answers.messages.clear();
    m_frame->OpenPath(In(name));
    Settle();
    ASSERT_EQ(m_answers.messages.size(), 1U) << name;
    EXPECT_NE(m_answers.messages[0].find(name), std::string::npos) << m_answers.messages[0];
    EXPECT_EQ(Title(), "clip.mkv - Framenote") << name;
  }
  // A project whose media is gone asks where it is.
  m_answers.messages.clear();
  m_answers.button = wxID_NO;
  m_frame->OpenPath(In("lost.framenote"));
  ASSERT_EQ(m_answers.messages.size(), 1U);
  EXPECT_NE(m_answers.messages[0].find("gone.mp4"), std::string::npos);
  EXPECT_EQ(Title(), "clip.mkv - Framenote");
}

TEST_F(MainFrameTest, AFileThatGoesAwayWhileItIsOpenIsToldAndNothingIsLost) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  fs::rename(In("clip.mkv"), In("elsewhere.mkv"));
  Key(WXK_END);
  Key(WXK_HOME);
  EXPECT_EQ(Saved("work.framenote").Size(), 1);
}

TEST_F(MainFrameTest, TheTimelineSelectsWhatIsPasted) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Key('C', wxMOD_CONTROL);
  Key('V', wxMOD_CONTROL);
  Timeline const &timeline = *FindChild<Timeline>(*m_frame);
  ASSERT_EQ(timeline.RowCount(), 2);
  EXPECT_EQ(timeline.SelectedRow(), 0);
}

TEST_F(MainFrameTest, ClosedMediaLeavesNoRowsInTheTimeline) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Timeline const &timeline = *FindChild<Timeline>(*m_frame);
  ASSERT_EQ(timeline.RowCount(), 1);
  m_answers.button = wxID_NO;
  Key('W', wxMOD_CONTROL);
  EXPECT_EQ(timeline.RowCount(), 0);
}

TEST_F(MainFrameTest, NoRowIsSelectedWhileAnnotationsAreHidden) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Key('H', wxMOD_CONTROL);
  Timeline &timeline = *FindChild<Timeline>(*m_frame);
  ASSERT_EQ(timeline.SelectedRow(), -1);
  timeline.SetFocus();
  Key(WXK_DOWN);
  EXPECT_EQ(timeline.SelectedRow(), -1);
  EXPECT_EQ(FindChild<ObjectList>(*m_frame)->Selected(), -1);
}

TEST_F(MainFrameTest, AListThatLosesItsRowGoesBackToWhatIsSelected) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  ObjectList &list = *FindChild<ObjectList>(*m_frame);
  ASSERT_EQ(list.Selected(), 0);
  auto &table = *FindChild<wxDataViewCtrl>(list);
  table.UnselectAll();
  wxDataViewEvent event(wxEVT_DATAVIEW_SELECTION_CHANGED, &table, wxDataViewItem());
  table.ProcessWindowEvent(event);
  EXPECT_EQ(list.Selected(), 0);
  EXPECT_TRUE(table.GetSelection().IsOk());
}

TEST_F(MainFrameTest, UndoBringsBackWhatCannotBeSeen) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  auto const isTransparent = [this] {
    auto const &objects = m_frame->Tool().AnnotationObjects();
    return objects.front()->ToJSON().ItemAt("Properties").ItemAt("BorderColorTransparent").AsBool();
  };
  auto *const box = dynamic_cast<wxCheckBox *>(
      wxWindow::FindWindowById(12, FindChild<AnnotationPanel>(*m_frame)));
  ASSERT_NE(box, nullptr);
  m_mouse.MouseMove(box->ClientToScreen(wxPoint(8, box->GetSize().y / 2)));
  Settle();
  m_mouse.MouseClick();
  Settle();
  ASSERT_TRUE(isTransparent());
  m_canvas->SetFocus();
  for (int i = 0; i < 2; ++i) {
    Key('Z', wxMOD_CONTROL);
    ASSERT_EQ(m_frame->Tool().AnnotationObjects().size(), 1u);
    EXPECT_FALSE(isTransparent());
    Key('Y', wxMOD_CONTROL);
    EXPECT_TRUE(m_frame->Tool().AnnotationObjects().empty());
    EXPECT_FALSE(FindChild<wxInfoBar>(*m_frame)->IsShown());
  }
  Key('Z', wxMOD_CONTROL);
  EXPECT_FALSE(isTransparent());
  Key('Z', wxMOD_CONTROL);
  EXPECT_TRUE(m_frame->Tool().AnnotationObjects().empty());
  EXPECT_FALSE(m_frame->OpenSession().Steps().CanUndo());
}

TEST_F(MainFrameTest, UndoGoesPastAPictureThatIsGone) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  {
    PictureToPaste const picture(*m_frame->Tool().GetToolModes().image);
    Key('I');
    Drag({40, 30}, {80, 70});
    ASSERT_EQ(m_frame->Tool().AnnotationObjects().size(), 1u);
    Key(WXK_DELETE);
    ASSERT_TRUE(m_frame->Tool().AnnotationObjects().empty());
  }
  auto *const bar = FindChild<wxInfoBar>(*m_frame);
  EXPECT_FALSE(bar->IsShown());
  Key('Z', wxMOD_CONTROL);
  EXPECT_TRUE(bar->IsShown());
  EXPECT_TRUE(m_frame->Tool().AnnotationObjects().empty());
  EXPECT_TRUE(m_frame->OpenSession().Steps().CanRedo());
  Key('Z', wxMOD_CONTROL);
  EXPECT_FALSE(m_frame->OpenSession().Steps().CanUndo());
}

// While it plays, the range of a selected object goes along: undone was then done anew.
TEST_F(MainFrameTest, UndoEndsPlaying) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Key(WXK_RIGHT);
  Key('L');
  Key('Z', wxMOD_CONTROL);
  std::int64_t const frame = m_frame->OpenSession().Frame();
  wxMilliSleep(100);
  Settle();
  EXPECT_EQ(m_frame->OpenSession().Frame(), frame);
  EXPECT_TRUE(m_frame->OpenSession().Steps().CanRedo());
}

TEST_F(MainFrameTest, RangeOfAHiddenObjectStaysWhereItIs) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  Key('S');
  Drag({40, 30}, {80, 70});
  Key('H', wxMOD_CONTROL);
  Timeline const &timeline = *FindChild<Timeline>(*m_frame);
  ASSERT_EQ(timeline.RangeOf(0), Timeline::Run(0, 0));
  wxRect const bar = timeline.Layout().Bar(0, 0, 0);
  wxPoint const end = timeline.ClientToScreen(wxPoint(bar.GetRight() - 1, bar.y + bar.height / 2));
  m_mouse.MouseMove(end);
  m_mouse.MouseDown();
  Settle();
  m_mouse.MouseMove(end + wxPoint(200, 0));
  Settle();
  m_mouse.MouseUp();
  Settle();
  EXPECT_EQ(timeline.RangeOf(0), Timeline::Run(0, 0));
}

TEST_F(MainFrameTest, CommandThatIsNotThereAnyMoreDoesNothing) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  int const saveAs = m_frame->GetMenuBar()->FindMenuItem("File", "Save As...");
  ASSERT_NE(saveAs, wxNOT_FOUND);
  Key('W', wxMOD_CONTROL);
  ASSERT_FALSE(m_frame->OpenSession().HasMedia());
  m_answers.path = In("nothing.framenote");
  wxCommandEvent event(wxEVT_MENU, saveAs);
  m_frame->ProcessWindowEvent(event);
  EXPECT_FALSE(fs::exists(In("nothing.framenote")));
}

TEST_F(MainFrameTest, NoCommandIsRunWhileAnotherOneAsks) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  int const close = m_frame->GetMenuBar()->FindMenuItem("File", "Close");
  ASSERT_NE(close, wxNOT_FOUND);
  m_answers.meanwhile = [&] {
    wxCommandEvent event(wxEVT_MENU, close);
    m_frame->ProcessWindowEvent(event);
  };
  EXPECT_EQ(Saved("work.framenote").Size(), 0);
  EXPECT_TRUE(m_frame->OpenSession().HasMedia());
  wxCommandEvent event(wxEVT_MENU, close);
  m_frame->ProcessWindowEvent(event);
  EXPECT_FALSE(m_frame->OpenSession().HasMedia());
}

TEST_F(MainFrameTest, TheWindowGoesWhileAScrollBarMoves) {
  ASSERT_NO_FATAL_FAILURE(Start());
  OpenClip();
  m_canvas->ZoomTo(20.0);
  Settle();
  wxSize const inside = m_canvas->GetClientSize();
  ASSERT_GT(m_canvas->GetSize().x, inside.x + 4);
  wxPoint const below((inside.x + m_canvas->GetSize().x) / 2, inside.y - 10);
  m_mouse.MouseMove(m_canvas->ClientToScreen(below));
  Settle();
  // With Shift it slides to the next page.
  m_mouse.KeyDown(WXK_SHIFT);
  m_mouse.MouseDown();
  m_mouse.MouseUp();
  m_mouse.KeyUp(WXK_SHIFT);
  wxYield();
  Destroy();
}

TEST_F(MainFrameTest, ObjectsThatCannotBeReadAreTold) {
  std::ofstream(In("arrow.json"))
      << R"({"Annotate":{"Objects":[{"Id":3,"StartFrame":0,"EndFrame":0,"Properties":{},)"
         R"("Coordinates":[{"Head":[10,10],"Tail":[50,40],"Range":[0,0]}]}]}})";
  std::ofstream(In("damaged.json"))
      << R"({"Annotate":{"Objects":[{"Id":3,"StartFrame":0,"EndFrame":0,"Properties":{},)"
         R"("Coordinates":[{"Head":[10,10],"Tail":[50,40],"Range":[0,0]}]},{"Id":2},{"Id":6}]}})";
  ASSERT_NO_FATAL_FAILURE(Start());
  auto *const bar = FindChild<wxInfoBar>(*m_frame);
  ASSERT_NE(bar, nullptr);
  m_frame->OpenPath(In("clip.mkv"), In("arrow.json"));
  Settle();
  EXPECT_EQ(m_frame->OpenSession().LeftOut(), 0);
  EXPECT_FALSE(bar->IsShown());
  m_frame->OpenPath(In("clip.mkv"), In("damaged.json"));
  Settle();
  EXPECT_EQ(m_frame->OpenSession().LeftOut(), 2);
  EXPECT_TRUE(bar->IsShown());
  Key('W', wxMOD_CONTROL);
  EXPECT_EQ(m_frame->OpenSession().LeftOut(), 0);
}

}  // namespace

}  // namespace framenote::test
