// SPDX-License-Identifier: MIT
#include "desktop/export_run.h"

#include <exception>
#include <memory>
#include <new>
#include <stdexcept>

#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

#include "desktop/export_names.h"
#include "desktop/export_progress.h"
#include "media/media_source.h"
#include "project/failure_text.h"
#include "project/path_text.h"

namespace {

/// Of frames that are named one by one; more are only counted.
constexpr std::size_t kMostNamed = 10;

wxString NumberText(std::int64_t number) {
  return wxString::FromUTF8(std::to_string(number));
}

BurnResult Burn(ExportProgress &progress, std::string const &mediaPath, wxJSONValue const &document,
                BurnSettings const &settings, std::string const &indexFolder) {
  MediaOptions options;
  options.progress = [&](double share) { return progress.ShowPreparing(share); };
  options.cacheFolder = indexFolder;
  std::unique_ptr<MediaSource> const source = OpenMedia(mediaPath, options);
  return RunBurnJob(*source, document, settings,
                    [&](BurnProgress const &made) { return progress.ShowProgress(made); });
}

wxString DamageText(std::vector<std::int64_t> const &frames) {
  if (frames.empty()) return {};
  wxString const count = NumberText(static_cast<std::int64_t>(frames.size()));
  if (frames.size() > kMostNamed) {
    return wxString::Format(
        wxPLURAL("%s frame of the source is damaged: parts of it are made up.",
                 "%s frames of the source are damaged: parts of them are made up.",
                 static_cast<unsigned>(frames.size())),
        count);
  }
  wxString names;
  for (std::int64_t const frame : frames) names += (names.empty() ? "" : ", ") + NumberText(frame);
  return wxString::Format(
      wxGetTranslation("Frames of the source are damaged, and parts of them made up: %s."), names);
}

void TellFailure(wxWindow *parent, wxString const &text) {
  wxMessageDialog message(parent, wxGetTranslation("The export failed."),
                          wxGetTranslation("Export"), wxOK | wxICON_ERROR);
  message.SetExtendedMessage(text);
  message.ShowModal();
}

void TellDone(wxWindow *parent, BurnSettings const &settings, BurnResult const &result) {
  wxString const damage = DamageText(result.damagedFrames);
  wxString const path = ShownPath(settings.output);
  wxString done = wxGetTranslation("The export is done: %s");
  done.Replace("%s", wxFileName(path).GetFullName(), false);
  wxMessageDialog message(
      parent, done, wxGetTranslation("Export"),
      wxYES_NO | wxNO_DEFAULT | (damage.empty() ? wxICON_INFORMATION : wxICON_WARNING));
  message.SetExtendedMessage(damage.empty() ? path : damage + "\n\n" + path);
  message.SetYesNoLabels(wxGetTranslation("&Open Folder"), wxID_CLOSE);
  if (message.ShowModal() != wxID_YES) return;
  wxString const folder = wxFileName(path).GetPath();
  if (wxLaunchDefaultApplication(folder)) return;
  wxString text = wxGetTranslation("No program was found to open \"%s\" with.");
  text.Replace("%s", folder, false);
  wxMessageBox(text, wxGetTranslation("Export"), wxOK | wxICON_ERROR, parent);
}

}  // namespace

ExportOutcome RunExport(wxWindow *parent, std::string const &mediaPath, wxJSONValue const &document,
                        BurnSettings const &settings, std::string const &indexFolder) {
  BurnResult result;
  std::exception_ptr failure;
  {
    // Gone before a message is shown: it has disabled the window that the message belongs to.
    ExportProgress progress(parent, ShownPath(settings.output));
    try {
      result = Burn(progress, mediaPath, document, settings, indexFolder);
    } catch (...) {
      failure = std::current_exception();
    }
  }
  if (!failure) {
    TellDone(parent, settings, result);
    return ExportOutcome::Done;
  }
  wxString const text = FailureText(failure);
  if (text.empty()) return ExportOutcome::Cancelled;
  TellFailure(parent, text);
  return ExportOutcome::Failed;
}
