// SPDX-License-Identifier: MIT
#include "panel/ann_spin_slider_double_ctrl.h"

#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

#include "panel/ann_slider_double_ctrl.h"

AnnSpinSliderDoubleCtrl::AnnSpinSliderDoubleCtrl(wxWindow *parent, int id, double value, double min,
                                                 double max, double step, wxPoint const &position,
                                                 wxSize const &size, long sliderStyle,
                                                 long spinStyle, wxValidator const &validator,
                                                 wxString const &name) {
  // The slider of the base is never made: this is a bare control with two children.
  wxControl::Create(parent, id, position, size, wxBORDER_NONE | wxTAB_TRAVERSAL, validator, name);
  m_slider = new AnnSliderDoubleCtrl(  // owned by this window
      this, wxID_ANY, value, min, max, step, wxDefaultPosition, wxDefaultSize, sliderStyle,
      wxDefaultValidator, "AnnSliderDoubleCtrl");
  m_spin = new wxSpinCtrlDouble(  // owned by this window
      this, wxID_ANY, wxString::Format("%f", value), wxDefaultPosition, wxDefaultSize, spinStyle,
      min, max, value, step, "wxSpinCtrlDouble");
  bindEvents();
  auto *const sizer = new wxBoxSizer(wxHORIZONTAL);  // owned by this window
  sizer->Add(m_slider, 1, wxEXPAND, 0);
  // As wide as it needs and no wider; a limit in pixels would cut its arrows off with GTK.
  sizer->Add(m_spin, 0, wxEXPAND, 0);
  SetSizer(sizer, true);
  Fit();
}

void AnnSpinSliderDoubleCtrl::bindEvents() {
  m_slider->Bind(wxEVT_MOUSEWHEEL, &AnnSpinSliderDoubleCtrl::onSliderWheel, this);
  m_slider->Bind(wxEVT_SCROLL_LINEUP, &AnnSpinSliderDoubleCtrl::onSliderScrolled, this);
  m_slider->Bind(wxEVT_SCROLL_LINEDOWN, &AnnSpinSliderDoubleCtrl::onSliderScrolled, this);
  m_slider->Bind(wxEVT_SLIDER, [this](wxCommandEvent &) { takeSlider(); });
  m_spin->Bind(wxEVT_MOUSEWHEEL, &AnnSpinSliderDoubleCtrl::onSpinWheel, this);
  m_spin->Bind(wxEVT_TEXT_ENTER, &AnnSpinSliderDoubleCtrl::onSpinText, this);
  m_spin->Bind(wxEVT_SPINCTRLDOUBLE, [this](wxSpinDoubleEvent &) { takeSpin(); });
}

// Not skipped, so that the toolkit does not turn the value as well.
void AnnSpinSliderDoubleCtrl::onSliderWheel(wxMouseEvent &event) {
  bool const isUp = event.GetWheelRotation() > 0;
  int const line = m_slider->GetLineSize();
  wxScrollEvent scrolled(isUp ? wxEVT_SCROLL_LINEUP : wxEVT_SCROLL_LINEDOWN, m_slider->GetId(),
                         m_slider->GetValue() + (isUp ? line : -line), wxHORIZONTAL);
  scrolled.SetEventObject(m_slider);
  m_slider->GetEventHandler()->ProcessEvent(scrolled);
}

void AnnSpinSliderDoubleCtrl::onSliderScrolled(wxScrollEvent &event) {
  m_slider->SetValue(event.GetPosition());
  takeSlider();
}

void AnnSpinSliderDoubleCtrl::onSpinWheel(wxMouseEvent &event) {
  double const step = m_spin->GetIncrement();
  m_spin->SetValue(m_spin->GetValue() + (event.GetWheelRotation() > 0 ? step : -step));
  takeSpin();
}

void AnnSpinSliderDoubleCtrl::onSpinText(wxCommandEvent &) {
  double number = 0.0;
  if (!m_spin->GetTextValue().ToDouble(&number)) return;
  m_spin->SetValue(number);
  m_slider->setFromDouble(m_spin->GetValue());
  takeSlider();
}

void AnnSpinSliderDoubleCtrl::takeSlider() {
  m_spin->SetValue(m_slider->GetDouble());
  notify();
}

void AnnSpinSliderDoubleCtrl::takeSpin() {
  m_slider->setFromDouble(m_spin->GetValue());
  notify();
}

void AnnSpinSliderDoubleCtrl::notify() {
  wxCommandEvent event(wxEVT_SLIDER, GetId());
  event.SetEventObject(this);
  GetEventHandler()->ProcessEvent(event);
}

int AnnSpinSliderDoubleCtrl::GetValue() const {
  return m_slider->GetValue();
}

void AnnSpinSliderDoubleCtrl::SetValue(int value) {
  m_slider->SetValue(value);
  m_spin->SetValue(m_slider->GetDouble());
}

void AnnSpinSliderDoubleCtrl::SetRange(int minValue, int maxValue) {
  m_slider->SetRange(minValue, maxValue);
}

int AnnSpinSliderDoubleCtrl::GetMin() const {
  return m_slider->GetMin();
}

int AnnSpinSliderDoubleCtrl::GetMax() const {
  return m_slider->GetMax();
}

void AnnSpinSliderDoubleCtrl::SetLineSize(int lineSize) {
  m_slider->SetLineSize(lineSize);
}

void AnnSpinSliderDoubleCtrl::SetPageSize(int pageSize) {
  m_slider->SetPageSize(pageSize);
}

int AnnSpinSliderDoubleCtrl::GetLineSize() const {
  return m_slider->GetLineSize();
}

int AnnSpinSliderDoubleCtrl::GetPageSize() const {
  return m_slider->GetPageSize();
}

void AnnSpinSliderDoubleCtrl::SetThumbLength(int lenPixels) {
  m_slider->SetThumbLength(lenPixels);
}

int AnnSpinSliderDoubleCtrl::GetThumbLength() const {
  return m_slider->GetThumbLength();
}

wxSize AnnSpinSliderDoubleCtrl::DoGetBestSize() const {
  if (GetSizer() != nullptr) return GetSizer()->CalcMin();
  return wxControl::DoGetBestSize();  // NOLINT(bugprone-parent-virtual-call): no slider was made
}

#ifdef __WXGTK__
// The base would ask the slider that was never made, and the mouse would find nobody.
GdkWindow *AnnSpinSliderDoubleCtrl::GTKGetWindow(wxArrayGdkWindows &windows) const {
  return wxControl::GTKGetWindow(windows);  // NOLINT(bugprone-parent-virtual-call): as above
}
#endif
