// SPDX-License-Identifier: MIT
// What the monkey does with the mouse.
#include <array>

#include "desktop/canvas.h"
#include "desktop/main_frame.h"
#include "desktop/object_list.h"
#include "desktop/session.h"
#include "desktop/timeline.h"
#include "framenote/annotation_tool.h"
#include "monkey/monkey.h"
#include "monkey/monkey_actions.h"
#include "objects/annotation_object.h"

namespace framenote::test {

namespace {

constexpr int kMiddle = 2;
constexpr int kRight = 3;

int AnyModifiers(Monkey &monkey) {
  constexpr std::array<int, 8> kModifiers = {0, 0,           0,           0,
                                             0, wxMOD_SHIFT, wxMOD_SHIFT, wxMOD_CONTROL};
  return monkey.OneOf(kModifiers);
}

/// A place on an object: in it, or at one of the eight points of its edge, where its handles are.
wxPoint PlaceOnObject(Monkey &monkey) {
  IAnnotationObject *object = monkey.Tool().GetSelectedObject();
  if (object == nullptr || monkey.Chance(30)) object = monkey.AnyObject();
  if (object == nullptr) return monkey.PlaceOn(monkey.Picture());
  wxPoint2DInt const corner = object->GetPastePoint();
  wxRect const rect = object->GetContainingRect();
  int const x = corner.m_x + (rect.GetRight() - corner.m_x) * monkey.Below(3) / 2;
  int const y = corner.m_y + (rect.GetBottom() - corner.m_y) * monkey.Below(3) / 2;
  wxPoint const place = monkey.PlaceOf(x, y);
  monkey.Say("(" + std::to_string(place.x) + "," + std::to_string(place.y) + ")");
  return place;
}

void ClickPicture(Monkey &monkey) {
  monkey.Click(monkey.PlaceOn(monkey.Picture()));
}

void ClickObject(Monkey &monkey) {
  monkey.Click(PlaceOnObject(monkey));
}

void DoubleClick(Monkey &monkey) {
  wxPoint const place = PlaceOnObject(monkey);
  monkey.Click(place);
  monkey.Click(place);
}

void DragPicture(Monkey &monkey) {
  wxPoint const from = monkey.PlaceOn(monkey.Picture());
  monkey.Drag(from, monkey.PlaceOn(monkey.Picture()), 1, AnyModifiers(monkey));
}

void DragObject(Monkey &monkey) {
  constexpr int kReach = 120;
  wxPoint const from = PlaceOnObject(monkey);
  wxPoint const way(monkey.Below(kReach) - kReach / 2, monkey.Below(kReach) - kReach / 2);
  monkey.MoveTo(from);
  monkey.Pump();
  monkey.Drag(from, from + way, 1, AnyModifiers(monkey));
}

/// Above the middle of the upper side, where the handle for turning is.
void TurnObject(Monkey &monkey) {
  constexpr int kReach = 160;
  IAnnotationObject *const object = monkey.Tool().GetSelectedObject();
  if (object == nullptr) return;
  wxPoint2DInt const corner = object->GetPastePoint();
  wxRect const rect = object->GetContainingRect();
  wxPoint const top = monkey.PlaceOf((corner.m_x + rect.GetRight()) / 2.0, corner.m_y);
  wxPoint const from = top - wxPoint(0, 10 + monkey.Below(25));
  monkey.MoveTo(from);
  monkey.Pump();
  monkey.Drag(from, from + wxPoint(monkey.Below(kReach) - kReach / 2, monkey.Below(kReach)));
}

/// Down in this step, up in another.
void Press(Monkey &monkey) {
  monkey.MoveTo(monkey.PlaceOn(monkey.Picture()));
  monkey.Input().Press();
  monkey.Pump();
}

void Move(Monkey &monkey) {
  monkey.MoveTo(monkey.Chance(60) ? monkey.PlaceOn(monkey.Picture()) : PlaceOnObject(monkey));
  monkey.Pump();
}

void RightClick(Monkey &monkey) {
  monkey.Click(PlaceOnObject(monkey), kRight);
}

void DragWithMiddle(Monkey &monkey) {
  wxPoint const from = monkey.PlaceOn(monkey.Picture());
  monkey.Drag(from, monkey.PlaceOn(monkey.Picture()), kMiddle);
}

void DragWithSpace(Monkey &monkey) {
  wxPoint const from = monkey.PlaceOn(monkey.Picture());
  monkey.Input().Hold(' ');
  monkey.Drag(from, monkey.PlaceOn(monkey.Picture()));
  monkey.Input().LetGo(' ');
  monkey.Pump();
}

void Turn(Monkey &monkey, wxWindow const &window) {
  int const modifiers = monkey.Chance(50) ? wxMOD_CONTROL : AnyModifiers(monkey);
  monkey.MoveTo(monkey.PlaceOn(window));
  monkey.Input().SetModifiers(modifiers, true);
  monkey.Input().Turn(monkey.Below(7) - 3);
  monkey.Input().SetModifiers(modifiers, false);
  monkey.Pump();
}

void TurnOnPicture(Monkey &monkey) {
  Turn(monkey, monkey.Picture());
}

void TurnOnTimeline(Monkey &monkey) {
  Turn(monkey, monkey.Time());
}

void TurnOnPalette(Monkey &monkey) {
  Turn(monkey, monkey.Palette());
}

void ClickPalette(Monkey &monkey) {
  monkey.Click(monkey.PlaceOn(monkey.Palette()));
}

void DragPalette(Monkey &monkey) {
  wxPoint const from = monkey.PlaceOn(monkey.Palette());
  monkey.Drag(from, from + wxPoint(monkey.Below(121) - 60, 0));
}

void ClickTimeline(Monkey &monkey) {
  monkey.Click(monkey.PlaceOn(monkey.Time()));
}

void DragTimeline(Monkey &monkey) {
  wxPoint const from = monkey.PlaceOn(monkey.Time());
  monkey.Drag(from, monkey.PlaceOn(monkey.Time()));
}

/// An end of a bar.
void DragRange(Monkey &monkey) {
  Timeline const &time = monkey.Time();
  if (time.RowCount() == 0 || !time.IsShownOnScreen()) return;
  int const index = monkey.Below(time.RowCount());
  auto const [first, last] = time.RangeOf(index);
  wxRect const bar = time.Layout().Bar(index, first, last);
  int const x = monkey.Chance(50) ? bar.x + 1 : bar.GetRight() - 1;
  wxPoint const from = time.ClientToScreen(wxPoint(x, bar.y + bar.height / 2));
  if (!time.GetScreenRect().Contains(from)) return;
  monkey.Drag(from, from + wxPoint(monkey.Below(401) - 200, 0));
}

void ClickList(Monkey &monkey) {
  monkey.Click(monkey.PlaceOn(monkey.Objects()));
}

void ClickTransport(Monkey &monkey) {
  monkey.Click(monkey.PlaceOn(monkey.Transport()));
}

void ClickAnywhere(Monkey &monkey) {
  monkey.Click(monkey.PlaceOn(monkey.Frame()), monkey.Chance(80) ? 1 : kRight);
}

void DragAnywhere(Monkey &monkey) {
  wxPoint const from = monkey.PlaceOn(monkey.Frame());
  monkey.Drag(from, monkey.PlaceOn(monkey.Frame()));
}

void Resize(Monkey &monkey) {
  monkey.Frame().SetSize(700 + monkey.Below(350), 480 + monkey.Below(300));
  monkey.Pump();
}

}  // namespace

std::vector<MonkeyAction> const &MouseActions() {
  static std::vector<MonkeyAction> const actions = {
      {"click the picture", 40, ClickPicture},
      {"click an object", 60, ClickObject},
      {"double click", 30, DoubleClick},
      {"drag on the picture", 140, DragPicture},
      {"drag an object", 120, DragObject},
      {"turn an object", 25, TurnObject},
      {"press", 10, Press},
      {"move", 50, Move},
      {"right click", 25, RightClick},
      {"drag with the middle button", 10, DragWithMiddle},
      {"drag with the space bar", 8, DragWithSpace},
      {"wheel on the picture", 20, TurnOnPicture},
      {"wheel on the timeline", 10, TurnOnTimeline},
      {"wheel on the palette", 10, TurnOnPalette},
      {"click the palette", 60, ClickPalette},
      {"drag on the palette", 30, DragPalette},
      {"click the timeline", 30, ClickTimeline},
      {"drag on the timeline", 25, DragTimeline},
      {"drag a range", 40, DragRange},
      {"click the list", 30, ClickList},
      {"click the transport bar", 15, ClickTransport},
      {"click anywhere", 15, ClickAnywhere},
      {"drag anywhere", 6, DragAnywhere},
      {"resize", 6, Resize}};
  return actions;
}

}  // namespace framenote::test
