// SPDX-License-Identifier: MIT
#include "modes/text_measuring.h"

#include <memory>

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/textctrl.h>

#include "coordinates/pixel_geometry.h"
#include "painters/drawable.h"

namespace framenote {

wxSize MeasureText(wxWindow &window, wxString const &text, wxFont const &font, bool addDescent) {
  wxClientDC dc(&window);
  std::unique_ptr<wxGraphicsContext> const context(wxGraphicsContext::Create(dc));
  if (!context) return {};
  context->SetFont(DrawableRange(1.0).Font(UsableFont(font), 1.0), *wxBLACK);
  wxDouble width = 0.0;
  wxDouble height = 0.0;
  wxDouble leading = 0.0;
  context->GetTextExtent(text + " ", &width, &height, nullptr, &leading);
  if (!text.Contains("\n")) height += leading;
  if (addDescent) {
    // Of one line: that of several lines may count from the first line's baseline.
    wxDouble lineWidth = 0.0;
    wxDouble lineHeight = 0.0;
    wxDouble descent = 0.0;
    context->GetTextExtent(" ", &lineWidth, &lineHeight, &descent, nullptr);
    width += descent;
    height += descent;
  }
  wxPoint const size = RoundToPixel(wxPoint2DDouble(width, height));
  return {size.x, size.y};
}

wxSize SizeOfHiddenTextCtrl(wxWindow &parent, long style, wxSize const &textSize) {
  auto *const control = new wxTextCtrl;  // owned by `parent` once created
  control->Hide();
  control->Create(&parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
  wxSize const size = control->GetSizeFromTextSize(textSize);
  control->Destroy();
  return size;
}

}  // namespace framenote
