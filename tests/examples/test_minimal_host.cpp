// SPDX-License-Identifier: MIT
// Drives minimal_host as a user does: the program runs as a process, and the mouse and the keys go
// through the X server.
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/tglbtn.h>
#include <wx/uiaction.h>

#include <gtest/gtest.h>

#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "support/host_process.h"
#include "support/screen_windows.h"
#include "support/window_ping.h"
#include "talbase/json_text.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr int kZoom = 2;
constexpr milliseconds kStep(20);  ///< longer than the toolkit holds a motion back to merge it
constexpr milliseconds kPatience(30000);
constexpr int kShapeList = 10;       ///< the palette's list of shapes
constexpr double kPrecision = 1e-6;  ///< picture pixels

std::string ReadAll(fs::path const &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool WaitUntil(std::function<bool()> const &isReached, milliseconds patience = kPatience) {
  auto const deadline = std::chrono::steady_clock::now() + patience;
  while (!isReached()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(milliseconds(10));
  }
  return true;
}

class MinimalHost : public testing::Test {
protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "framenote-host-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    m_folder = folder;
    // The mouse simulator asks a window on the screen for its scale. Destroyed in TearDown.
    m_frame = new wxFrame(nullptr, wxID_ANY, "", wxPoint(1200, 900), wxSize(20, 20));
    m_frame->ShowWithoutActivating();
    wxYield();
    wxImage picture(400, 300);
    picture.SetRGB(wxRect(0, 0, 400, 300), 240, 240, 240);
    ASSERT_TRUE(picture.SaveFile((m_folder / "in.png").string(), wxBITMAP_TYPE_PNG));
    FindControls();
    FindPicture();
  }

  void TearDown() override {
    m_host.reset();
    if (m_frame != nullptr) m_frame->Destroy();
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
  }

  void Start(std::string const &document) {
    m_host.reset();
    m_document = m_folder / document;
    framenote::test::ScreenWindows const before;
    m_host = std::make_unique<framenote::test::HostProcess>(framenote::test::HostProcess::Arguments{
        FRAMENOTE_MINIMAL_HOST_PROGRAM, (m_folder / "in.png").string(), m_document.string(),
        std::to_string(100 * kZoom)});
    m_mouse.MouseMove(300, 300);
    // The window is there as soon as it answers the key for saving.
    bool const answers = WaitUntil([this] { return !TrySave(milliseconds(500)).empty(); });
    ASSERT_TRUE(answers) << (m_host->IsRunning() ? "no window" : "the program ended");
    m_window = before.NewOne();
    m_ping = std::make_unique<framenote::test::WindowPing>(before.NewId());
  }

  /// Saves with the keyboard and returns the document's text.
  std::string Save() { return TrySave(kPatience); }

  wxJSONValue SavedObjects() { return JsonFromUtf8(Save()).ItemAt("Annotate").ItemAt("Objects"); }

  /// The corners of the first object, clockwise from the top left.
  std::vector<double> SavedCorners() {
    wxJSONValue const run = SavedObjects().ItemAt(0).ItemAt("Coordinates").ItemAt(0);
    std::vector<double> corners;
    for (char const *key : {"TopLeft", "TopRight", "BottomRight", "BottomLeft"}) {
      corners.push_back(run.ItemAt(key).ItemAt(0).AsDouble());
      corners.push_back(run.ItemAt(key).ItemAt(1).AsDouble());
    }
    return corners;
  }

  void Key(int key) {
    m_mouse.Char(key);
    WaitForHost();
  }

  /// Presses the button of a tool in the palette.
  void UseTool(Types tool) { ClickControl(static_cast<int>(tool), 0.5); }
  /// For the next shape: the tool is left and taken again, as a list changes what is selected.
  void ChooseEllipse() {
    UseTool(Types::Shape);
    UseTool(Types::Shape);
    ClickControl(kShapeList, 0.95);
    Key(WXK_DOWN);
    Key(WXK_RETURN);
  }

  void MoveTo(wxPoint const &point) {
    m_mouse.MouseMove(m_origin + point * kZoom);
    WaitForHost();
  }

  void Drag(std::vector<wxPoint> const &points) {
    MoveTo(points.front());
    m_mouse.MouseDown();
    for (std::size_t i = 1; i < points.size(); ++i) MoveTo(points[i]);
    m_mouse.MouseUp();
    WaitForHost();
  }

  void Click(wxPoint const &point) { Drag({point}); }

  std::unique_ptr<framenote::test::HostProcess> m_host;

private:
  std::string TrySave(milliseconds patience) {
    std::error_code ignored;
    auto const longAgo = fs::file_time_type::clock::now() - std::chrono::hours(24);
    fs::last_write_time(m_document, longAgo, ignored);
    m_mouse.Char('S', wxMOD_CONTROL);
    std::string text;
    bool const isSaved = WaitUntil(
        [&] {
          text = ReadAll(m_document);
          return JsonFromUtf8(text).IsValid() &&
                 fs::last_write_time(m_document, ignored) != longAgo;
        },
        patience);
    if (!isSaved) text.clear();
    return text;
  }

  /// Clicks on a control of the host's palette, at a share of its width.
  void ClickControl(int id, double share) {
    wxRect const control = m_controls.at(id);
    m_mouse.MouseMove(m_window.GetPosition() + control.GetPosition() +
                      wxPoint(wxRound(share * control.width), control.height / 2));
    WaitForHost();
    m_mouse.MouseClick();
    WaitForHost();
  }

  /// Until the host has acted on all events, however busy the machine is. It answers when it has
  /// read them; a motion that the toolkit held back is delivered before the second answer.
  void WaitForHost() {
    for (int time = 0; time < 2; ++time) {
      std::this_thread::sleep_for(kStep);
      EXPECT_TRUE(m_ping->IsAnswered(kPatience));
    }
  }

  static void Settle() {
    for (int i = 0; i < 20; ++i) {
      wxYield();
      std::this_thread::sleep_for(milliseconds(10));
    }
  }

  /// Lays a window out as the host does, which runs in another process, to learn where the controls
  /// of its palette are.
  void FindControls() {
    wxFrame frame(nullptr, wxID_ANY, "", wxPoint(0, 0), wxSize(1000, 760));
    auto const tool =
        std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
    wxEvtHandler sink;
    AnnotationPanel *const panel = tool->InitGui(&frame, &sink, tool);
    frame.SetMenuBar(new wxMenuBar);                     // owned by the frame
    frame.GetMenuBar()->Append(new wxMenu, "Document");  // owned by the bar
    auto *const sizer = new wxBoxSizer(wxHORIZONTAL);    // owned by the frame
    sizer->AddStretchSpacer();
    sizer->Add(panel, 0, wxEXPAND);
    frame.SetSizer(sizer);
    frame.Show();
    Settle();
    auto const note = [&](int id) {
      wxRect rect = wxWindow::FindWindowById(id, panel)->GetScreenRect();
      rect.Offset(-frame.GetScreenPosition());
      m_controls[id] = rect;
    };
    for (Types const type :
         {Types::Shape, Types::Arrow, Types::Pencil, Types::Hide, Types::Magnify}) {
      note(static_cast<int>(type));
    }
    auto *const shapes = dynamic_cast<wxToggleButton *>(
        wxWindow::FindWindowById(static_cast<int>(Types::Shape), panel));
    shapes->SetValue(true);
    wxCommandEvent pressed(wxEVT_TOGGLEBUTTON, shapes->GetId());
    pressed.SetEventObject(shapes);
    shapes->ProcessWindowEvent(pressed);
    Settle();
    note(kShapeList);
    tool->UnlinkGui();
  }

  /// Learns where the picture is on the screen, from a rectangle that is drawn at a known place of
  /// the screen.
  void FindPicture() {
    ASSERT_NO_FATAL_FAILURE(Start("place.json"));
    m_origin = wxPoint(0, 0);
    UseTool(Types::Shape);
    Drag({{100, 100}, {150, 120}, {200, 150}});
    std::vector<double> const corners = SavedCorners();
    m_origin = wxPoint(kZoom * (100 - wxRound(corners[0])), kZoom * (100 - wxRound(corners[1])));
    // A drag over 200 x 100 pixels of the screen is half of that in the picture.
    ASSERT_EQ(corners[4] - corners[0], 100.0);
    ASSERT_EQ(corners[5] - corners[1], 50.0);
    m_host.reset();
  }

  fs::path m_folder;
  fs::path m_document;
  wxRect m_window;                   ///< of the host, on the screen
  std::map<int, wxRect> m_controls;  ///< of its palette, from the corner of its window
  std::unique_ptr<framenote::test::WindowPing> m_ping;  ///< of the host's window
  wxPoint m_origin;
  wxFrame *m_frame = nullptr;
  wxUIActionSimulator m_mouse;
};

