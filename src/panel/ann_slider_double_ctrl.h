// SPDX-License-Identifier: MIT
#pragma once

#include <wx/slider.h>

#include "framenote/export.h"

/// A slider whose integer positions stand for multiples of a step. It takes no focus: it is used
/// with the mouse, beside a control that is used with the keyboard.
class FRAMENOTE_API AnnSliderDoubleCtrl : public wxSlider {
public:
  /// Value and limits are divided by `step` and truncated.
  AnnSliderDoubleCtrl(wxWindow *parent, int id, double value, double min, double max, double step,
                      wxPoint const &position, wxSize const &size, long style,
                      wxValidator const &validator, wxString const &name);

  /// Goes to the position nearest to `value`, within the limits; raises no event.
  void setFromDouble(double value);
  /// What the position stands for.
  double GetDouble() const { return m_step * GetValue(); }
  bool AcceptsFocus() const override { return false; }  ///< never

private:
  double m_step;
};
