// SPDX-License-Identifier: MIT
// Opening, saving, recovering and exporting.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>

#include <wx/config.h>
#include <wx/datetime.h>
#include <wx/filedlg.h>
#include <wx/infobar.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/stdpaths.h>
#include <wx/translation.h>

#include "desktop/export_dialog.h"
#include "desktop/export_run.h"
#include "desktop/main_frame.h"
#include "desktop/media_difference_text.h"
#include "framenote/annotation_tool.h"
#include "media/media_error.h"
#include "media/media_error_text.h"
#include "project/path_text.h"
#include "project/region_gaps.h"

namespace {

namespace fs = std::filesystem;

constexpr int kSumCheckMilliseconds = 500;
constexpr char const *kFolderKey = "/folders/open";

bool IsProject(std::string const &path) {
  return fs::path(path).extension() == kProjectExtension;
}

std::string CacheFolder() {
  return BytesOfPath(wxStandardPaths::Get().GetUserDir(wxStandardPaths::Dir_Cache)) +
         "/framenote/index";
}

wxString OpenWildcard() {
  wxString const pictures = "*.png;*.jpg;*.jpeg;*.bmp;*.tif;*.tiff;*.pnm;*.ppm;*.pgm;*.gif";
  wxString const videos =
      "*.mp4;*.mov;*.m4v;*.mkv;*.webm;*.avi;*.mpg;*.mpeg;*.ts;*.mts;*.m2ts;*.wmv;*.flv;*.264;*."
      "h264";
  wxString const projects = wxString("*") + kProjectExtension;
  return _("Pictures, videos and projects") + "|" + pictures + ";" + videos + ";" + projects + "|" +
         _("Pictures") + "|" + pictures + "|" + _("Videos") + "|" + videos + "|" + _("Projects") +
         "|" + projects + "|" + _("All files") + "|*";
}

/// Says how far the index of a video is, once that has taken long enough to wonder.
class IndexProgress {
public:
  IndexProgress(wxWindow *parent, wxString const &name) : m_parent(parent), m_name(name) {}

  /// False if the user wants to stop.
  bool Show(double share) {
    constexpr std::chrono::milliseconds kPatience(400);
    constexpr int kWhole = 1000;
    if (!m_dialog && std::chrono::steady_clock::now() - m_begin < kPatience) return true;
    if (!m_dialog) {
      m_dialog.emplace(_("Reading the index of the video"), m_name, kWhole, m_parent,
                       wxPD_APP_MODAL | wxPD_AUTO_HIDE | wxPD_CAN_ABORT);
    }
    return m_dialog->Update(std::clamp(static_cast<int>(share * kWhole), 0, kWhole - 1));
  }

private:
  wxWindow *m_parent;
  wxString m_name;
  std::chrono::steady_clock::time_point const m_begin = std::chrono::steady_clock::now();
  std::optional<wxProgressDialog> m_dialog;
};

}  // namespace

void MainFrame::openFile() {
  wxString const folder = wxConfigBase::Get()->Read(kFolderKey, wxString());
  wxFileDialog dialog(this, _("Open"), folder, wxString(), OpenWildcard(),
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() != wxID_OK) return;
  wxConfigBase::Get()->Write(kFolderKey, dialog.GetDirectory());
  OpenPath(BytesOfPath(dialog.GetPath()));
}

void MainFrame::openRecent(wxCommandEvent &event) {
  wxRecursionGuard const guard(m_isRunning);
  if (guard.IsInside()) return;
  auto const index = static_cast<std::size_t>(event.GetId() - wxID_FILE1);
  if (index < m_recent.GetCount()) OpenPath(BytesOfPath(m_recent.GetHistoryFile(index)));
}

void MainFrame::OpenPath(std::string const &path, std::string const &document) {
  if (!mayLeave()) return;
  try {
    Project project;
    project.document = document.empty() ? DocumentOf({}) : ReadDocument(document);
    project.media.path = path;
    if (IsProject(path)) project = ReadProject(path);
    if (!openProject(IsProject(path) ? path : std::string(), project, false)) return;
    m_recent.AddFileToHistory(TextOfPath(fs::absolute(path).string()));
  } catch (ProjectError const &error) {
    wxMessageBox(ProjectErrorText(error), "Framenote", wxOK | wxICON_ERROR, this);
  }
}

