// SPDX-License-Identifier: MIT
// framenote: the desktop host.
#include <clocale>
#include <string>

#include <wx/app.h>
#include <wx/cmdline.h>
#include <wx/config.h>
#include <wx/fileconf.h>
#include <wx/image.h>
#include <wx/intl.h>
#include <wx/stdpaths.h>
#include <wx/uilocale.h>

#include "desktop/app_icon.h"
#include "desktop/main_frame.h"
#include "desktop/toolkit_direction.h"
#include "project/path_text.h"
#include "project/recovery_store.h"
#include "project/user_language.h"
#include "talbase/layout_direction.h"

namespace {

class DesktopApp : public wxApp {
public:
  bool OnInit() override {
    SetAppName("framenote");
    SetAppDisplayName("Framenote");
    wxStandardPaths::Get().SetFileLayout(wxStandardPaths::FileLayout_XDG);
    m_direction = DirectionOfLanguage(UseUserLanguage());
    wxUILocale::UseDefault();
    SetToolkitDirection(m_direction);
    // In every language, as in what the programs read and write.
    std::setlocale(LC_NUMERIC, "C");
    // Pictures are shown as they are in every language: the canvas is not mirrored.
    TalSetLayoutDirection(wxLayout_LeftToRight);
    wxInitAllImageHandlers();
    wxImage::SetDefaultLoadFlags(wxImage::GetDefaultLoadFlags() & ~wxImage::Load_Verbose);
    if (!wxApp::OnInit()) return false;
    auto *const frame = new MainFrame(RecoveryFolder());  // owned by itself
    frame->SetIcons(AppIcons());
    frame->Show();
    std::string const path = m_path;
    std::string const document = m_document;
    // When the window is there, since both may ask.
    frame->CallAfter([frame, path, document] {
      frame->OfferRecovery();
      if (!path.empty()) frame->OpenPath(path, document);
    });
    return true;
  }

  /// The language's, which the locale need not have: it may not be there on this machine.
  wxLayoutDirection GetLayoutDirection() const override { return m_direction; }

  void OnInitCmdLine(wxCmdLineParser &parser) override {
    wxApp::OnInitCmdLine(parser);
    parser.AddSwitch(wxString(), "version", _("show the version"));
    parser.AddOption(wxString(), "document", _("show the annotations of this document on it"));
    parser.AddParam(_("picture, video or project"), wxCMD_LINE_VAL_STRING,
                    wxCMD_LINE_PARAM_OPTIONAL);
  }

  bool OnCmdLineParsed(wxCmdLineParser &parser) override {
    if (parser.Found("version")) {
      wxPuts("framenote " FRAMENOTE_VERSION);
      return false;
    }
    wxString document;
    if (parser.Found("document", &document)) m_document = BytesOfPath(document);
    if (parser.GetParamCount() > 0) m_path = BytesOfPath(parser.GetParam(0));
    return wxApp::OnCmdLineParsed(parser);
  }

private:
  wxLayoutDirection m_direction = wxLayout_Default;
  std::string m_path;
  std::string m_document;
};

}  // namespace

wxIMPLEMENT_APP(DesktopApp);
