// SPDX-License-Identifier: MIT
#include "panel/accessible_name.h"

#include <wx/window.h>

#ifdef __WXGTK__
#include <dlfcn.h>

#include <cstddef>

#include <wx/checkbox.h>
#include <wx/control.h>
#include <wx/tglbtn.h>
#endif

namespace framenote {

#ifdef __WXGTK__
namespace {

/// A function of what wxWidgets has loaded; null if it is not there.
template <class Function>
Function Find(char const *name) {
  return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

/// The functions of GTK and its accessibility library that set a name. They are looked up, as their
/// headers are not among those that wxWidgets needs.
struct Names {
  using AccessibleOf = void *(*)(void *widget);
  using SetName = void (*)(void *accessible, char const *name);

  AccessibleOf accessibleOf = Find<AccessibleOf>("gtk_widget_get_accessible");
  SetName setName = Find<SetName>("atk_object_set_name");
};

/// What is written on a control that stands among others in its row.
wxString OwnText(wxWindow const &control) {
  bool const hasText = dynamic_cast<wxCheckBox const *>(&control) != nullptr ||
                       dynamic_cast<wxToggleButton const *>(&control) != nullptr;
  return hasText ? wxControl::RemoveMnemonics(control.GetLabel()) : wxString();
}

void NameWidget(void *widget, wxString const &name) {
  static Names const names;
  if (names.accessibleOf == nullptr || names.setName == nullptr) return;
  void *const accessible = names.accessibleOf(widget);
  if (accessible != nullptr) names.setName(accessible, name.utf8_str());
}

/// What a widget scrolls; null if it is not one that does.
void *ScrolledBy(void *widget) {
  static auto const scrolledType = Find<std::size_t (*)()>("gtk_scrolled_window_get_type");
  static auto const isA = Find<int (*)(void *, std::size_t)>("g_type_check_instance_is_a");
  static auto const childOf = Find<void *(*)(void *)>("gtk_bin_get_child");
  if (scrolledType == nullptr || isA == nullptr || childOf == nullptr) return nullptr;
  return isA(widget, scrolledType()) != 0 ? childOf(widget) : nullptr;
}

/// Lists stand inside a widget that scrolls them; the focus, and so the reader, goes to the inner
/// one.
void NameWidgets(wxWindow const &control, wxString const &name) {
  NameWidget(control.GetHandle(), name);
  void *const inner = ScrolledBy(control.GetHandle());
  if (inner != nullptr) NameWidget(inner, name);
}

}  // namespace

void NameForScreenReaders(wxWindow &control, wxString const &name) {
  wxString const own = OwnText(control);
  NameWidgets(control, own.empty() ? name : name + ", " + own);
  for (wxWindow *part : control.GetChildren()) NameForScreenReaders(*part, name);
}
#else
void NameForScreenReaders(wxWindow &, wxString const &) {}
#endif

}  // namespace framenote
