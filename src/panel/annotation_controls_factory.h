// SPDX-License-Identifier: MIT
#pragma once

#include <wx/arrstr.h>
#include <wx/gdicmn.h>
#include <wx/string.h>

#include "framenote/export.h"

class wxButton;
class wxCheckBox;
class wxChoice;
class wxColour;
class wxColourPickerCtrl;
class wxComboBox;
class wxFilePickerCtrl;
class wxFont;
class wxFontPickerCtrl;
class wxOwnerDrawnComboBox;
class wxPanel;
class wxSliderBase;
class wxSpinCtrl;
class wxStaticText;
class wxToggleButton;
class wxValidator;
class wxWindow;

/// Makes the controls of the palette panel. A host with controls of its own derives from the panel
/// and overrides what it wants to look different; the defaults make the toolkit's plain controls.
/// The parent owns what is made.
class FRAMENOTE_API AnnotationControlsFactory {
public:
  virtual ~AnnotationControlsFactory();

protected:
  ///@{
  /// Gives a colour to a window and to all below it.
  virtual void setBackgroundColorRecursively(wxWindow *window, wxColour const &colour) = 0;
  virtual void setForegroundColorRecursively(wxWindow *window, wxColour const &colour) = 0;
  ///@}

  ///@{
  /// The toolkit's control; the arguments are those of its constructor.
  virtual wxStaticText *CreateStaticText(wxWindow *parent, int id, wxString const &label,
                                         wxPoint const &position, wxSize const &size, long style,
                                         wxString const &name);
  virtual wxButton *CreateButton(wxWindow *parent, int id, wxString const &label,
                                 wxPoint const &position, wxSize const &size, long style,
                                 wxValidator const &validator, wxString const &name);
  virtual wxToggleButton *CreateToggleButton(wxWindow *parent, int id, wxString const &label,
                                             wxPoint const &position, wxSize const &size,
                                             long style, wxValidator const &validator,
                                             wxString const &name);
  ///@}
  /// A button of the tool grid. The name is that of the interface.
  virtual wxToggleButton *CreateToolToogleButton(wxWindow *parent, int id, wxString const &label,
                                                 wxPoint const &position, wxSize const &size,
                                                 long style, wxValidator const &validator,
                                                 wxString const &name);
  /// A toggle beside other controls; by default CreateToggleButton makes it.
  virtual wxToggleButton *CreateToggleButtonExt(wxWindow *parent, int id, wxString const &label,
                                                wxPoint const &position, wxSize const &size,
                                                long style, wxValidator const &validator,
                                                wxString const &name);
  ///@{
  /// The toolkit's control; the arguments are those of its constructor.
  virtual wxPanel *CreatePanel(wxWindow *parent);
  virtual wxChoice *CreateChoiceCtrl(wxWindow *parent, int id, wxPoint const &position,
                                     wxSize const &size, wxArrayString const &items, long style,
                                     wxValidator const &validator, wxString const &name);
  virtual wxChoice *CreateChoiceCtrl(wxWindow *parent, int id, wxPoint const &position,
                                     wxSize const &size, int count, wxString const *items,
                                     long style, wxValidator const &validator,
                                     wxString const &name);
  virtual wxColourPickerCtrl *CreateColourPicker(wxWindow *parent, int id, wxColour const &colour,
                                                 wxPoint const &position, wxSize const &size,
                                                 long style, wxValidator const &validator,
                                                 wxString const &name);
  virtual wxCheckBox *CreateCheckBox(wxWindow *parent, int id, wxString const &label,
                                     wxPoint const &position, wxSize const &size, long style,
                                     wxValidator const &validator, wxString const &name);
  virtual wxSliderBase *CreateSlider(wxWindow *parent, int id, int value, int min, int max,
                                     wxPoint const &position, wxSize const &size, long style,
                                     wxValidator const &validator, wxString const &name);
  ///@}
  /// A slider whose positions stand for multiples of `step`.
  virtual wxSliderBase *CreateSliderDouble(wxWindow *parent, int id, double value, double min,
                                           double max, double step, wxPoint const &position,
                                           wxSize const &size, long style,
                                           wxValidator const &validator, wxString const &name);
  /// The same beside a spin control with its value.
  virtual wxSliderBase *CreateSpinSliderDouble(wxWindow *parent, int id, double value, double min,
                                               double max, double step, wxPoint const &position,
                                               wxSize const &size, long sliderStyle, long spinStyle,
                                               wxValidator const &validator, wxString const &name);
  ///@{
  /// The toolkit's control; the arguments are those of its constructor.
  virtual wxComboBox *CreateComboBox(wxWindow *parent, int id, wxString const &value,
                                     wxPoint const &position, wxSize const &size,
                                     wxArrayString const &items, long style,
                                     wxValidator const &validator, wxString const &name);
  virtual wxComboBox *CreateComboBox(wxWindow *parent, int id, wxString const &value,
                                     wxPoint const &position, wxSize const &size, int count,
                                     wxString const *items, long style,
                                     wxValidator const &validator, wxString const &name);
  virtual wxFontPickerCtrl *CreateFontPicker(wxWindow *parent, int id, wxFont const &font,
                                             wxPoint const &position, wxSize const &size,
                                             long style, wxValidator const &validator,
                                             wxString const &name);
  virtual wxFilePickerCtrl *CreateFilePicker(wxWindow *parent, int id, wxString const &path,
                                             wxString const &message, wxString const &wildcard,
                                             wxPoint const &position, wxSize const &size,
                                             long style, wxValidator const &validator,
                                             wxString const &name);
  virtual wxSpinCtrl *CreateSpinCtrl(wxWindow *parent, int id, wxString const &value,
                                     wxPoint const &position, wxSize const &size, long style,
                                     int min, int max, int initial, wxString const &name);
  virtual wxOwnerDrawnComboBox *CreateOwnerDrawnComboBox(
      wxWindow *parent, int id, wxString const &value, wxPoint const &position, wxSize const &size,
      wxArrayString const &items, long style, wxValidator const &validator, wxString const &name);
  virtual wxOwnerDrawnComboBox *CreateOwnerDrawnComboBox(
      wxWindow *parent, int id, wxString const &value, wxPoint const &position, wxSize const &size,
      int count, wxString const *items, long style, wxValidator const &validator,
      wxString const &name);
  ///@}
};
