// SPDX-License-Identifier: MIT
// The hosts that README.md and docs/embedding.md say to paste, built as they stand there and driven
// as a user does, with the mouse and the keys of the X server.
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "project/temporary_folder.h"
#include "support/host_process.h"
#include "support/screen_capture.h"
#include "support/screen_windows.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kStep(30);  ///< between two motions, so that the server does not merge them
constexpr milliseconds kPatience(30000);
constexpr int kWidth = 400;  ///< of the pictures
constexpr int kHeight = 300;
/// In the palette's first button, which is that of shapes.
wxPoint const kInShapeButton(20, 12);

bool WaitUntil(std::function<bool()> const &isReached, milliseconds patience = kPatience) {
  auto const deadline = std::chrono::steady_clock::now() + patience;
  while (!isReached()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(milliseconds(10));
  }
  return true;
}

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

class PastedHost : public InTemporaryFolder {
protected:
  void SetUp() override {
    InTemporaryFolder::SetUp();
    // The mouse simulator asks a window on the screen for its scale. Destroyed in TearDown.
    m_frame = new wxFrame(nullptr, wxID_ANY, "", wxPoint(1200, 900), wxSize(20, 20));
    m_frame->ShowWithoutActivating();
    wxYield();
    for (int i = 0; i < 2; ++i) {
      wxImage picture(kWidth, kHeight);
      auto const shade = static_cast<unsigned char>(240 - 80 * i);
      picture.SetRGB(wxRect(0, 0, kWidth, kHeight), shade, shade, shade);
      m_pictures.push_back(In(std::to_string(i) + ".png"));
      ASSERT_TRUE(picture.SaveFile(m_pictures.back(), wxBITMAP_TYPE_PNG));
    }
  }

  void TearDown() override {
    m_host.reset();
    m_frame->Destroy();
    InTemporaryFolder::TearDown();
  }

  /// Starts the host of a page, and waits for its window.
  void Start(std::string const &page, HostProcess::Arguments arguments) {
    arguments.insert(arguments.begin(), FRAMENOTE_PASTED_HOSTS "/" + page + "/host");
    m_host.reset();
    ScreenWindows const before;
    m_host = std::make_unique<HostProcess>(arguments);
    ASSERT_TRUE(WaitUntil([&] { return !before.NewOne().IsEmpty(); }))
        << (m_host->IsRunning() ? "no window" : "the program ended");
    m_window = before.NewOne();
  }

  void MoveTo(wxPoint const &place) {
    m_mouse.MouseMove(place);
    std::this_thread::sleep_for(kStep);
  }

  void Drag(std::vector<wxPoint> const &places) {
    MoveTo(places.front());
    m_mouse.MouseDown();
    for (std::size_t i = 1; i < places.size(); ++i) MoveTo(places[i]);
    m_mouse.MouseUp();
    std::this_thread::sleep_for(kStep);
  }

  void Key(int key, int modifiers = wxMOD_NONE) {
    m_mouse.Char(key, modifiers);
    std::this_thread::sleep_for(kStep);
  }

  std::vector<std::string> m_pictures;
  std::unique_ptr<HostProcess> m_host;
  wxRect m_window;  ///< of the host, on the screen
  wxUIActionSimulator m_mouse;

private:
  wxFrame *m_frame = nullptr;
};

using ReadmeHost = PastedHost;

