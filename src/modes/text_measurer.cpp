// SPDX-License-Identifier: MIT
#include "modes/text_measurer.h"

#include <algorithm>
#include <memory>

#include <wx/dcclient.h>
#include <wx/graphics.h>
#include <wx/textctrl.h>

#include "coordinates/pixel_geometry.h"
#include "painters/drawable.h"

namespace framenote {

namespace {

/// What is remembered must not grow with all that is ever typed.
constexpr std::size_t kMaxRemembered = std::size_t{1} << 18;

}  // namespace

wxSize TextMeasurer::Measure(wxWindow &window, wxString const &text, wxFont const &font,
                             bool addDescent) {
  useFont(font);
  Extent block;
  std::size_t begin = 0;
  for (std::size_t end = text.find('\n'); end != wxString::npos; end = text.find('\n', begin)) {
    wxString const line = text.Mid(begin, end - begin);
    Extent const extent = extentOf(window, line.empty() ? wxString(" ") : line);
    if (!line.empty()) block.width = std::max(block.width, extent.width);
    block.height += extent.height;
    begin = end + 1;
  }
  Extent const last = extentOf(window, text.Mid(begin) + " ");
  block.width = std::max(block.width, last.width);
  block.height += last.height;
  if (begin == 0) block.height += last.leading;
  double const extra = addDescent ? last.descent : 0.0;
  wxPoint const size = RoundToPixel(wxPoint2DDouble(block.width + extra, block.height + extra));
  return {size.x, size.y};
}

void TextMeasurer::useFont(wxFont const &font) {
  wxFont const usable = DrawableRange(1.0).Font(UsableFont(font), 1.0);
  if (m_font.IsOk() && m_font == usable && m_remembered <= kMaxRemembered) return;
  m_font = usable;
  m_lines.clear();
  m_remembered = 0;
}

TextMeasurer::Extent TextMeasurer::extentOf(wxWindow &window, wxString const &line) {
  auto const known = m_lines.find(line);
  if (known != m_lines.end()) return known->second;
  m_remembered += line.length();
  return m_lines.emplace(line, measured(window, line)).first->second;
}

TextMeasurer::Extent TextMeasurer::measured(wxWindow &window, wxString const &line) const {
  Extent extent;
  wxClientDC dc(&window);
  std::unique_ptr<wxGraphicsContext> const context(wxGraphicsContext::Create(dc));
  if (!context) return extent;
  context->SetFont(m_font, *wxBLACK);
  context->GetTextExtent(line, &extent.width, &extent.height, &extent.descent, &extent.leading);
  return extent;
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
