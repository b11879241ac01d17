// SPDX-License-Identifier: MIT
#include "desktop/export_dialog.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/listbox.h>
#include <wx/memconf.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

#include "desktop/message_hook.h"
#include "project/fake_media.h"
#include "project/temporary_folder.h"

namespace framenote::test {

namespace {

class FakeStill : public FakeMedia {
public:
  explicit FakeStill(std::string path) : FakeMedia({0, 1}, {1, 1}, std::move(path)) {
    m_still.width = 640;
    m_still.height = 480;
  }
  MediaInfo const &Info() const override { return m_still; }

private:
  MediaInfo m_still;
};

class FakeFilm : public FakeMedia {
public:
  FakeFilm(std::string path, bool hasAudio)
      : FakeMedia(EvenTimes(100, 1), {1, 25}, std::move(path)), m_film(FakeMedia::Info()) {
    m_film.hasAudio = hasAudio;
  }
  MediaInfo const &Info() const override { return m_film; }

private:
  MediaInfo m_film;
};

/// A film of 100 frames with sound, at frame 30.
class ExportDialogTest : public InTemporaryFolder {
protected:
  void SetUp() override {
    InTemporaryFolder::SetUp();
    wxConfigBase::Set(&m_config);
    WriteAll(In("street.mp4"), "film");
    Open(std::make_unique<FakeFilm>(In("street.mp4"), true));
  }

  void TearDown() override {
    m_dialog.reset();
    wxConfigBase::Set(nullptr);
    InTemporaryFolder::TearDown();
  }

  void Open(std::unique_ptr<MediaSource> media) {
    m_dialog.reset();
    m_media = std::move(media);
    m_dialog = std::make_unique<ExportDialog>(nullptr, *m_media, 30, [this](FrameRange range) {
      m_asked.push_back(range);
      return m_gaps;
    });
  }

  template <class Control>
  Control &Get(char const *name) const {
    return dynamic_cast<Control &>(*m_dialog->FindWindow(name));
  }

  void Choose(char const *name, int index) const {
    auto &choice = Get<wxChoice>(name);
    choice.SetSelection(index);
    wxCommandEvent event(wxEVT_CHOICE, choice.GetId());
    choice.ProcessWindowEvent(event);
  }

  /// 0 everything, 1 a range, 2 this frame.
  void ChooseFrames(int index) const {
    int seen = 0;
    for (wxWindow *child : m_dialog->GetChildren()) {
      auto *const button = dynamic_cast<wxRadioButton *>(child);
      if (button == nullptr || seen++ != index) continue;
      button->SetValue(true);
      wxCommandEvent event(wxEVT_RADIOBUTTON, button->GetId());
      button->ProcessWindowEvent(event);
    }
  }

  void TypeRange(char const *first, char const *last) const {
    Get<wxTextCtrl>("first").SetValue(first);
    Get<wxTextCtrl>("last").SetValue(last);
  }

  void TypePath(std::string const &path) const { Get<wxTextCtrl>("path").SetValue(path); }
  std::string Path() const { return Get<wxTextCtrl>("path").GetValue().utf8_string(); }
  bool Accept() const { return m_dialog->TransferDataFromWindow(); }

