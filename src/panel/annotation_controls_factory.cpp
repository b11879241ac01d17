// SPDX-License-Identifier: MIT
#include "panel/annotation_controls_factory.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/clrpicker.h>
#include <wx/combobox.h>
#include <wx/filepicker.h>
#include <wx/fontpicker.h>
#include <wx/odcombo.h>
#include <wx/panel.h>
#include <wx/slider.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/tglbtn.h>

#include "panel/ann_slider_double_ctrl.h"
#include "panel/ann_spin_slider_double_ctrl.h"

namespace {

template <class Control, class... Arguments>
Control *Make(Arguments const &...arguments) {
  return new Control(arguments...);  // owned by its parent window
}

/// Closes its list before it goes. The base class would do so when it is no list any more, and the
/// list would ask what has gone for the heights of its items.
class OwnerDrawnList : public wxOwnerDrawnComboBox {
public:
  using wxOwnerDrawnComboBox::wxOwnerDrawnComboBox;
  OwnerDrawnList(OwnerDrawnList const &) = delete;
  OwnerDrawnList &operator=(OwnerDrawnList const &) = delete;
  ~OwnerDrawnList() override { HidePopup(); }
};

}  // namespace

AnnotationControlsFactory::~AnnotationControlsFactory() = default;

wxStaticText *AnnotationControlsFactory::CreateStaticText(wxWindow *parent, int id,
                                                          wxString const &label,
                                                          wxPoint const &position,
                                                          wxSize const &size, long style,
                                                          wxString const &name) {
  return Make<wxStaticText>(parent, id, label, position, size, style, name);
}

wxButton *AnnotationControlsFactory::CreateButton(wxWindow *parent, int id, wxString const &label,
                                                  wxPoint const &position, wxSize const &size,
                                                  long style, wxValidator const &validator,
                                                  wxString const &name) {
  return Make<wxButton>(parent, id, label, position, size, style, validator, name);
}

wxToggleButton *AnnotationControlsFactory::CreateToggleButton(
    wxWindow *parent, int id, wxString const &label, wxPoint const &position, wxSize const &size,
    long style, wxValidator const &validator, wxString const &name) {
  return Make<wxToggleButton>(parent, id, label, position, size, style, validator, name);
}

wxToggleButton *AnnotationControlsFactory::CreateToolToogleButton(
    wxWindow *parent, int id, wxString const &label, wxPoint const &position, wxSize const &size,
    long style, wxValidator const &validator, wxString const &name) {
  return Make<wxToggleButton>(parent, id, label, position, size, style, validator, name);
}

wxToggleButton *AnnotationControlsFactory::CreateToggleButtonExt(
    wxWindow *parent, int id, wxString const &label, wxPoint const &position, wxSize const &size,
    long style, wxValidator const &validator, wxString const &name) {
  return CreateToggleButton(parent, id, label, position, size, style, validator, name);
}

wxPanel *AnnotationControlsFactory::CreatePanel(wxWindow *parent) {
  return Make<wxPanel>(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxTAB_TRAVERSAL | wxBORDER_NONE, wxPanelNameStr);
}

wxChoice *AnnotationControlsFactory::CreateChoiceCtrl(wxWindow *parent, int id,
                                                      wxPoint const &position, wxSize const &size,
                                                      wxArrayString const &items, long style,
                                                      wxValidator const &validator,
                                                      wxString const &name) {
  return Make<wxChoice>(parent, id, position, size, items, style, validator, name);
}

wxChoice *AnnotationControlsFactory::CreateChoiceCtrl(wxWindow *parent, int id,
                                                      wxPoint const &position, wxSize const &size,
                                                      int count, wxString const *items, long style,
                                                      wxValidator const &validator,
                                                      wxString const &name) {
  return Make<wxChoice>(parent, id, position, size, count, items, style, validator, name);
}

wxColourPickerCtrl *AnnotationControlsFactory::CreateColourPicker(
    wxWindow *parent, int id, wxColour const &colour, wxPoint const &position, wxSize const &size,
    long style, wxValidator const &validator, wxString const &name) {
  return Make<wxColourPickerCtrl>(parent, id, colour, position, size, style, validator, name);
}

