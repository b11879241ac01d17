// SPDX-License-Identifier: MIT
#pragma once

#include <wx/containr.h>
#include <wx/slider.h>

#include "framenote/export.h"

class AnnSliderDoubleCtrl;
class wxSpinCtrlDouble;
class wxSpinDoubleEvent;

/// A slider and a spin control that show one value, so that it can be dragged or typed. To others
/// it is a slider: its positions stand for multiples of the step, and whatever the user does to
/// either part raises one wxEVT_SLIDER of this control. The focus goes to the spin.
class FRAMENOTE_API AnnSpinSliderDoubleCtrl : public wxNavigationEnabled<wxSlider> {
public:
  /// Both parts show `value`; a position stands for `step`. `parent` owns the control.
  AnnSpinSliderDoubleCtrl(wxWindow *parent, int id, double value, double min, double max,
                          double step, wxPoint const &position, wxSize const &size,
                          long sliderStyle, long spinStyle, wxValidator const &validator,
                          wxString const &name);

  /// The position, not what it stands for.
  int GetValue() const override;
  /// Shows the position in both parts; raises no event.
  void SetValue(int value) override;
  ///@{
  /// The slider's own, in positions.
  void SetRange(int minValue, int maxValue) override;
  int GetMin() const override;
  int GetMax() const override;
  void SetLineSize(int lineSize) override;
  void SetPageSize(int pageSize) override;
  int GetLineSize() const override;
  int GetPageSize() const override;
  void SetThumbLength(int lenPixels) override;
  int GetThumbLength() const override;
  ///@}

protected:
  wxSize DoGetBestSize() const override;  ///< both parts beside each other, in screen pixels
#ifdef __WXGTK__
  GdkWindow *GTKGetWindow(wxArrayGdkWindows &windows) const override;
#endif

private:
  void bindEvents();
  void onSliderWheel(wxMouseEvent &event);
  void onSliderScrolled(wxScrollEvent &event);
  void onSpinWheel(wxMouseEvent &event);
  void onSpinText(wxCommandEvent &event);
  void takeSlider();
  void takeSpin();
  void notify();

  AnnSliderDoubleCtrl *m_slider;  // owned by this window
  wxSpinCtrlDouble *m_spin;       // owned by this window
};
