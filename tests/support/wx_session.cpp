// SPDX-License-Identifier: MIT
#include "support/wx_session.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>

namespace framenote {
namespace {

/// An application that leaves the command line alone and outlives its windows.
class SessionApp : public wxApp {
public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }
};

}  // namespace

WxSession::WxSession(int &argc, char **argv) {
  wxApp::SetInstance(new SessionApp);  // owned by wxWidgets, until wxEntryCleanup
  if (!wxEntryStart(argc, argv)) return;
  if (!wxTheApp->CallOnInit()) {
    wxEntryCleanup();
    return;
  }
  // The default target shows messages in modal windows. What it held goes with it.
  delete wxLog::SetActiveTarget(new wxLogStderr);  // owned by wxLog
  wxInitAllImageHandlers();
  m_loop = std::make_unique<wxEventLoop>();
  m_activator = std::make_unique<wxEventLoopActivator>(m_loop.get());
}

WxSession::~WxSession() {
  if (!IsOk()) return;
  m_activator.reset();
  m_loop.reset();
  wxTheApp->OnExit();
  wxEntryCleanup();  // deletes the windows that are left
}

}  // namespace framenote
