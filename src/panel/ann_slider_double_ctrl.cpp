// SPDX-License-Identifier: MIT
#include "panel/ann_slider_double_ctrl.h"

#include <algorithm>
#include <cmath>

#include "coordinates/pixel_geometry.h"

AnnSliderDoubleCtrl::AnnSliderDoubleCtrl(wxWindow *parent, int id, double value, double min,
                                         double max, double step, wxPoint const &position,
                                         wxSize const &size, long style,
                                         wxValidator const &validator, wxString const &name)
    : m_step(step) {
  int const least = framenote::TruncateToInt(min / step);
  int const most = framenote::TruncateToInt(max / step);
  int const start = std::clamp(framenote::TruncateToInt(value / step), least, most);
  Create(parent, id, start, least, most, position, size, style, validator, name);
  // AcceptsFocus keeps the toolkit's own navigation out, and this a click.
  SetCanFocus(false);
}

void AnnSliderDoubleCtrl::setFromDouble(double value) {
  double const position = std::round(value / m_step);
  // Negated, so that what is no number goes to the lower end.
  if (!(position > GetMin())) {
    SetValue(GetMin());
  } else {
    SetValue(static_cast<int>(std::min(position, static_cast<double>(GetMax()))));
  }
}
