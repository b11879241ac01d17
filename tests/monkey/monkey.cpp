// SPDX-License-Identifier: MIT
#include "monkey/monkey.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <stdexcept>

#include <wx/app.h>
#include <wx/config.h>
#include <wx/display.h>
#include <wx/fileconf.h>
#include <wx/image.h>

#include "desktop/main_frame.h"
#include "desktop/object_list.h"
#include "desktop/transport_bar.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "monkey/monkey_home.h"
#include "support/find_child.h"
#include "support/test_pictures.h"

namespace framenote::test {

namespace {

wxPoint const kPlace(20, 20);
/// Small: what is painted costs more than what is done.
wxSize const kSize(900, 640);
constexpr int kStepsTold = 20;
/// After so many steps a window of the toolkit's own is closed from outside.
constexpr int kPatience = 12;
/// Of five milliseconds each.
constexpr int kInputTries = 60;

void MakeMedia() {
  std::string const command =
      "ffmpeg -v error -nostdin -y -f lavfi -i testsrc2=size=160x120:rate=25:duration=1.2 "
      "-c:v ffv1 " +
      InMonkeyHome("clip.mkv");
  if (std::system(command.c_str()) != 0) throw std::runtime_error("ffmpeg made no clip");
  NoisePicture(200, 140).SaveFile(InMonkeyHome("picture.png"), wxBITMAP_TYPE_PNG);
  PlacePicture(30, 20).SaveFile(InMonkeyHome("overlay.png"), wxBITMAP_TYPE_PNG);
}

}  // namespace

Monkey::Monkey(unsigned seed) : m_seed(seed), m_random(seed), m_dialogs(m_input, seed) {
  if (char const *const path = std::getenv("FRAMENOTE_MONKEY_TRACE")) {
    m_trace = std::fopen(path, "w");
  }
  // Owned by wxConfigBase.
  wxConfigBase::Set(new wxFileConfig("", "", InMonkeyHome("config")));
  MakeMedia();
  start();
  OpenFile("clip.mkv");
}

Monkey::~Monkey() {
  m_input.ReleaseAll();
  m_frame->Destroy();
  Pump();
  delete wxConfigBase::Set(nullptr);
  if (m_trace != nullptr) std::fclose(m_trace);
}

void Monkey::start() {
  m_frame = new MainFrame(InMonkeyHome("recovery"));  // destroyed by the monkey
  m_frame->SetSize(wxRect(kPlace, kSize));
  m_frame->Show();
  m_canvas = FindChild<Canvas>(*m_frame);
  m_timeline = FindChild<Timeline>(*m_frame);
  m_list = FindChild<ObjectList>(*m_frame);
  m_palette = FindChild<AnnotationPanel>(*m_frame);
  m_transport = FindChild<TransportBar>(*m_frame);
  for (int i = 0; i < 40 && !m_canvas->HasFocus(); ++i) {
    Pump();
    wxMilliSleep(5);
  }
  m_known.clear();
  for (ServerInput::Top const &top : m_input.ShownTops()) m_known.insert(top.id);
}

AnnotationTool const &Monkey::Tool() const {
  return m_frame->Tool();
}

Session const &Monkey::Open() const {
  return m_frame->OpenSession();
}

void Monkey::BeginStep(int number, char const *name) {
  std::seed_seq seed{m_seed, static_cast<unsigned>(number)};
  m_random.seed(seed);
  m_dialogs.Seed(seed);
  // By its menu bar the toolkit lets the window be dragged away.
  if (!wxDisplay().GetGeometry().Contains(m_frame->GetRect())) m_frame->Move(kPlace);
  m_steps.push_back(std::to_string(number) + " " + name);
  if (m_steps.size() > kStepsTold) m_steps.pop_front();
  trace("\n" + m_steps.back());
  m_watchdog.Tell("seed " + std::to_string(m_seed) + "; the last steps:\n" + LastSteps());
}

// At once, so that a crash leaves it behind.
void Monkey::trace(std::string const &words) {
  if (m_trace == nullptr) return;
  std::fputs(words.c_str(), m_trace);
  std::fflush(m_trace);
}

void Monkey::Say(std::string const &words) {
  m_steps.back() += " " + words;
  trace(" " + words);
}

std::string Monkey::LastSteps() const {
  std::string text;
  for (std::string const &step : m_steps) text += step + "\n";
  return text;
}

void Monkey::Pump() {
  // What is delivered may post more; a playing video never ends.
  for (int i = 0; i < 3; ++i) {
    wxYield();
    wxTheApp->ProcessPendingEvents();
    if (!wxTheApp->HasPendingEvents()) break;
  }
  std::string const answers = m_dialogs.TakeAnswers();
  if (!answers.empty() && !m_steps.empty()) Say(answers);
}

void Monkey::WaitForInput() {
  m_arrival.Expect();
  m_input.Tap(KeyArrival::kKey);
  for (int i = 0; i < kInputTries && !m_arrival.IsThere(); ++i) {
    Pump();
    if (!m_arrival.IsThere()) wxMilliSleep(5);
  }
  Pump();
}

void Monkey::MoveTo(wxPoint const &screen) {
  m_input.MoveTo(screen);
}

void Monkey::Click(wxPoint const &screen, int button) {
  m_input.MoveTo(screen);
  m_input.Press(button);
  Pump();
  m_input.Release(button);
  Pump();
}

void Monkey::Drag(wxPoint const &from, wxPoint const &to, int button, int modifiers) {
  m_input.MoveTo(from);
  m_input.SetModifiers(modifiers, true);
  m_input.Press(button);
  Pump();
  int const places = 1 + Below(3);
  for (int i = 1; i <= places; ++i) {
    m_input.MoveTo(from + (to - from) * i / places);
    Pump();
  }
  m_input.Release(button);
  m_input.SetModifiers(modifiers, false);
  Pump();
}

void Monkey::Key(int key, int modifiers) {
  m_input.Tap(key, modifiers);
  Pump();
}

wxPoint Monkey::PlaceOn(wxWindow const &window) {
  wxWindow const &target = window.IsShownOnScreen() ? window : *m_canvas;
  wxRect const rect = target.GetScreenRect().Intersect(m_frame->GetScreenRect());
  wxPoint const place(rect.x + Below(std::max(rect.width, 1)),
                      rect.y + Below(std::max(rect.height, 1)));
  Say("(" + std::to_string(place.x) + "," + std::to_string(place.y) + ")");
  return place;
}

wxPoint Monkey::PlaceOf(double x, double y) const {
  wxPoint2DDouble const at = m_canvas->View().ToWindow({x, y});
  wxPoint const place = m_canvas->ClientToScreen(wxPoint(wxRound(at.m_x), wxRound(at.m_y)));
  wxRect const seen = m_canvas->GetScreenRect();
  return {std::clamp(place.x, seen.x, std::max(seen.x, seen.GetRight())),
          std::clamp(place.y, seen.y, std::max(seen.y, seen.GetBottom()))};
}

IAnnotationObject *Monkey::AnyObject() {
  auto const &objects = Tool().AnnotationObjects();
  if (objects.empty()) return nullptr;
  return *std::next(objects.begin(), Below(static_cast<int>(objects.size())));
}

void Monkey::OpenFile(std::string const &name) {
  m_dialogs.AnswerNext(wxID_NO);
  m_frame->OpenPath(InMonkeyHome(name));
  m_dialogs.AnswerNext(wxID_NONE);
  Pump();
}

void Monkey::Restart() {
  m_input.ReleaseAll();
  m_frame->Destroy();
  Pump();
  start();
  m_frame->OfferRecovery();
  if (!Open().HasMedia()) OpenFile("clip.mkv");
  Pump();
}

void Monkey::CloseStrangers() {
  std::vector<ServerInput::Top> strangers = m_input.ShownTops();
  auto const isKnown = [this](ServerInput::Top const &top) { return m_known.count(top.id) != 0; };
  strangers.erase(std::remove_if(strangers.begin(), strangers.end(), isKnown), strangers.end());
  if (strangers.empty()) {
    m_strangeSteps = 0;
    return;
  }
  ServerInput::Top const &top = strangers.back();
  if (++m_strangeSteps > kPatience) {
    Key(WXK_ESCAPE);
    if (!top.isPopup) m_input.AskToClose(top.id);
    return Pump();
  }
  wxPoint const place(top.rect.x + Below(top.rect.width), top.rect.y + Below(top.rect.height));
  Click(place);
}

}  // namespace framenote::test
