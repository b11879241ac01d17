// SPDX-License-Identifier: MIT
#include "panel/accessible_name.h"

#include <wx/checkbox.h>
#include <wx/control.h>
#include <wx/tglbtn.h>
#include <wx/window.h>

#if defined(__WXGTK__)
#include <dlfcn.h>

#include <cstddef>
#elif defined(__WXMSW__)
#include <wx/access.h>
#elif defined(__WXOSX__)
#include <objc/message.h>
#include <objc/runtime.h>

#include <wx/osx/core/cfstring.h>
#endif

namespace framenote {
namespace {

/// What is written on a control that stands among others in its row.
wxString OwnText(wxWindow const &control) {
  bool const hasText = dynamic_cast<wxCheckBox const *>(&control) != nullptr ||
                       dynamic_cast<wxToggleButton const *>(&control) != nullptr;
  return hasText ? wxControl::RemoveMnemonics(control.GetLabel()) : wxString();
}

#if defined(__WXGTK__)

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
void NameWidgets(wxWindow &control, wxString const &name) {
  NameWidget(control.GetHandle(), name);
  void *const inner = ScrolledBy(control.GetHandle());
  if (inner != nullptr) NameWidget(inner, name);
}

#elif defined(__WXMSW__) && wxUSE_ACCESSIBILITY

/// Says the name; leaves everything else to the system's own description of the control.
class NamedControl : public wxAccessible {
public:
  NamedControl(wxWindow *control, wxString const &name) : wxAccessible(control), m_name(name) {}

  wxAccStatus GetName(int child, wxString *name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = m_name;
    return wxACC_OK;
  }

private:
  wxString m_name;
};

void NameWidgets(wxWindow &control, wxString const &name) {
  control.SetAccessible(new NamedControl(&control, name));  // owned by the control
}

#elif defined(__WXOSX__)

/// The message is sent by the runtime's own function, as this is no source of Objective-C.
void NameWidgets(wxWindow &control, wxString const &name) {
  using Send = void (*)(void *view, SEL message, CFStringRef text);
  wxCFStringRef const text(name);
  auto const send = reinterpret_cast<Send>(objc_msgSend);
  send(control.GetHandle(), sel_registerName("setAccessibilityLabel:"), text);
}

#else

void NameWidgets(wxWindow &, wxString const &) {}

#endif

}  // namespace

void NameForScreenReaders(wxWindow &control, wxString const &name) {
  wxString const own = OwnText(control);
  NameWidgets(control, own.empty() ? name : name + ", " + own);
  for (wxWindow *part : control.GetChildren()) NameForScreenReaders(*part, name);
}
}  // namespace framenote
