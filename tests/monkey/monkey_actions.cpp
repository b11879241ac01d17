// SPDX-License-Identifier: MIT
// Keys, menus, files, and the choice among all actions.
#include "monkey/monkey_actions.h"

#include <array>

#include <wx/clrpicker.h>
#include <wx/filepicker.h>
#include <wx/menu.h>

#include "desktop/main_frame.h"
#include "framenote/annotation_tool.h"
#include "monkey/monkey.h"
#include "monkey/monkey_home.h"

namespace framenote::test {

namespace {

constexpr int kCtrl = wxMOD_CONTROL;
constexpr int kShift = wxMOD_SHIFT;

struct Keys {
  int key;
  int modifiers;
};

template <class Table>
void TapOneOf(Monkey &monkey, Table const &table) {
  Keys const keys = monkey.OneOf(table);
  monkey.Say(std::to_string(keys.modifiers) + "+" + std::to_string(keys.key));
  monkey.Key(keys.key, keys.modifiers);
}

void TapTool(Monkey &monkey) {
  constexpr std::array<int, 9> kTools = {'s', 'a', 'p', 't', 'i', 'h', 'm', 'g', 's'};
  int const key = monkey.OneOf(kTools);
  monkey.Say(std::string(1, static_cast<char>(key)));
  monkey.Key(key);
}

void TapArrow(Monkey &monkey) {
  constexpr std::array<int, 4> kArrows = {WXK_LEFT, WXK_RIGHT, WXK_UP, WXK_DOWN};
  int const key = monkey.OneOf(kArrows);
  monkey.Key(key, monkey.Chance(30) ? kShift : 0);
}

void TapEdit(Monkey &monkey) {
  constexpr std::array<Keys, 10> kKeys = {{{'z', kCtrl},
                                           {'z', kCtrl},
                                           {'z', kCtrl},
                                           {'y', kCtrl},
                                           {'y', kCtrl},
                                           {'z', kCtrl | kShift},
                                           {'c', kCtrl},
                                           {'v', kCtrl},
                                           {'v', kCtrl},
                                           {WXK_DELETE, 0}}};
  TapOneOf(monkey, kKeys);
}

void TapTime(Monkey &monkey) {
  constexpr std::array<Keys, 11> kKeys = {{{'.', 0},
                                           {'.', 0},
                                           {',', 0},
                                           {WXK_HOME, 0},
                                           {WXK_END, 0},
                                           {WXK_PAGEUP, 0},
                                           {WXK_PAGEDOWN, 0},
                                           {WXK_LEFT, kCtrl},
                                           {WXK_RIGHT, kCtrl},
                                           {WXK_RIGHT, 0},
                                           {WXK_LEFT, 0}}};
  TapOneOf(monkey, kKeys);
}

void TapPlay(Monkey &monkey) {
  constexpr std::array<Keys, 5> kKeys = {{{' ', 0}, {'j', 0}, {'k', 0}, {'k', 0}, {'l', 0}}};
  TapOneOf(monkey, kKeys);
}

void TapView(Monkey &monkey) {
  constexpr std::array<Keys, 12> kKeys = {{{'+', kCtrl},
                                           {'-', kCtrl},
                                           {'=', kCtrl},
                                           {'0', kCtrl},
                                           {'1', kCtrl},
                                           {'1', kCtrl},
                                           {'2', kCtrl},
                                           {'h', kCtrl},
                                           {WXK_F7, 0},
                                           {WXK_F8, 0},
                                           {WXK_F9, 0},
                                           {WXK_F11, 0}}};
  TapOneOf(monkey, kKeys);
}

void TapDialog(Monkey &monkey) {
  constexpr std::array<Keys, 8> kKeys = {{{'g', kCtrl},
                                          {'g', kCtrl},
                                          {'s', kCtrl},
                                          {'s', kCtrl},
                                          {'s', kCtrl | kShift},
                                          {'e', kCtrl},
                                          {WXK_F1, 0},
                                          {'o', kCtrl}}};
  TapOneOf(monkey, kKeys);
}

void TapLeave(Monkey &monkey) {
  constexpr std::array<Keys, 4> kKeys = {
      {{'n', kCtrl}, {'w', kCtrl}, {'q', kCtrl}, {WXK_F4, wxMOD_ALT}}};
  TapOneOf(monkey, kKeys);
}

void TapEscape(Monkey &monkey) {
  monkey.Key(WXK_ESCAPE);
}

void TapMenuKey(Monkey &monkey) {
  if (monkey.Chance(50)) return monkey.Key(WXK_MENU);
  monkey.Key(WXK_F10, kShift);
}

void Type(Monkey &monkey) {
  constexpr std::array<int, 16> kTyped = {
      'a',      'B',        'c',      ' ',    '7',      '%',     WXK_RETURN, WXK_TAB,
      WXK_BACK, WXK_DELETE, WXK_LEFT, WXK_UP, WXK_HOME, WXK_END, 'x',        'Y'};
  int const count = 1 + monkey.Below(6);
  for (int i = 0; i < count; ++i) {
    int const key = monkey.OneOf(kTyped);
    monkey.Say(std::to_string(key));
    monkey.Key(key, monkey.Chance(10) ? kShift : 0);
  }
}

/// The menu bar opened with its key; the next steps' keys and clicks then belong to it.
void OpenMenuBar(Monkey &monkey) {
  monkey.Key(WXK_F10);
  for (int i = monkey.Below(5); i > 0; --i) monkey.Key(WXK_RIGHT);
  for (int i = monkey.Below(8); i > 0; --i) monkey.Key(WXK_DOWN);
  monkey.Key(monkey.Chance(60) ? WXK_RETURN : WXK_ESCAPE);
  monkey.Key(WXK_ESCAPE);
}

/// A command without its menu having been seen.
void SendMenuCommand(Monkey &monkey) {
  wxMenuBar const *const bar = monkey.Frame().GetMenuBar();
  wxMenu const *const menu =
      bar->GetMenu(static_cast<std::size_t>(monkey.Below(static_cast<int>(bar->GetMenuCount()))));
  wxMenuItem const *const item = menu->FindItemByPosition(
      static_cast<std::size_t>(monkey.Below(static_cast<int>(menu->GetMenuItemCount()))));
  monkey.Say(item->GetItemLabelText().utf8_string());
  if (!item->IsEnabled() || item->IsSubMenu()) return;
  wxCommandEvent event(wxEVT_MENU, item->GetId());
  monkey.Frame().ProcessWindowEvent(event);
  monkey.Pump();
}

/// A control of a kind below a window, by chance; null if there is none.
template <class Picker>
Picker *AnyPicker(Monkey &monkey, wxWindow &parent) {
  Picker *found = nullptr;
  int seen = 0;
  for (wxWindow *const child : parent.GetChildren()) {
    Picker *candidate = dynamic_cast<Picker *>(child);
    if (candidate == nullptr) candidate = AnyPicker<Picker>(monkey, *child);
    if (candidate != nullptr && monkey.Below(++seen) == 0) found = candidate;
  }
  return found;
}

/// What the toolkit's own dialog would end in.
void PickColour(Monkey &monkey) {
  auto *const picker = AnyPicker<wxColourPickerCtrl>(monkey, monkey.Palette());
  if (picker == nullptr) return;
  auto const part = [&] { return static_cast<unsigned char>(monkey.Below(256)); };
  wxColour const colour(part(), part(), part(), monkey.Chance(50) ? 255 : part());
  picker->SetColour(colour);
  wxColourPickerEvent event(picker, picker->GetId(), colour);
  picker->ProcessWindowEvent(event);
  monkey.Pump();
}

void PickPicture(Monkey &monkey) {
  auto *const picker = AnyPicker<wxFilePickerCtrl>(monkey, monkey.Palette());
  if (picker == nullptr) return;
  picker->SetPath(InMonkeyHome("overlay.png"));
  wxFileDirPickerEvent event(wxEVT_FILEPICKER_CHANGED, picker, picker->GetId(), picker->GetPath());
  picker->ProcessWindowEvent(event);
  monkey.Pump();
}

void OpenAnother(Monkey &monkey) {
  constexpr std::array<char const *, 5> kNames = {"clip.mkv", "clip.mkv", "picture.png",
                                                  "one.framenote", "two.framenote"};
  std::string const name = monkey.OneOf(kNames);
  monkey.Say(name);
  monkey.OpenFile(wxFileExists(InMonkeyHome(name)) ? name : "clip.mkv");
}

void Restart(Monkey &monkey) {
  monkey.Restart();
}

}  // namespace

std::vector<MonkeyAction> const &KeyAndFileActions() {
  static std::vector<MonkeyAction> const actions = {{"tool key", 140, TapTool},
                                                    {"arrow key", 30, TapArrow},
                                                    {"edit key", 110, TapEdit},
                                                    {"time key", 60, TapTime},
                                                    {"play key", 20, TapPlay},
                                                    {"view key", 25, TapView},
                                                    {"dialog key", 10, TapDialog},
                                                    {"leave key", 3, TapLeave},
                                                    {"Escape", 50, TapEscape},
                                                    {"menu key", 10, TapMenuKey},
                                                    {"type", 40, Type},
                                                    {"menu bar", 6, OpenMenuBar},
                                                    {"menu command", 20, SendMenuCommand},
                                                    {"pick a colour", 20, PickColour},
                                                    {"pick a picture", 20, PickPicture},
                                                    {"open", 3, OpenAnother},
                                                    {"restart", 1, Restart}};
  return actions;
}

MonkeyActions::MonkeyActions() : m_actions(MouseActions()) {
  std::vector<MonkeyAction> const &others = KeyAndFileActions();
  m_actions.insert(m_actions.end(), others.begin(), others.end());
  for (MonkeyAction const &action : m_actions) m_sum += action.weight;
}

MonkeyAction const &MonkeyActions::Choose(Monkey &monkey) const {
  int rest = monkey.Below(m_sum);
  for (MonkeyAction const &action : m_actions) {
    rest -= action.weight;
    if (rest < 0) return action;
  }
  return m_actions.back();
}

}  // namespace framenote::test
