// SPDX-License-Identifier: MIT
// What is checked before an export.
#include <filesystem>
#include <system_error>

#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/listbox.h>
#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "desktop/export_dialog.h"
#include "media/media_source.h"
#include "project/path_text.h"

namespace {

namespace fs = std::filesystem;

bool Exists(wxString const &path) {
  std::error_code none;  // what cannot be looked at is told when it is written
  return fs::exists(BytesOfPath(path), none);
}

bool IsFolder(wxString const &path) {
  std::error_code none;
  return fs::is_directory(BytesOfPath(path), none);
}

/// `sentence` with the path in the place of "%s".
wxString WithPath(wxString sentence, wxString const &path) {
  sentence.Replace("%s", path, false);
  return sentence;
}

}  // namespace

bool ExportDialog::TransferDataFromWindow() {
  if (!checkRange() || !checkPath() || !checkWarnings() || !confirmReplacing()) return false;
  keep();
  return true;
}

bool ExportDialog::checkRange() {
  if (range()) return true;
  showRangeProblem();
  m_first->SetFocus();
  m_first->SelectAll();
  return false;
}

bool ExportDialog::checkPath() {
  wxString const typed = m_path->GetValue();
  if (wxFileName(typed).GetFullName().empty()) {
    return refuse(wxGetTranslation("The export wants the name of a file."));
  }
  m_path->ChangeValue(NameForFormat(typed, output(), format()));
  wxString const folder = wxFileName(path()).GetPath();
  if (!IsFolder(folder)) {
    return refuse(WithPath(wxGetTranslation("There is no folder \"%s\"."), folder));
  }
  if (IsFolder(path())) return refuse(WithPath(wxGetTranslation("\"%s\" is a folder."), path()));
  BurnSettings const settings = Settings();
  if (isSource(settings.output) || isSource(settings.report)) {
    return refuse(WithPath(
        wxGetTranslation("\"%s\" is the source, which is never written to. Choose another name."),
        path()));
  }
  return true;
}

bool ExportDialog::refuse(wxString const &text) {
  wxMessageBox(text, GetTitle(), wxOK | wxICON_ERROR, this);
  m_path->SetFocus();
  m_path->SelectAll();
  return false;
}

bool ExportDialog::isSource(std::string const &output) const {
  if (output.empty()) return false;
  std::error_code none;
  return output == m_source.Path() || fs::equivalent(output, m_source.Path(), none);
}

/// A list that has only now changed, for a range typed a moment ago, is to be read first.
bool ExportDialog::checkWarnings() {
  if (!m_typing.IsRunning()) return true;
  m_typing.Stop();
  if (!showWarnings() || m_warnings.empty()) return true;
  m_warningsList->SetFocus();
  return false;
}

/// The first file that the export would replace; empty if there is none.
wxString ExportDialog::firstExisting() const {
  BurnSettings const settings = Settings();
  bool const isSequence = output() == BurnOutput::Pictures;
  std::int64_t const last = isSequence ? settings.range.last : settings.range.first;
  for (std::int64_t frame = settings.range.first; frame <= last; ++frame) {
    wxString const file = ShownPath(OutputPathOf(settings.output, frame));
    if (Exists(file)) return file;
  }
  wxString const report = ShownPath(settings.report);
  return !report.empty() && Exists(report) ? report : wxString();
}

bool ExportDialog::confirmReplacing() {
  wxString const existing = firstExisting();
  if (existing.empty()) return true;
  wxString const sentence =
      output() == BurnOutput::Pictures
          ? wxGetTranslation("\"%s\" is there already. Replace it, and others of the sequence?")
          : wxGetTranslation("\"%s\" is there already. Replace it?");
  wxMessageDialog question(this, WithPath(sentence, existing), GetTitle(),
                           wxYES_NO | wxNO_DEFAULT | wxICON_WARNING);
  question.SetYesNoLabels(wxGetTranslation("&Replace"), wxID_CANCEL);
  return question.ShowModal() == wxID_YES;
}