bool MainFrame::openProject(std::string const &path, Project const &project, bool isRestored) {
  std::string media = project.media.path;
  if (!path.empty() || isRestored) {
    MediaLookup const lookup = FindMedia(project, path);
    media = lookup.path.empty() ? askForMedia(lookup) : lookup.path;
  }
  if (media.empty()) return false;
  std::unique_ptr<MediaSource> source = openMedia(media);
  if (!source) return false;
  m_playback.Stop();
  m_problem->Dismiss();
  m_tool->DeactivateToolAndControls();
  MediaSource const *const opened = source.get();
  m_timeline->SetMedia(opened->Info().frameCount,
                       [opened](std::int64_t frame) { return opened->Seconds(frame); });
  try {
    m_session->Open(std::move(source), project, path, isRestored);
  } catch (MediaError const &error) {
    showProblem(MediaErrorText(error));
  }
  m_canvas->ZoomToFit();
  wxString const leftOut = leftOutText();
  if (!leftOut.empty()) showProblem(leftOut);
  warnOfOtherMedia();
  return true;
}

std::unique_ptr<MediaSource> MainFrame::openMedia(std::string const &path) {
  IndexProgress progress(this, TextOfPath(path));
  MediaOptions options;
  options.cacheFolder = CacheFolder();
  options.progress = [&](double share) { return progress.Show(share); };
  try {
    return ::OpenMedia(path, options);
  } catch (MediaError const &error) {
    if (error.Problem() != MediaProblem::Cancelled) {
      wxMessageBox(MediaErrorText(error), "Framenote", wxOK | wxICON_ERROR, this);
    }
  }
  return nullptr;
}