void ExpectCorners(std::vector<double> const &corners, std::vector<double> const &expected) {
  ASSERT_EQ(corners.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(corners[i], expected[i], kPrecision) << "number " << i;
  }
}

/// An unturned rectangle by its outermost coordinates.
void ExpectRectangle(std::vector<double> const &corners, double left, double top, double right,
                     double bottom) {
  ExpectCorners(corners, {left, top, right, top, right, bottom, left, bottom});
}

void ExpectPoint(wxJSONValue const &value, int x, int y) {
  ASSERT_EQ(value.Size(), 2);
  EXPECT_EQ(value.ItemAt(0).AsInt(), x);
  EXPECT_EQ(value.ItemAt(1).AsInt(), y);
}

TEST_F(MinimalHost, ARectangleIsDrawnMovedResizedAndTurnedWithTheMouse) {
  ASSERT_NO_FATAL_FAILURE(Start("document.json"));
  UseTool(Types::Shape);
  Drag({{100, 80}, {150, 120}, {180, 140}});
  ExpectRectangle(SavedCorners(), 100, 80, 180, 140);

  // Saving ends the selection; the border is where a hollow shape can be taken.
  Drag({{120, 82}, {125, 90}, {130, 97}});
  ExpectRectangle(SavedCorners(), 110, 95, 190, 155);

  struct {
    wxPoint select, from, to;
    int left, top, right, bottom;
  } const handles[] = {
      {{112, 110}, {110, 95}, {100, 85}, 100, 85, 190, 155},
      {{102, 102}, {145, 85}, {145, 75}, 100, 75, 190, 155},
      {{102, 92}, {190, 75}, {200, 65}, 100, 65, 200, 155},
      {{102, 82}, {200, 110}, {210, 110}, 100, 65, 210, 155},
      {{102, 82}, {210, 155}, {220, 165}, 100, 65, 220, 165},
      {{102, 85}, {160, 165}, {160, 175}, 100, 65, 220, 175},
      {{102, 85}, {100, 175}, {90, 185}, 90, 65, 220, 185},
      {{92, 90}, {90, 125}, {80, 125}, 80, 65, 220, 185},
  };
  int number = 0;
  for (auto const &row : handles) {
    SCOPED_TRACE("handle " + std::to_string(++number));
    Click(row.select);
    Drag({row.from, (row.from + row.to) / 2, row.to});
    ExpectRectangle(SavedCorners(), row.left, row.top, row.right, row.bottom);
  }

  // The rotation handle is 30 pixels of the screen above the top side. Dragged to the right of
  // the centre (150, 125), it turns the shape by a quarter.
  Click({82, 90});
  Drag({{150, 50}, {220, 60}, {250, 125}});
  ExpectCorners(SavedCorners(), {210, 55, 210, 195, 90, 195, 90, 55});
}