  wxMemoryConfig m_config;
  std::unique_ptr<MediaSource> m_media;
  std::unique_ptr<ExportDialog> m_dialog;
  std::vector<wxString> m_gaps;
  std::vector<FrameRange> m_asked;
  MessageHook m_messages;
};

TEST_F(ExportDialogTest, OffersTheWholeFilmLosslesslyBesideTheSource) {
  EXPECT_EQ(Path(), In("street-annotated.mkv"));
  ASSERT_TRUE(Accept());
  BurnSettings const settings = m_dialog->Settings();
  EXPECT_EQ(settings.range.first, 0);
  EXPECT_EQ(settings.range.last, 99);
  EXPECT_EQ(settings.output, In("street-annotated.mkv"));
  EXPECT_EQ(settings.codec, VideoCodec::FFV1);
  EXPECT_TRUE(settings.keepAudio);
  EXPECT_EQ(settings.report, "");
  EXPECT_TRUE(m_messages.Texts().empty());
}

TEST_F(ExportDialogTest, ThisFrameIsAPicture) {
  ChooseFrames(2);
  EXPECT_EQ(Path(), In("street-annotated-000030.png"));
  Choose("format", 1);
  EXPECT_EQ(Path(), In("street-annotated-000030.jpg"));
  ASSERT_TRUE(Accept());
  EXPECT_EQ(m_dialog->Settings().range.first, 30);
  EXPECT_EQ(m_dialog->Settings().range.last, 30);
  EXPECT_FALSE(Get<wxWindow>("sound").IsEnabled());
}

TEST_F(ExportDialogTest, ATypedRangeIsChosenAndMayBeTimes) {
  TypeRange("10", "0:01.0");
  Choose("output", 1);
  Choose("format", 3);
  ASSERT_TRUE(Accept());
  EXPECT_EQ(m_dialog->Settings().range.first, 10);
  EXPECT_EQ(m_dialog->Settings().range.last, 25);
  EXPECT_EQ(m_dialog->Settings().output, In("street-annotated-%06d.tif"));
}

TEST_F(ExportDialogTest, AWrongRangeKeepsItOpen) {
  TypeRange("20", "10");
  EXPECT_FALSE(Accept());
  TypeRange("20", "100");
  EXPECT_FALSE(Accept());
  TypeRange("20", "20");
  EXPECT_TRUE(Accept());
}

TEST_F(ExportDialogTest, QualityIsForH264Alone) {
  EXPECT_FALSE(Get<wxSpinCtrl>("quality").IsEnabled());
  Choose("format", 1);
  EXPECT_EQ(Path(), In("street-annotated.mp4"));
  EXPECT_TRUE(Get<wxSpinCtrl>("quality").IsEnabled());
  Get<wxSpinCtrl>("quality").SetValue(23);
  Get<wxCheckBox>("sound").SetValue(false);
  Get<wxCheckBox>("report").SetValue(true);
  ASSERT_TRUE(Accept());
  BurnSettings const settings = m_dialog->Settings();
  EXPECT_EQ(settings.codec, VideoCodec::H264);
  EXPECT_EQ(settings.quality, 23);
  EXPECT_FALSE(settings.keepAudio);
  EXPECT_EQ(settings.report, In("street-annotated-report.json"));
}

TEST_F(ExportDialogTest, TheFormatFollowsTheTypedName) {
  TypePath(In("mine.mp4"));
  EXPECT_EQ(Get<wxChoice>("format").GetSelection(), 1);
  Choose("format", 2);
  EXPECT_EQ(Path(), In("mine.mkv"));
  ASSERT_TRUE(Accept());
  EXPECT_EQ(m_dialog->Settings().codec, VideoCodec::H264);
}

TEST_F(ExportDialogTest, ANameWithoutAFolderGoesBesideTheSource) {
  TypePath("mine");
  ASSERT_TRUE(Accept());
  EXPECT_EQ(m_dialog->Settings().output, In("mine.mkv"));
}

TEST_F(ExportDialogTest, RefusesTheSourceUnderAnyName) {
  Choose("format", 1);
  fs::create_symlink(In("street.mp4"), In("other.mp4"));
  for (char const *const name : {"street.mp4", "other.mp4", "./street.mp4"}) {
    TypePath(In(name));
    EXPECT_FALSE(Accept()) << name;
  }
  ASSERT_EQ(m_messages.Texts().size(), 3u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("is the source"));
}

TEST_F(ExportDialogTest, RefusesAFolderThatIsNotThere) {
  TypePath(In("nowhere/a.mkv"));
  EXPECT_FALSE(Accept());
  ASSERT_EQ(m_messages.Texts().size(), 1u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("nowhere"));
}

TEST_F(ExportDialogTest, AsksBeforeItReplaces) {
  WriteAll(In("street-annotated.mkv"), "old");
  m_messages.Answer(wxID_NO);
  EXPECT_FALSE(Accept());
  m_messages.Answer(wxID_YES);
  EXPECT_TRUE(Accept());
  EXPECT_EQ(m_messages.Texts().size(), 2u);
}

TEST_F(ExportDialogTest, AsksForEachFileOfASequenceAndTheReport) {
  Choose("output", 1);
  WriteAll(In("street-annotated-000099.png"), "old");
  m_messages.Answer(wxID_NO);
  EXPECT_FALSE(Accept());
  TypeRange("0", "98");
  EXPECT_TRUE(Accept());
  WriteAll(In("street-annotated-report.json"), "old");
  Get<wxCheckBox>("report").SetValue(true);
  EXPECT_FALSE(Accept());
  ASSERT_EQ(m_messages.Texts().size(), 2u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("000099.png"));
  EXPECT_TRUE(m_messages.Texts()[1].Contains("report.json"));
}

TEST_F(ExportDialogTest, RemembersFolderAndFormatForEachKindOfOutput) {
  fs::create_directory(In("videos"));
  Choose("format", 2);
  TypePath(In("videos/a.mkv"));
  ASSERT_TRUE(Accept());
  Open(std::make_unique<FakeFilm>(In("street.mp4"), true));
  EXPECT_EQ(Path(), In("videos/street-annotated.mkv"));
  EXPECT_EQ(Get<wxChoice>("format").GetSelection(), 2);
  ChooseFrames(2);
  EXPECT_EQ(Path(), In("street-annotated-000030.png"));
}

TEST_F(ExportDialogTest, ListsWarningsForTheChosenRange) {
  EXPECT_FALSE(Get<wxListBox>("warnings").IsShown());
  m_gaps = {"Object 1 jumps", "Object 2 jumps"};
  ChooseFrames(2);
  EXPECT_EQ(m_asked.back().first, 30);
  ASSERT_EQ(Get<wxListBox>("warnings").GetCount(), 2u);
  EXPECT_TRUE(Get<wxListBox>("warnings").IsShown());
  EXPECT_TRUE(Accept());
}

TEST_F(ExportDialogTest, WarningsForARangeTypedAMomentAgoAreReadFirst) {
  m_gaps = {"Object 1 jumps"};
  TypeRange("5", "6");
  EXPECT_FALSE(Accept());
  EXPECT_EQ(m_asked.back().first, 5);
  EXPECT_EQ(Get<wxListBox>("warnings").GetCount(), 1u);
  EXPECT_TRUE(Accept());
}

TEST_F(ExportDialogTest, AFilmWithoutSoundKeepsNone) {
  Open(std::make_unique<FakeFilm>(In("street.mp4"), false));
  EXPECT_FALSE(Get<wxCheckBox>("sound").IsEnabled());
  EXPECT_FALSE(Get<wxCheckBox>("sound").GetValue());
}

TEST_F(ExportDialogTest, EachMnemonicStandsOnce) {
  std::multiset<wxString> mnemonics;
  for (wxWindow *child : m_dialog->GetChildren()) {
    // GTK's labels give theirs back with the character still marked.
    wxString const label = child->GetLabel();
    std::size_t const mark = label.find('&');
    if (mark != wxString::npos) mnemonics.insert(label.Mid(mark + 1, 1).Upper());
  }
  EXPECT_GE(mnemonics.size(), 9u);
  for (wxString const &mnemonic : mnemonics) EXPECT_EQ(mnemonics.count(mnemonic), 1u) << mnemonic;
}

TEST_F(ExportDialogTest, AStillOffersPicturesOnly) {
  Open(std::make_unique<FakeStill>(In("face.jpg")));
  EXPECT_EQ(Get<wxChoice>("output").GetCount(), 1u);
  EXPECT_EQ(m_dialog->FindWindow("first"), nullptr);
  EXPECT_EQ(m_dialog->FindWindow("quality"), nullptr);
  EXPECT_EQ(Path(), In("face-annotated.png"));
  ASSERT_TRUE(Accept());
  EXPECT_EQ(m_dialog->Settings().range.first, 0);
  EXPECT_EQ(m_dialog->Settings().range.last, 0);
}

}  // namespace

}  // namespace framenote::test