std::string MainFrame::askForMedia(MediaLookup const &lookup) {
  wxString tried;
  for (std::string const &path : lookup.tried) tried += "\n" + TextOfPath(path);
  wxString const question = _("The project's media is not there any more:") + tried + "\n\n" +
                            _("Do you want to say where it is?");
  if (wxMessageBox(question, "Framenote", wxYES_NO | wxICON_QUESTION, this) != wxYES) return {};
  wxFileDialog dialog(this, _("Find the Media"), wxString(), wxString(), OpenWildcard(),
                      wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (dialog.ShowModal() != wxID_OK) return {};
  return BytesOfPath(dialog.GetPath());
}

wxString MainFrame::leftOutText() const {
  if (m_session->LeftOut() == 0) return {};
  // TRANSLATORS: how many objects of the project that was opened.
  return wxString::Format(_("Objects that cannot be read are left out, and not saved: %d"),
                          m_session->LeftOut());
}

// The sum of a long video is known some time after it was opened.
void MainFrame::warnOfOtherMedia() {
  m_sumTimer.Stop();
  if (!m_session->HasMedia()) return;
  std::vector<MediaDifference> const differences = m_session->Differences();
  if (!differences.empty()) {
    // In one message: another one would take the place of what was said on opening.
    wxString const leftOut = leftOutText();
    showProblem((leftOut.empty() ? leftOut : leftOut + "\n") +
                MediaDifferenceText(differences, m_session->Source().Path()));
  } else if (!m_session->IsSumKnown()) {
    m_sumTimer.StartOnce(kSumCheckMilliseconds);
  }
}

void MainFrame::closeMedia() {
  if (!mayLeave()) return;
  m_playback.Stop();
  m_sumTimer.Stop();
  m_problem->Dismiss();
  m_tool->DeactivateToolAndControls();
  m_timeline->SetMedia(1, [](std::int64_t) { return 0.0; });
  m_session->Close();
}

bool MainFrame::save() {
  std::string const path = m_session->ProjectPath();
  return path.empty() ? saveAs() : saveTo(path);
}

bool MainFrame::saveAs() {
  fs::path suggested = m_session->ProjectPath();
  if (suggested.empty()) {
    suggested = fs::path(m_session->Source().Path()).replace_extension(kProjectExtension);
  }
  wxFileDialog dialog(this, _("Save the Project"), TextOfPath(suggested.parent_path().string()),
                      TextOfPath(suggested.filename().string()),
                      _("Projects") + "|*" + kProjectExtension, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
  if (dialog.ShowModal() != wxID_OK) return false;
  std::string path = BytesOfPath(dialog.GetPath());
  if (!IsProject(path)) path += kProjectExtension;
  return saveTo(path);
}

bool MainFrame::saveTo(std::string const &path) {
  takeEditedText();
  wxBusyCursor const busy;
  try {
    m_session->Save(path);
  } catch (ProjectError const &error) {
    wxMessageBox(ProjectErrorText(error), "Framenote", wxOK | wxICON_ERROR, this);
    return false;
  }
  m_recent.AddFileToHistory(TextOfPath(fs::absolute(path).string()));
  return true;
}

bool MainFrame::mayLeave() {
  takeEditedText();
  if (!m_session->IsModified()) return true;
  wxMessageDialog question(this, _("Do you want to save your changes?"), "Framenote",
                           wxYES_NO | wxCANCEL | wxICON_WARNING);
  question.SetExtendedMessage(_("Otherwise they are lost."));
  question.SetYesNoCancelLabels(_("&Save"), _("&Discard"), _("&Cancel"));
  int const answer = question.ShowModal();
  return answer == wxID_YES ? save() : answer == wxID_NO;
}

void MainFrame::OfferRecovery() {
  for (RecoveryOrphan const &orphan : FindOrphans(m_recoveryFolder)) {
    wxString const name =
        TextOfPath(orphan.projectPath.empty() ? orphan.mediaPath : orphan.projectPath);
    wxString const time = wxDateTime(static_cast<time_t>(orphan.time)).Format("%c");
    wxMessageDialog question(this, _("Framenote ended without saving. Do you want the work back?"),
                             "Framenote", wxYES_NO | wxCANCEL | wxICON_QUESTION);
    question.SetExtendedMessage(wxString::Format(_("%s, last changed %s"), name, time));
    question.SetYesNoCancelLabels(_("&Recover"), _("&Discard"), _("&Later"));
    int const answer = question.ShowModal();
    if (answer == wxID_CANCEL) break;
    try {
      bool const isOpen =
          answer == wxID_YES && openProject(orphan.projectPath, ReadOrphan(orphan), true);
      // Nothing is removed before it is kept anew.
      if (isOpen) m_session->FinishRecovery();
      if (answer == wxID_NO || isOpen) RemoveOrphan(orphan);
      // One window has one document; the others are offered again at the next start.
      if (isOpen) break;
    } catch (ProjectError const &error) {
      wxMessageBox(ProjectErrorText(error), "Framenote", wxOK | wxICON_ERROR, this);
    }
  }
  SweepRecovery(m_recoveryFolder);
}

std::vector<wxString> MainFrame::warningsFor(FrameRange const &range) const {
  std::vector<wxString> texts;
  MediaInfo const &info = m_session->Source().Info();
  for (RegionGap const &gap :
       FindRegionGaps(*m_tool, {{info.width, info.height}, range.first, range.last})) {
    texts.push_back(RegionGapText(gap));
  }
  return texts;
}

void MainFrame::exportMedia() {
  pause();
  takeEditedText();
  ExportDialog dialog(this, m_session->Source(), m_session->Frame(),
                      [this](FrameRange const &range) { return warningsFor(range); });
  if (dialog.ShowModal() != wxID_OK) return;
  RunExport(this, m_session->Source().Path(), DocumentOf(m_tool->GetJSON()), dialog.Settings(),
            CacheFolder());
}

void MainFrame::onClose(wxCloseEvent &event) {
  if (event.CanVeto() && !mayLeave()) return event.Veto();
  if (event.CanVeto()) {
    m_session->DiscardRecovery();
  } else {
    // The system ends the session: what is not saved is offered at the next start.
    m_session->FinishRecovery();
  }
  saveLayout();
  Destroy();
}