TEST_F(MinimalHost, EachToolMakesItsKindOfObject) {
  ASSERT_NO_FATAL_FAILURE(Start("document.json"));
  UseTool(Types::Shape);
  Drag({{20, 20}, {50, 40}, {80, 60}});
  ChooseEllipse();
  Drag({{120, 20}, {150, 40}, {190, 70}});
  UseTool(Types::Arrow);
  Drag({{20, 120}, {50, 130}, {90, 150}});
  UseTool(Types::Pencil);
  std::vector<wxPoint> const path = {{120, 120}, {130, 125}, {140, 130}, {150, 140}, {160, 150},
                                     {170, 150}, {180, 140}, {190, 130}, {200, 120}, {210, 110}};
  Drag(path);
  UseTool(Types::Hide);
  Drag({{220, 20}, {240, 40}, {260, 70}});
  UseTool(Types::Magnify);
  Drag({{220, 120}, {240, 140}, {270, 160}});

  // The last one drawn is in front.
  wxJSONValue const objects = SavedObjects();
  ASSERT_EQ(objects.Size(), 6);
  wxJSONValue const lens = objects.ItemAt(0);
  wxJSONValue const region = objects.ItemAt(1);
  wxJSONValue const stroke = objects.ItemAt(2);
  wxJSONValue const arrow = objects.ItemAt(3);
  wxJSONValue const ellipse = objects.ItemAt(4);
  wxJSONValue const rectangle = objects.ItemAt(5);
  EXPECT_EQ(region.ItemAt("Id").AsInt(), 7);
  wxJSONValue const regionRun = region.ItemAt("Rectangle").ItemAt("Coordinates").ItemAt(0);
  ExpectPoint(regionRun.ItemAt("TopLeft"), 220, 20);
  ExpectPoint(regionRun.ItemAt("BottomRight"), 260, 70);
  EXPECT_EQ(lens.ItemAt("Id").AsInt(), 8);
  wxJSONValue const lensRun = lens.ItemAt("Rectangle").ItemAt("Coordinates").ItemAt(0);
  ExpectPoint(lensRun.ItemAt("TopLeft"), 220, 120);
  ExpectPoint(lensRun.ItemAt("BottomRight"), 270, 160);
  EXPECT_EQ(rectangle.ItemAt("Id").AsInt(), 2);
  EXPECT_EQ(rectangle.ItemAt("Properties").ItemAt("Shape").AsInt(), 0);
  EXPECT_EQ(ellipse.ItemAt("Id").AsInt(), 2);
  EXPECT_EQ(ellipse.ItemAt("Properties").ItemAt("Shape").AsInt(), 1);
  ExpectPoint(ellipse.ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft"), 120, 20);
  ExpectPoint(ellipse.ItemAt("Coordinates").ItemAt(0).ItemAt("BottomRight"), 190, 70);
  EXPECT_EQ(arrow.ItemAt("Id").AsInt(), 3);
  ExpectPoint(arrow.ItemAt("Coordinates").ItemAt(0).ItemAt("Tail"), 20, 120);
  ExpectPoint(arrow.ItemAt("Coordinates").ItemAt(0).ItemAt("Head"), 90, 150);
  EXPECT_EQ(stroke.ItemAt("Id").AsInt(), 4);

  // The toolkit may merge motions that come too close together, but keeps their order.
  ExpectPoint(stroke.ItemAt("Coordinates").ItemAt(0).ItemAt("StartPoint"), 120, 120);
  wxJSONValue const diffs = stroke.ItemAt("PathDiffs");
  ASSERT_GE(diffs.Size(), 5);
  ExpectPoint(diffs.ItemAt(0), 0, 0);
  ExpectPoint(diffs.ItemAt(diffs.Size() - 1), 90, -10);
  std::size_t next = 0;
  for (int i = 0; i < diffs.Size(); ++i) {
    wxPoint const diff(diffs.ItemAt(i).ItemAt(0).AsInt(), diffs.ItemAt(i).ItemAt(1).AsInt());
    while (next < path.size() && path[next] != path[0] + diff) ++next;
    ASSERT_LT(next, path.size()) << "point " << i << " is not on the way";
  }
}

TEST_F(MinimalHost, ASecondRunRestoresTheDocumentAndSavesTheSameText) {
  ASSERT_NO_FATAL_FAILURE(Start("document.json"));
  UseTool(Types::Shape);
  Drag({{20, 20}, {50, 40}, {80, 60}});
  UseTool(Types::Arrow);
  Drag({{20, 120}, {50, 130}, {90, 150}});
  UseTool(Types::Pencil);
  Drag({{120, 120}, {130, 125}, {140, 130}, {150, 140}, {160, 150}, {170, 150}, {180, 140}});
  std::string const first = Save();
  EXPECT_EQ(JsonFromUtf8(first).ItemAt("Annotate").ItemAt("Objects").Size(), 3);

  ASSERT_NO_FATAL_FAILURE(Start("document.json"));
  EXPECT_EQ(Save(), first);

  // What was restored can be taken and moved like what was drawn.
  Drag({{40, 22}, {45, 30}, {50, 42}});
  wxJSONValue const rectangle = SavedObjects().ItemAt(2);
  ExpectPoint(rectangle.ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft"), 30, 40);
  ExpectPoint(rectangle.ItemAt("Coordinates").ItemAt(0).ItemAt("BottomRight"), 90, 80);
}

}  // namespace
