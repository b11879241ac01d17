// SPDX-License-Identifier: MIT
#include "desktop/export_run.h"

#include <cstdlib>
#include <memory>
#include <string>

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/image.h>
#include <wx/timer.h>

#include "desktop/message_hook.h"
#include "media/media_source.h"
#include "project/project_file.h"
#include "project/temporary_folder.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

/// Looks at the progress window while an export runs, and presses its button if it is told to.
class Watcher : public wxTimer {
public:
  explicit Watcher(wxWindow const &rest) : m_rest(rest) { Start(5); }

  void CancelFromShare(double share) { m_cancelFrom = share; }
  bool HasSeenProgress() const { return m_hasSeenProgress; }
  bool WasRestDisabled() const { return m_wasRestDisabled; }
  /// Milliseconds since the button was pressed.
  long SinceCancel() const { return m_sinceCancel.Time(); }
  bool HasCancelled() const { return m_hasCancelled; }

private:
  void Notify() override {
    for (wxWindow *window : wxTopLevelWindows) {
      wxWindow *const cancel = window->FindWindow(wxID_CANCEL);
      if (cancel != nullptr && window->IsShown()) look(*window, *cancel);
    }
  }

  void look(wxWindow const &progress, wxWindow &cancel) {
    m_hasSeenProgress = true;
    m_wasRestDisabled = !m_rest.IsEnabled();
    for (wxWindow *child : progress.GetChildren()) {
      auto const *const gauge = dynamic_cast<wxGauge *>(child);
      if (gauge == nullptr || m_hasCancelled || m_cancelFrom < 0.0) continue;
      if (gauge->GetValue() < m_cancelFrom * gauge->GetRange()) continue;
      m_hasCancelled = true;
      m_sinceCancel.Start();
      wxCommandEvent event(wxEVT_BUTTON, wxID_CANCEL);
      cancel.ProcessWindowEvent(event);
    }
  }

  wxWindow const &m_rest;
  double m_cancelFrom = -1.0;
  bool m_hasSeenProgress = false;
  bool m_wasRestDisabled = false;
  bool m_hasCancelled = false;
  wxStopWatch m_sinceCancel;
};

class ExportRun : public InTemporaryFolder {
protected:
  void SetUp() override {
    InTemporaryFolder::SetUp();
    fs::create_directory(In("out"));
    m_frame = new wxFrame(nullptr, wxID_ANY, "", {40, 40}, {300, 200});  // destroyed in TearDown
    m_frame->Show();
    ToolDriver driver(1000);
    driver.DrawShape({10, 10}, {50, 50});
    wxJSONValue annotations;
    driver.Tool().ToJSON(annotations);
    m_document = DocumentOf(annotations);
    m_messages.Answer(wxID_NO);
  }

  void TearDown() override {
    m_frame->Destroy();
    wxYield();
    InTemporaryFolder::TearDown();
  }

  /// A film of 25 frames a second in lossless H.264, so that reading it takes its time.
  void MakeFilm(std::string const &size, int seconds) const {
    std::string const command = "ffmpeg -nostdin -v error -y -f lavfi -i testsrc2=s=" + size +
                                ":r=25:d=" + std::to_string(seconds) +
                                " -c:v libx264 -preset ultrafast -qp 0 '" + In("film.mp4") + "'";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;
  }

  BurnSettings To(std::string const &name, FrameRange range) const {
    BurnSettings settings;
    settings.output = In(name);
    settings.range = range;
    return settings;
  }

  ExportOutcome Run(std::string const &media, BurnSettings const &settings) const {
    return RunExport(m_frame, In(media), m_document, settings, In("indexes"));
  }

  wxFrame *m_frame = nullptr;
  wxJSONValue m_document;
  MessageHook m_messages;
};

TEST_F(ExportRun, WritesAFilmWhileTheRestIsDisabled) {
  MakeFilm("640x360", 2);
  Watcher const watcher(*m_frame);
  EXPECT_EQ(Run("film.mp4", To("out/film.mkv", {10, 39})), ExportOutcome::Done);
  EXPECT_TRUE(watcher.HasSeenProgress());
  EXPECT_TRUE(watcher.WasRestDisabled());
  EXPECT_TRUE(m_frame->IsEnabled());
  EXPECT_EQ(OpenMedia(In("out/film.mkv"))->Info().frameCount, 30);
  ASSERT_EQ(m_messages.Texts().size(), 1u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("film.mkv"));
}

TEST_F(ExportRun, CancelledInTheMiddleItLeavesNothing) {
  MakeFilm("1280x720", 12);
  Watcher watcher(*m_frame);
  watcher.CancelFromShare(0.1);
  BurnSettings settings = To("out/film.mkv", {0, 299});
  settings.report = In("out/report.json");
  EXPECT_EQ(Run("film.mp4", settings), ExportOutcome::Cancelled);
  EXPECT_TRUE(watcher.HasCancelled());
  EXPECT_LT(watcher.SinceCancel(), 1000);
  EXPECT_EQ(NamesIn(In("out")), Strings{});
  EXPECT_TRUE(m_messages.Texts().empty());
  EXPECT_TRUE(m_frame->IsEnabled());
}

TEST_F(ExportRun, WritesAStill) {
  wxImage white(64, 64);
  white.SetRGB(wxRect(0, 0, 64, 64), 255, 255, 255);
  ASSERT_TRUE(white.SaveFile(In("face.png"), wxBITMAP_TYPE_PNG));
  EXPECT_EQ(Run("face.png", To("out/face.png", {0, 0})), ExportOutcome::Done);
  wxImage const burnt(In("out/face.png"), wxBITMAP_TYPE_PNG);
  ASSERT_TRUE(burnt.IsOk());
  EXPECT_EQ(burnt.GetGreen(60, 60), 255);
  EXPECT_EQ(burnt.GetRed(10, 30), 255);
  EXPECT_LT(burnt.GetGreen(10, 30), 128) << "the shape's red border";
}

TEST_F(ExportRun, SaysWhyAFolderCannotBeWrittenTo) {
  wxImage(64, 64).SaveFile(In("face.png"), wxBITMAP_TYPE_PNG);
  // Nobody, not even root, makes files there.
  BurnSettings settings = To("", {0, 0});
  settings.output = "/proc/face-annotated.png";
  EXPECT_EQ(Run("face.png", settings), ExportOutcome::Failed);
  ASSERT_EQ(m_messages.Texts().size(), 1u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("/proc/face-annotated.png")) << m_messages.Texts()[0];
  EXPECT_TRUE(m_frame->IsEnabled());
}

TEST_F(ExportRun, SaysThatTheMediaIsGone) {
  EXPECT_EQ(Run("gone.mp4", To("out/film.mkv", {0, 0})), ExportOutcome::Failed);
  ASSERT_EQ(m_messages.Texts().size(), 1u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("gone.mp4"));
  EXPECT_EQ(NamesIn(In("out")), Strings{});
}

TEST_F(ExportRun, NamesDamagedFrames) {
  MakeFilm("640x360", 2);
  // In the middle of the pictures' data.
  std::string bytes = ReadAll(In("film.mp4"));
  for (std::size_t i = bytes.size() / 2; i < bytes.size() / 2 + 200; ++i) bytes[i] = 'x';
  WriteAll(In("film.mp4"), bytes);
  EXPECT_EQ(Run("film.mp4", To("out/film.mkv", {0, 49})), ExportOutcome::Done);
  ASSERT_EQ(m_messages.Texts().size(), 1u);
  EXPECT_TRUE(m_messages.Texts()[0].Contains("damaged")) << m_messages.Texts()[0];
}

}  // namespace

}  // namespace framenote::test