wxCheckBox *AnnotationControlsFactory::CreateCheckBox(wxWindow *parent, int id,
                                                      wxString const &label,
                                                      wxPoint const &position, wxSize const &size,
                                                      long style, wxValidator const &validator,
                                                      wxString const &name) {
  return Make<wxCheckBox>(parent, id, label, position, size, style, validator, name);
}

wxSliderBase *AnnotationControlsFactory::CreateSlider(wxWindow *parent, int id, int value, int min,
                                                      int max, wxPoint const &position,
                                                      wxSize const &size, long style,
                                                      wxValidator const &validator,
                                                      wxString const &name) {
  return Make<wxSlider>(parent, id, value, min, max, position, size, style, validator, name);
}

wxSliderBase *AnnotationControlsFactory::CreateSliderDouble(wxWindow *parent, int id, double value,
                                                            double min, double max, double step,
                                                            wxPoint const &position,
                                                            wxSize const &size, long style,
                                                            wxValidator const &validator,
                                                            wxString const &name) {
  return Make<AnnSliderDoubleCtrl>(parent, id, value, min, max, step, position, size, style,
                                   validator, name);
}

wxSliderBase *AnnotationControlsFactory::CreateSpinSliderDouble(
    wxWindow *parent, int id, double value, double min, double max, double step,
    wxPoint const &position, wxSize const &size, long sliderStyle, long spinStyle,
    wxValidator const &validator, wxString const &name) {
  return Make<AnnSpinSliderDoubleCtrl>(parent, id, value, min, max, step, position, size,
                                       sliderStyle, spinStyle, validator, name);
}

wxComboBox *AnnotationControlsFactory::CreateComboBox(
    wxWindow *parent, int id, wxString const &value, wxPoint const &position, wxSize const &size,
    wxArrayString const &items, long style, wxValidator const &validator, wxString const &name) {
  return Make<wxComboBox>(parent, id, value, position, size, items, style, validator, name);
}

wxComboBox *AnnotationControlsFactory::CreateComboBox(wxWindow *parent, int id,
                                                      wxString const &value,
                                                      wxPoint const &position, wxSize const &size,
                                                      int count, wxString const *items, long style,
                                                      wxValidator const &validator,
                                                      wxString const &name) {
  return Make<wxComboBox>(parent, id, value, position, size, count, items, style, validator, name);
}

wxFontPickerCtrl *AnnotationControlsFactory::CreateFontPicker(
    wxWindow *parent, int id, wxFont const &font, wxPoint const &position, wxSize const &size,
    long style, wxValidator const &validator, wxString const &name) {
  return Make<wxFontPickerCtrl>(parent, id, font, position, size, style, validator, name);
}

wxFilePickerCtrl *AnnotationControlsFactory::CreateFilePicker(
    wxWindow *parent, int id, wxString const &path, wxString const &message,
    wxString const &wildcard, wxPoint const &position, wxSize const &size, long style,
    wxValidator const &validator, wxString const &name) {
  return Make<wxFilePickerCtrl>(parent, id, path, message, wildcard, position, size, style,
                                validator, name);
}

wxSpinCtrl *AnnotationControlsFactory::CreateSpinCtrl(wxWindow *parent, int id,
                                                      wxString const &value,
                                                      wxPoint const &position, wxSize const &size,
                                                      long style, int min, int max, int initial,
                                                      wxString const &name) {
  return Make<wxSpinCtrl>(parent, id, value, position, size, style, min, max, initial, name);
}

wxOwnerDrawnComboBox *AnnotationControlsFactory::CreateOwnerDrawnComboBox(
    wxWindow *parent, int id, wxString const &value, wxPoint const &position, wxSize const &size,
    wxArrayString const &items, long style, wxValidator const &validator, wxString const &name) {
  return Make<OwnerDrawnList>(parent, id, value, position, size, items, style, validator, name);
}

wxOwnerDrawnComboBox *AnnotationControlsFactory::CreateOwnerDrawnComboBox(
    wxWindow *parent, int id, wxString const &value, wxPoint const &position, wxSize const &size,
    int count, wxString const *items, long style, wxValidator const &validator,
    wxString const &name) {
  return Make<OwnerDrawnList>(parent, id, value, position, size, count, items, style, validator,
                              name);
}
