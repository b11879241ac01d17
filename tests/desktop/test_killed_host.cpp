// SPDX-License-Identifier: MIT
// The desktop host killed at any moment: what was done more than two seconds before is kept.
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "project/recovery_store.h"
#include "support/host_process.h"
#include "support/screen_windows.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// How often the host is killed; FRAMENOTE_KILLS=50 for a long run.
int Kills() {
  constexpr int kUsually = 6;
  char const *const wanted = std::getenv("FRAMENOTE_KILLS");
  return wanted ? std::atoi(wanted) : kUsually;
}

class KilledHost : public testing::Test {
protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "framenote-killed-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
    wxImage picture(400, 300);
    ASSERT_TRUE(picture.SaveFile((m_folder / "in.png").string(), wxBITMAP_TYPE_PNG));
    // The mouse simulator asks a window on the screen for its scale. Destroyed in TearDown.
    m_frame = new wxFrame(nullptr, wxID_ANY, "", wxPoint(1180, 900), wxSize(20, 20));
    m_frame->ShowWithoutActivating();
    wxYield();
  }
  void TearDown() override {
    m_frame->Destroy();
    wxYield();
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  static void Wait(milliseconds time) { std::this_thread::sleep_for(time); }

  /// Starts the host on the picture, and waits for its window.
  void Start() {
    ScreenWindows const before;
    HostProcess::Arguments command = {"/usr/bin/env"};
    for (char const *name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
      command.push_back(std::string(name) + "=" + m_folder.string());
    }
    command.push_back(FRAMENOTE_PROGRAM);
    command.push_back((m_folder / "in.png").string());
    m_host = std::make_unique<HostProcess>(command);
    wxRect window;
    for (int i = 0; i < 1000 && window.IsEmpty(); ++i) {
      Wait(milliseconds(10));
      window = before.NewOne();
    }
    ASSERT_FALSE(window.IsEmpty());
    Wait(milliseconds(700));
    m_middle = window.GetPosition() + wxPoint(window.width / 4, window.height / 4);
    m_mouse.MouseMove(m_middle);
    m_mouse.MouseClick();
    m_mouse.Char('S');
    Wait(milliseconds(100));
  }
  /// Draws one more shape, beside the others.
  void DrawShape(int number) {
    wxPoint const from = m_middle + wxPoint(number % 6 * 30, number / 6 * 30);
    m_mouse.MouseMove(from);
    m_mouse.MouseDown();
    Wait(milliseconds(15));
    m_mouse.MouseMove(from + wxPoint(10, 10));
    Wait(milliseconds(15));
    m_mouse.MouseMove(from + wxPoint(20, 20));
    Wait(milliseconds(15));
    m_mouse.MouseUp();
    Wait(milliseconds(15));
    // Away from the shape, which is selected, and without the tool leaving.
    m_mouse.Char('S');
    m_mouse.Char('S');
    Wait(milliseconds(15));
  }
  int KeptObjects() const {
    std::vector<RecoveryOrphan> const orphans =
        FindOrphans((m_folder / "framenote" / "recovery").string());
    if (orphans.empty()) return 0;
    Project const project = ReadOrphan(orphans.front());
    int const count = project.document.ItemAt("Annotate").ItemAt("Objects").Size();
    for (RecoveryOrphan const &orphan : orphans) RemoveOrphan(orphan);
    return count;
  }

  fs::path m_folder;
  wxFrame *m_frame = nullptr;
  std::unique_ptr<HostProcess> m_host;
  wxUIActionSimulator m_mouse;
  wxPoint m_middle;
};

TEST_F(KilledHost, KeepsWhatIsOlderThanTwoSeconds) {
  std::mt19937 random(7);
  for (int kill = 0; kill < Kills(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    ASSERT_NO_FATAL_FAILURE(Start());
    std::vector<Clock::time_point> drawn;
    auto const end = Clock::now() + milliseconds(2200 + random() % 1500);
    while (Clock::now() < end) {
      DrawShape(static_cast<int>(drawn.size()));
      drawn.push_back(Clock::now());
    }
    m_host->Kill();
    int old = 0;
    for (Clock::time_point const when : drawn) old += when + milliseconds(2000) < Clock::now();
    int const kept = KeptObjects();
    ASSERT_GT(old, 0);
    EXPECT_GE(kept, old);
    EXPECT_LE(kept, static_cast<int>(drawn.size()));
  }
}

}  // namespace

}  // namespace framenote::test