TEST_F(ReadmeHost, DrawsARectangleWithTheMouse) {
  ASSERT_NO_FATAL_FAILURE(Start("README", {m_pictures[0]}));
  wxPoint const corner = m_window.GetPosition();
  // Without a window manager there is no title: the picture begins at the window's corner.
  wxRect const picture(corner, wxSize(kWidth, kHeight));
  ASSERT_TRUE(WaitUntil([&] {
    wxImage const shown = CaptureScreen(picture);
    return shown.IsOk() && shown.GetRed(200, 150) == 240;
  })) << "the picture is not shown";

  // A button that is not there yet takes no click. When it has taken it, the page of its tool shows
  // a red border colour.
  wxRect const palette(corner + wxPoint(kWidth, 0), wxSize(kWidth, kHeight));
  MoveTo(palette.GetPosition() + kInShapeButton);
  ASSERT_TRUE(WaitUntil([&] {
    m_mouse.MouseClick();
    return WaitUntil([&] { return HasRed(CaptureScreen(palette)); }, kPatience / 4);
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

class EmbeddedHost : public PastedHost {
protected:
  void Start() {
    ASSERT_NO_FATAL_FAILURE(
        PastedHost::Start("embedding", {m_document, m_pictures[0], m_pictures[1]}));
    // The window answers as soon as it saves.
    bool const answers = WaitUntil([this] { return !TrySave(milliseconds(500)).empty(); });
    ASSERT_TRUE(answers) << (m_host->IsRunning() ? "no answer" : "the program ended");
  }

  void SetUp() override {
    PastedHost::SetUp();
    m_document = In("case.json");
    FindShapeButton();
    FindPicture();
  }

  wxJSONValue Saved() { return JsonFromUtf8(TrySave(kPatience)).ItemAt("Annotate"); }

  wxJSONValue RunsOfTheFirst() { return Saved().ItemAt("Objects").ItemAt(0).ItemAt("Coordinates"); }

  void ExpectPoint(wxJSONValue const &point, int x, int y) {
    EXPECT_EQ(JsonToUtf8(point), "[" + std::to_string(x) + ".0," + std::to_string(y) + ".0]");
  }

  /// Waits for the frame that Ctrl+E exports.
  wxImage Exported() {
    std::string const path = m_document + ".png";
    std::error_code ignored;
    fs::remove(path, ignored);
    wxImage image;
    m_mouse.Char('E', wxMOD_CONTROL);
    wxLogNull const quiet;  // the file may be half written
    WaitUntil([&] { return fs::exists(path) && image.LoadFile(path); });
    return image;
  }

  void ChooseShapes() {
    MoveTo(m_window.GetPosition() + m_shapeButton);
    m_mouse.MouseClick();
    std::this_thread::sleep_for(kStep);
  }

  /// A drag between points of the picture, at scale 1 and without an offset.
  void DragInPicture(std::vector<wxPoint> points) {
    for (wxPoint &point : points) point += m_origin;
    Drag(points);
  }

  /// Learns where the picture is on the screen, from a rectangle at a known place of the screen.
  void FindPicture() {
    ASSERT_NO_FATAL_FAILURE(Start());
    ChooseShapes();
    wxPoint const place = m_window.GetPosition() + wxPoint(100, 100);
    Drag({place, place + wxPoint(30, 20), place + wxPoint(60, 50)});
    wxJSONValue const corner = RunsOfTheFirst().ItemAt(0).ItemAt("TopLeft");
    ASSERT_EQ(corner.Size(), 2) << "nothing was drawn";
    m_origin = place - wxPoint(corner.ItemAt(0).AsInt(), corner.ItemAt(1).AsInt());
    m_host.reset();
    fs::remove(m_document);
  }

  wxPoint m_origin;  ///< of the picture, on the screen
  std::string m_document;

private:
  std::string TrySave(milliseconds patience) {
    std::error_code ignored;
    auto const longAgo = fs::file_time_type::clock::now() - std::chrono::hours(24);
    fs::last_write_time(m_document, longAgo, ignored);
    m_mouse.Char('S', wxMOD_CONTROL);
    std::string text;
    bool const isSaved = WaitUntil(
        [&] {
          text = fs::exists(m_document) ? ReadAll(m_document) : "";
          return JsonFromUtf8(text).IsValid() &&
                 fs::last_write_time(m_document, ignored) != longAgo;
        },
        patience);
    if (!isSaved) text.clear();
    return text;
  }

  /// Lays a window out as the host does, to learn where its palette has the button for shapes.
  void FindShapeButton() {
    wxFrame frame(nullptr, wxID_ANY, "", wxPoint(0, 0), wxSize(1000, 700));
    auto const tool =
        std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
    AnnotationPanel *const palette = tool->InitGui(&frame, &frame, tool);
    frame.SetMenuBar(new wxMenuBar);                  // owned by the frame
    frame.GetMenuBar()->Append(new wxMenu, "&File");  // owned by the bar
    auto *const row = new wxBoxSizer(wxHORIZONTAL);   // owned by the frame
    row->AddStretchSpacer();
    row->Add(palette, 0, wxEXPAND);
    frame.SetSizer(row);
    frame.Show();
    for (int i = 0; i < 20; ++i) {
      wxYield();
      std::this_thread::sleep_for(milliseconds(10));
    }
    wxWindow const *const button =
        wxWindow::FindWindowById(static_cast<int>(Types::Shape), palette);
    wxRect const place = button->GetScreenRect();
    m_shapeButton = place.GetPosition() + wxPoint(place.width / 2, place.height / 2) -
                    frame.GetScreenPosition();
    tool->UnlinkGui();
  }

  wxPoint m_shapeButton;
};

TEST_F(EmbeddedHost, KeepsWhatIsDrawnInEachFrame) {
  ASSERT_NO_FATAL_FAILURE(Start());
  ChooseShapes();
  DragInPicture({{100, 80}, {150, 120}, {200, 160}});
  wxJSONValue runs = RunsOfTheFirst();
  ASSERT_EQ(runs.Size(), 1);
  ExpectPoint(runs.ItemAt(0).ItemAt("TopLeft"), 100, 80);
  ExpectPoint(runs.ItemAt(0).ItemAt("BottomRight"), 200, 160);

  // Selected by its border and taken into the next frame, it has a place of its own there.
  DragInPicture({{125, 82}});
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
  ChooseShapes();
  DragInPicture({{100, 80}, {150, 120}, {200, 160}});
  std::string const text = JsonToUtf8(Saved());

  ASSERT_NO_FATAL_FAILURE(Start());
  EXPECT_EQ(JsonToUtf8(Saved()), text);
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
  ChooseShapes();
  wxPoint const place = m_origin + wxPoint(250, 200);
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
