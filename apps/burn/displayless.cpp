// SPDX-License-Identifier: MIT
#include "burn/displayless.h"

#include <wx/debug.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>

namespace {

#ifdef __WXGTK__

constexpr double kPoints = 10.0;

/// With GTK, memory DCs start with the stock normal font, which asks the desktop's style and so
/// needs a display. Putting a font there first is the one thing that drawing without a display
/// takes; the member is the toolkit's own and not documented.
class StockFontSeed : public wxStockGDI {
public:
  static void Plant() {
    if (ms_stockObject[FONT_NORMAL] != nullptr) return;
    ms_stockObject[FONT_NORMAL] =
        new wxFont(wxFontInfo(kPoints).FaceName("Sans"));  // owned by the stock
  }
};

void SeedStockFont() {
  StockFontSeed::Plant();
}

#else

// Windows and macOS have a screen whenever a program runs, and take the font from the system.
void SeedStockFont() {}

#endif

}  // namespace

DisplaylessSession::DisplaylessSession() : m_isOk(wxInitialize()) {
  if (!m_isOk) return;
  wxDisableAsserts();
  wxLog::EnableLogging(false);
  SeedStockFont();
  // The JPEG decoder prints its warnings itself, past the log.
  wxImage::SetDefaultLoadFlags(wxImage::GetDefaultLoadFlags() & ~wxImage::Load_Verbose);
  wxInitAllImageHandlers();
}

DisplaylessSession::~DisplaylessSession() {
  if (m_isOk) wxUninitialize();
}
