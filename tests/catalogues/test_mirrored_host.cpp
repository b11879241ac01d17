// SPDX-License-Identifier: MIT
// The desktop host in the user's language, as the screen shows it.
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include <wx/app.h>
#include <wx/colour.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include "support/host_process.h"
#include "support/screen_capture.h"
#include "support/screen_windows.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

constexpr int kMenuHeight = 20;  ///< less than a menu bar has
/// A folder for a picture of each window; they are written if it is set.
constexpr char const *kPictureFolder = "FRAMENOTE_HOST_PICTURES";

/// The host on a picture whose left half is red and whose right half is blue.
class HostIn : public testing::Test {
protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "framenote-host-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
    wxImage picture(200, 100);
    picture.SetRGB(wxRect(0, 0, 100, 100), 255, 0, 0);
    picture.SetRGB(wxRect(100, 0, 100, 100), 0, 0, 255);
    ASSERT_TRUE(picture.SaveFile((m_folder / "in.png").string(), wxBITMAP_TYPE_PNG));
  }
  void TearDown() override {
    m_host.reset();
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  /// What the window looks like once the picture is there.
  wxImage WindowIn(std::string const &language) {
    ScreenWindows const before;
    HostProcess::Arguments command = {"/usr/bin/env", "LANGUAGE=" + language};
    for (char const *name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME"}) {
      command.push_back(std::string(name) + "=" + m_folder.string());
    }
    command.push_back(FRAMENOTE_PROGRAM);
    command.push_back((m_folder / "in.png").string());
    m_host = std::make_unique<HostProcess>(command);
    wxImage window;
    for (int i = 0; i < 500 && !HasPicture(window); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      wxRect const place = before.NewOne();
      if (!place.IsEmpty()) window = CaptureScreen(place);
    }
    if (char const *folder = std::getenv(kPictureFolder)) {
      window.SaveFile(wxString(folder) + "/host-" + language + ".png", wxBITMAP_TYPE_PNG);
    }
    m_host.reset();
    return window;
  }

  /// The middle of what has a colour; -1 if nothing has it.
  static int MiddleOf(wxImage const &window, wxColour const &colour) {
    wxRect found;
    for (int y = 0; y < window.GetHeight(); ++y) {
      for (int x = 0; x < window.GetWidth(); ++x) {
        wxColour const here(window.GetRed(x, y), window.GetGreen(x, y), window.GetBlue(x, y));
        if (here == colour) found.Union(wxRect(x, y, 1, 1));
      }
    }
    return found.IsEmpty() ? -1 : found.x + found.width / 2;
  }
  static int Red(wxImage const &window) { return MiddleOf(window, wxColour(255, 0, 0)); }
  static int Blue(wxImage const &window) { return MiddleOf(window, wxColour(0, 0, 255)); }
  static bool HasPicture(wxImage const &window) {
    return window.IsOk() && Red(window) >= 0 && Blue(window) >= 0;
  }

  /// How many pixels of the menu's letters are in columns from `begin` to before `end`.
  static int MenuInk(wxImage const &window, int begin, int end) {
    constexpr int kDark = 100;
    int ink = 0;
    for (int y = 0; y < kMenuHeight; ++y) {
      for (int x = begin; x < end; ++x) {
        if (window.GetRed(x, y) < kDark) ++ink;
      }
    }
    return ink;
  }

  fs::path m_folder;
  std::unique_ptr<HostProcess> m_host;
};

TEST_F(HostIn, ArabicIsMirroredButForThePicture) {
  wxImage const window = WindowIn("ar");
  ASSERT_TRUE(HasPicture(window));
  int const middle = window.GetWidth() / 2;
  EXPECT_LT(Red(window), Blue(window)) << "the picture is mirrored";
  EXPECT_GT((Red(window) + Blue(window)) / 2, middle) << "the palette is not on the left";
  EXPECT_GT(MenuInk(window, middle, window.GetWidth()), 100);
  EXPECT_EQ(MenuInk(window, 0, middle), 0);
}

TEST_F(HostIn, GermanIsNot) {
  wxImage const window = WindowIn("de");
  ASSERT_TRUE(HasPicture(window));
  int const middle = window.GetWidth() / 2;
  EXPECT_LT(Red(window), Blue(window));
  EXPECT_LT((Red(window) + Blue(window)) / 2, middle);
  EXPECT_GT(MenuInk(window, 0, middle), 100);
  EXPECT_EQ(MenuInk(window, middle, window.GetWidth()), 0);
}

}  // namespace

}  // namespace framenote::test
