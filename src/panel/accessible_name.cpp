// SPDX-License-Identifier: MIT
#include "panel/accessible_name.h"

#include <wx/window.h>

#ifdef __WXGTK__
#include <dlfcn.h>

#include <wx/checkbox.h>
#include <wx/control.h>
#include <wx/tglbtn.h>
#endif

namespace framenote {

#ifdef __WXGTK__
namespace {

/// The two functions of GTK and its accessibility library that set a name. They are looked up in
/// what wxWidgets has loaded: their headers are not among those that it needs.
struct Names {
  using AccessibleOf = void *(*)(void *widget);
  using SetName = void (*)(void *accessible, char const *name);

  AccessibleOf accessibleOf =
      reinterpret_cast<AccessibleOf>(dlsym(RTLD_DEFAULT, "gtk_widget_get_accessible"));
  SetName setName = reinterpret_cast<SetName>(dlsym(RTLD_DEFAULT, "atk_object_set_name"));
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

/// Lists stand inside a widget that scrolls them; the focus, and so the reader, goes to the inner
/// one.
void NameWidgets(wxWindow &control, wxString const &name) {
  NameWidget(control.GetHandle(), name);
  if (control.GetConnectWidget() == control.GetHandle()) return;
  NameWidget(control.GetConnectWidget(), name);
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
