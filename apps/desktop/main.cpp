// SPDX-License-Identifier: MIT
// framenote: the desktop host.
#include <clocale>
#include <string>
#include <utility>
#include <vector>

#include <wx/app.h>
#include <wx/config.h>
#include <wx/fileconf.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/intl.h>
#include <wx/stdpaths.h>
#include <wx/uilocale.h>

#include "desktop/app_icon.h"
#include "desktop/main_frame.h"
#include "desktop/start_options.h"
#include "desktop/start_output.h"
#include "desktop/toolkit_settings.h"
#include "project/recovery_store.h"
#include "project/user_language.h"
#include "talbase/layout_direction.h"

#ifdef __WXMSW__
#include <cstdlib>

#include <wx/msw/wrapwin.h>
#endif

namespace {

/// What wxWidgets ends with where the toolkit does not start, too.
constexpr int kNotStarted = 255;

class DesktopApp : public wxApp {
public:
  explicit DesktopApp(StartOptions options) : m_options(std::move(options)) {}

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
    auto *const frame = new MainFrame(RecoveryFolder());  // owned by itself
    frame->SetIcons(AppIcons());
    frame->Show();
    // When the window is there, since both may ask.
    frame->CallAfter([frame, options = m_options] {
      frame->OfferRecovery();
      if (!options.file.empty()) frame->OpenPath(options.file, options.document);
    });
    return true;
  }

  /// The language's, which the locale need not have: it may not be there on this machine.
  wxLayoutDirection GetLayoutDirection() const override { return m_direction; }

private:
  StartOptions m_options;
  wxLayoutDirection m_direction = wxLayout_Default;
};

/// Says what is wrong with the arguments, or what they ask for beside the window. There need not be
/// a display.
int Answer(StartOptions const &options, Message const &problem) {
  wxInitializer const session;
  if (!session.IsOk()) return kNotStarted;
  UseUserLanguage();
  if (!problem.IsEmpty()) {
    TellStarter("framenote: " + problem.Translated() + "\n", true);
    return kNotStarted;
  }
  bool const isHelp = options.action == StartOptions::Action::ShowHelp;
  TellStarter(isHelp ? StartUsage() : "framenote " FRAMENOTE_VERSION "\n", false);
  return 0;
}

/// What main was started with, for the app, which wxWidgets makes.
StartOptions &Started() {
  static StartOptions options;
  return options;
}

wxAppConsole *MakeApp() {
  return new DesktopApp(Started());  // owned by wxWidgets
}

/// Whether the window is to be shown, by wxEntry; else `code` is the program's exit code.
bool IsWindowWanted(int argc, char **argv, int &code) {
  StartOptions &options = Started();
  Message const problem = ReadStartOptions({argv + 1, argv + argc}, options);
  if (!problem.IsEmpty() || options.action != StartOptions::Action::ShowWindow) {
    code = Answer(options, problem);
    return false;
  }
  wxDISABLE_DEBUG_SUPPORT();
  wxAppConsole::CheckBuildOptions(WX_BUILD_OPTIONS_SIGNATURE, "framenote");
  // Not before: without a display, what is answered must not start the toolkit. Nor made here: with
  // an app, wxWidgets would show in a window that there is no display.
  wxApp::SetInitializerFunction(MakeApp);
  return true;
}

}  // namespace

#ifdef __WXMSW__

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, char *, int show) {
  int code = 0;
  if (!IsWindowWanted(__argc, __argv, code)) return code;
  return wxEntry(instance, previous, nullptr, show);
}

#else

int main(int argc, char **argv) {
  int code = 0;
  if (!IsWindowWanted(argc, argv, code)) return code;
  // The others are read, and wxWidgets warns of paths that are not text.
  std::vector<char *> arguments = {argv[0]};
  for (std::string &argument : Started().toolkit) arguments.push_back(argument.data());
  int count = static_cast<int>(arguments.size());
  arguments.push_back(nullptr);
  return wxEntry(count, arguments.data());
}

#endif
