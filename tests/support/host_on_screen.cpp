// SPDX-License-Identifier: MIT
#include "support/host_on_screen.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>
#include <thread>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/tglbtn.h>

#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "support/screen_windows.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

constexpr milliseconds kStep(20);  ///< longer than the toolkit holds a motion back to merge it

std::string ReadAll(fs::path const &path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Settle() {
  for (int i = 0; i < 20; ++i) {
    wxYield();
    std::this_thread::sleep_for(milliseconds(10));
  }
}

}  // namespace

bool WaitUntil(std::function<bool()> const &isReached, milliseconds patience) {
  auto const deadline = std::chrono::steady_clock::now() + patience;
  while (!isReached()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(milliseconds(10));
  }
  return true;
}

void HostOnScreen::SetUp() {
  std::string folder = (fs::temp_directory_path() / "framenote-host-XXXXXX").string();
  ASSERT_NE(mkdtemp(folder.data()), nullptr);
  m_folder = folder;
  m_frame = new wxFrame(nullptr, wxID_ANY, "", wxPoint(1200, 900), wxSize(20, 20));
  m_frame->ShowWithoutActivating();
  wxYield();
}

void HostOnScreen::TearDown() {
  EndHost();
  if (m_frame != nullptr) m_frame->Destroy();
  std::error_code ignored;
  fs::remove_all(m_folder, ignored);
}

std::string HostOnScreen::SavePicture(std::string const &name, unsigned char shade) const {
  wxImage picture(400, 300);
  picture.SetRGB(wxRect(0, 0, 400, 300), shade, shade, shade);
  EXPECT_TRUE(picture.SaveFile(In(name), wxBITMAP_TYPE_PNG));
  return In(name);
}

void HostOnScreen::StartHost(HostProcess::Arguments const &command) {
  EndHost();
  ScreenWindows const before;
  m_host = std::make_unique<HostProcess>(command);
  ASSERT_TRUE(WaitUntil([&] { return !before.NewOne().IsEmpty(); }))
      << (IsRunning() ? "no window" : "the program ended");
  m_window = before.NewOne();
  m_ping = std::make_unique<WindowPing>(before.NewId());
  waitForHost();
}

void HostOnScreen::EndHost() {
  m_ping.reset();
  m_host.reset();
}

void HostOnScreen::MoveTo(wxPoint const &place) {
  m_mouse.MouseMove(place);
  waitForHost();
}

void HostOnScreen::Drag(std::vector<wxPoint> const &places) {
  MoveTo(places.front());
  m_mouse.MouseDown();
  for (std::size_t i = 1; i < places.size(); ++i) MoveTo(places[i]);
  m_mouse.MouseUp();
  waitForHost();
}

void HostOnScreen::Key(int key, int modifiers) {
  SendKey(key, modifiers);
  waitForHost();
}

void HostOnScreen::waitForHost() {
  // It answers when it has read the events; a motion that the toolkit held back is delivered before
  // the second answer.
  for (int time = 0; time < 2; ++time) {
    std::this_thread::sleep_for(kStep);
    EXPECT_TRUE(m_ping->IsAnswered(kHostPatience));
  }
}

void EditingHost::SetUp() {
  HostOnScreen::SetUp();
  if (HasFatalFailure()) return;
  findControls();
  findPicture();
}

void EditingHost::Start(std::string const &document) {
  m_document = In(document);
  ASSERT_NO_FATAL_FAILURE(StartHost(Command(m_document)));
  // The pointer is over no control, and the window takes keys.
  MoveTo(Window().GetPosition() + wxPoint(300, 300));
  bool const answers = WaitUntil([this] { return !trySave(milliseconds(500)).empty(); });
  ASSERT_TRUE(answers) << (IsRunning() ? "no answer" : "the program ended");
}

wxJSONValue EditingHost::SavedObjects() {
  return JsonFromUtf8(Save()).ItemAt("Annotate").ItemAt("Objects");
}

std::string EditingHost::trySave(milliseconds patience) {
  std::error_code ignored;
  auto const longAgo = fs::file_time_type::clock::now() - std::chrono::hours(24);
  fs::last_write_time(m_document, longAgo, ignored);
  SendKey('S', wxMOD_CONTROL);
  std::string text;
  bool const isSaved = WaitUntil(
      [&] {
        text = ReadAll(m_document);
        return JsonFromUtf8(text).IsValid() && fs::last_write_time(m_document, ignored) != longAgo;
      },
      patience);
  if (!isSaved) text.clear();
  return text;
}

void EditingHost::ClickControl(int id, double share) {
  wxRect const control = m_controls.at(id);
  Click(Window().GetPosition() + control.GetPosition() +
        wxPoint(wxRound(share * control.width), control.height / 2));
}

void EditingHost::DragInPicture(std::vector<wxPoint> points) {
  for (wxPoint &point : points) point = OnScreen(point);
  Drag(points);
}

/// Lays a window out as the host does, which runs in another process.
void EditingHost::findControls() {
  wxFrame frame(nullptr, wxID_ANY, "", wxPoint(0, 0), m_windowSize);
  auto const tool =
      std::make_shared<AnnotationTool>(AnnotationToolConfig(false, false, true, true, false, {}));
  wxEvtHandler sink;
  AnnotationPanel *const panel = tool->InitGui(&frame, &sink, tool);
  frame.SetMenuBar(new wxMenuBar);                   // owned by the frame
  frame.GetMenuBar()->Append(new wxMenu, "Menu");    // owned by the bar
  auto *const sizer = new wxBoxSizer(wxHORIZONTAL);  // owned by the frame
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
  for (Types const type : {Types::Shape, Types::Arrow, Types::Pencil, Types::Hide, Types::Magnify})
    note(static_cast<int>(type));
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

/// From a rectangle that is drawn at a known place of the screen, 200 x 100 pixels there.
void EditingHost::findPicture() {
  ASSERT_NO_FATAL_FAILURE(Start("place.json"));
  UseTool(Types::Shape);
  wxPoint const place = Window().GetPosition() + wxPoint(100, 100);
  Drag({place, place + wxPoint(100, 40), place + wxPoint(200, 100)});
  wxJSONValue const run = SavedObjects().ItemAt(0).ItemAt("Coordinates").ItemAt(0);
  ASSERT_EQ(run.ItemAt("TopLeft").Size(), 2) << "nothing was drawn";
  wxPoint const first(run.ItemAt("TopLeft").ItemAt(0).AsInt(),
                      run.ItemAt("TopLeft").ItemAt(1).AsInt());
  ExpectPoint(run.ItemAt("BottomRight"), first.x + 200 / m_zoom, first.y + 100 / m_zoom);
  m_origin = place - first * m_zoom;
  EndHost();
}

void ExpectPoint(wxJSONValue const &point, int x, int y) {
  ASSERT_EQ(point.Size(), 2);
  EXPECT_EQ(point.ItemAt(0).AsDouble(), x);
  EXPECT_EQ(point.ItemAt(1).AsDouble(), y);
}

}  // namespace framenote::test
