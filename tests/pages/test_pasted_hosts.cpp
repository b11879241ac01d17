// SPDX-License-Identifier: MIT
// The hosts that README.md and docs/embedding.md say to paste, built as they stand there and driven
// as a user does, with the mouse and the keys of the X server.
#include <filesystem>
#include <string>
#include <system_error>

#include <wx/image.h>
#include <wx/log.h>

#include <gtest/gtest.h>

#include "support/host_on_screen.h"
#include "support/screen_capture.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 400;  ///< of the pictures
constexpr int kHeight = 300;
/// In the palette's first button, which is that of shapes.
wxPoint const kInShapeButton(20, 12);

bool IsRed(wxImage const &image, int x, int y) {
  return image.GetRed(x, y) > 200 && image.GetGreen(x, y) < 60 && image.GetBlue(x, y) < 60;
}

bool HasRed(wxImage const &image) {
  if (!image.IsOk()) return false;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      if (IsRed(image, x, y)) return true;
    }
  }
  return false;
}

std::string Program(std::string const &page) {
  return FRAMENOTE_PASTED_HOSTS "/" + page + "/host";
}

using ReadmeHost = HostOnScreen;

TEST_F(ReadmeHost, DrawsARectangleWithTheMouse) {
  ASSERT_NO_FATAL_FAILURE(StartHost({Program("README"), SavePicture("in.png", 240)}));
  wxPoint const corner = Window().GetPosition();
  // Without a window manager there is no title: the picture begins at the window's corner.
  wxRect const picture(corner, wxSize(kWidth, kHeight));
  ASSERT_TRUE(WaitUntil([&] {
    wxImage const shown = CaptureScreen(picture);
    return shown.IsOk() && shown.GetRed(200, 150) == 240;
  })) << "the picture is not shown";

  // A button that is not there yet takes no click. When it has taken it, the page of its tool shows
  // a red border colour.
  wxRect const palette(corner + wxPoint(kWidth, 0), wxSize(kWidth, kHeight));
  ASSERT_TRUE(WaitUntil([&] {
    Click(palette.GetPosition() + kInShapeButton);
    return WaitUntil([&] { return HasRed(CaptureScreen(palette)); }, kHostPatience / 4);
  })) << "the palette does not answer";
  Drag({corner + wxPoint(100, 80), corner + wxPoint(150, 120), corner + wxPoint(200, 160)});
  MoveTo(corner + wxPoint(350, 250));
  // The border is five pixels wide and lies inside the rectangle, which is not filled. The pixels
  // are away from the handles.
  EXPECT_TRUE(WaitUntil([&] {
    wxImage const shown = CaptureScreen(picture);
    return IsRed(shown, 125, 82) && IsRed(shown, 198, 140) && shown.GetGreen(150, 120) == 240 &&
           shown.GetGreen(125, 70) == 240;
  }));
}

class EmbeddedHost : public EditingHost {
protected:
  EmbeddedHost() : EditingHost(wxSize(1000, 700), 1) {}

  HostProcess::Arguments Command(std::string const &document) const override {
    return {Program("embedding"), document, SavePicture("0.png", 240), SavePicture("1.png", 160)};
  }

  wxJSONValue RunsOfTheFirst() { return SavedObjects().ItemAt(0).ItemAt("Coordinates"); }

  /// Waits for the frame that Ctrl+E exports.
  wxImage Exported() {
    std::string const path = Document() + ".png";
    std::error_code ignored;
    fs::remove(path, ignored);
    wxImage image;
    SendKey('E', wxMOD_CONTROL);
    wxLogNull const quiet;  // the file may be half written
    WaitUntil([&] { return fs::exists(path) && image.LoadFile(path); });
    return image;
  }
};

TEST_F(EmbeddedHost, KeepsWhatIsDrawnInEachFrame) {
  ASSERT_NO_FATAL_FAILURE(Start());
  UseTool(Types::Shape);
  DragInPicture({{100, 80}, {150, 120}, {200, 160}});
  wxJSONValue runs = RunsOfTheFirst();
  ASSERT_EQ(runs.Size(), 1);
  ExpectPoint(runs.ItemAt(0).ItemAt("TopLeft"), 100, 80);
  ExpectPoint(runs.ItemAt(0).ItemAt("BottomRight"), 200, 160);

  // Selected by its border and taken into the next frame, it has a place of its own there.
  ClickInPicture({125, 82});
  Key('N', wxMOD_CONTROL);
  DragInPicture({{125, 82}, {130, 90}, {135, 102}});
  runs = RunsOfTheFirst();
  ASSERT_EQ(runs.Size(), 2);
  ExpectPoint(runs.ItemAt(0).ItemAt("TopLeft"), 100, 80);
  ExpectPoint(runs.ItemAt(1).ItemAt("TopLeft"), 110, 100);
  EXPECT_EQ(JsonToUtf8(runs.ItemAt(1).ItemAt("Range")), "[1,1]");
}

TEST_F(EmbeddedHost, RestoresTheDocumentAndExportsFramesOfThePicturesSize) {
  ASSERT_NO_FATAL_FAILURE(Start());
  UseTool(Types::Shape);
  DragInPicture({{100, 80}, {150, 120}, {200, 160}});
  std::string const text = Save();

  ASSERT_NO_FATAL_FAILURE(Start());
  EXPECT_EQ(Save(), text);
  wxImage frame = Exported();
  ASSERT_EQ(frame.GetSize(), wxSize(kWidth, kHeight));
  EXPECT_TRUE(IsRed(frame, 150, 82));
  EXPECT_EQ(frame.GetRed(150, 120), 240);

  // The object is in frame 0 only.
  Key('N', wxMOD_CONTROL);
  frame = Exported();
  ASSERT_TRUE(frame.IsOk());
  EXPECT_EQ(frame.GetRed(150, 82), 160);
}

TEST_F(EmbeddedHost, DrawsUnderThePointerAtAnotherScaleAndOffset) {
  ASSERT_NO_FATAL_FAILURE(Start());
  // About the middle of the canvas: the picture, in its corner, moves by an offset.
  Key('O', wxMOD_CONTROL);
  UseTool(Types::Shape);
  wxPoint const place = OnScreen(wxPoint(250, 200));
  Drag({place, place + wxPoint(40, 30), place + wxPoint(100, 60)});
  wxJSONValue const run = RunsOfTheFirst().ItemAt(0);
  double const left = run.ItemAt("TopLeft").ItemAt(0).AsDouble();
  double const top = run.ItemAt("TopLeft").ItemAt(1).AsDouble();
  EXPECT_EQ(run.ItemAt("BottomRight").ItemAt(0).AsDouble() - left, 200.0);
  EXPECT_EQ(run.ItemAt("BottomRight").ItemAt(1).AsDouble() - top, 120.0);
  EXPECT_NE(left, 500.0);
  EXPECT_TRUE(WaitUntil([&] {
    wxImage const shown = CaptureScreen(wxRect(place, wxSize(110, 70)));
    return shown.IsOk() && IsRed(shown, 50, 1) && IsRed(shown, 1, 30) && IsRed(shown, 98, 30);
  }));
}

}  // namespace

}  // namespace framenote::test
