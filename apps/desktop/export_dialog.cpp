// SPDX-License-Identifier: MIT
// What the dialog shows, and what follows from a choice.
#include "desktop/export_dialog.h"

#include <algorithm>
#include <utility>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/config.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/listbox.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "desktop/dialog_parts.h"
#include "media/media_source.h"
#include "panel/accessible_name.h"
#include "project/path_text.h"
#include "project/time_code.h"

namespace {

constexpr int kGap = 6;  ///< device-independent pixels
// Widths in characters, heights in lines.
constexpr int kPathWidth = 48;
constexpr int kPositionWidth = 13;
constexpr int kTextWidth = 54;
constexpr int kListHeight = 7;

constexpr int kTypingPause = 300;  ///< milliseconds, before a typed range is looked at
constexpr int kBestQuality = 0;
constexpr int kWorstQuality = 51;

wxString NumberText(std::int64_t number) {
  return wxString::FromUTF8(std::to_string(number));
}

wxString LabelOf(BurnOutput output) {
  switch (output) {
    case BurnOutput::Picture:
      return wxGetTranslation("Picture");
    case BurnOutput::Pictures:
      return wxGetTranslation("Pictures, one for each frame");
    case BurnOutput::Video:
    case BurnOutput::Unknown:
      break;
  }
  return wxGetTranslation("Video");
}

/// Where the configuration keeps what was last chosen for a kind of output.
wxString ConfigPathOf(BurnOutput output) {
  switch (output) {
    case BurnOutput::Picture:
      return "/Export/Picture/";
    case BurnOutput::Pictures:
      return "/Export/Pictures/";
    case BurnOutput::Video:
    case BurnOutput::Unknown:
      break;
  }
  return "/Export/Video/";
}

constexpr char const *kFolderKey = "Folder";
constexpr char const *kFormatKey = "Format";
constexpr char const *kQualityKey = "/Export/Video/Quality";
constexpr char const *kAudioKey = "/Export/Video/KeepSound";
constexpr char const *kReportKey = "/Export/Report";

}  // namespace

ExportDialog::ExportDialog(wxWindow *parent, MediaSource const &source, std::int64_t frame,
                           WarningsOf warningsOf)
    : wxDialog(parent, wxID_ANY, wxGetTranslation("Export"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      m_source(source),
      m_frame(frame),
      m_warningsOf(std::move(warningsOf)) {
  auto *const grid = new wxFlexGridSizer(2, FromDIP(wxSize(2 * kGap, kGap)));  // owned by the sizer
  grid->AddGrowableCol(1);
  if (!isStill()) makeFrames(*grid);
  makeFormat(*grid);
  makeOptions(*grid);
  makePath(*grid);
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the dialog
  sizer->Add(grid, wxSizerFlags().Expand().DoubleBorder(wxALL & ~wxBOTTOM));
  makeWarnings(*sizer);
  sizer->Add(CreateStdDialogButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().DoubleBorder());
  FindWindow(wxID_OK)->SetLabel(wxGetTranslation("E&xport"));
  SetSizer(sizer);
  restore();
  bindEvents();
  m_fitted = GetSize();
  showOutputs();
  showWarnings();
  (isStill() ? static_cast<wxWindow *>(m_format) : m_everything)->SetFocus();
  CentreOnParent();
}

bool ExportDialog::isStill() const {
  return m_source.Info().kind == MediaInfo::Kind::Still;
}

// --- Making ---

void ExportDialog::makeFrames(wxFlexGridSizer &grid) {
  std::int64_t const last = m_source.Info().frameCount - 1;
  wxString const thisFrame =
      wxString::Format(wxGetTranslation("&This frame (%s)"), NumberText(m_frame));
  wxString const everything =
      wxString::Format(wxGetTranslation("&Everything (0 to %s)"), NumberText(last));
  wxString const range = wxGetTranslation("&Range from");
  m_everything = new wxRadioButton;  // owned by the dialog
  m_everything->Create(this, wxID_ANY, everything, wxDefaultPosition, wxDefaultSize, wxRB_GROUP);
  m_someFrames = new wxRadioButton(this, wxID_ANY, range);  // owned by the dialog
  m_first = new wxTextCtrl(this, wxID_ANY, "0");            // owned by the dialog
  // TRANSLATORS: between two fields: range from ... to ...
  wxString const toText = wxGetTranslation("to");
  auto *const to = new wxStaticText(this, wxID_ANY, toText);   // owned by the dialog
  m_last = new wxTextCtrl(this, wxID_ANY, NumberText(last));   // owned by the dialog
  m_thisFrame = new wxRadioButton(this, wxID_ANY, thisFrame);  // owned by the dialog
  m_rangeProblem = new wxStaticText(this, wxID_ANY, "");       // owned by the dialog
  m_everything->SetValue(true);
  m_first->SetName("first");
  m_last->SetName("last");
  for (wxTextCtrl *const field : {m_first, m_last}) {
    SizeField(*field, kPositionWidth);
    field->SetToolTip(wxGetTranslation("A frame number, or a time such as 1:02.5"));
  }
  framenote::NameForScreenReaders(*m_first, wxGetTranslation("First frame or time"));
  framenote::NameForScreenReaders(*m_last, wxGetTranslation("Last frame or time"));
  m_rangeProblem->SetForegroundColour(WarningTextColour());
  m_rangeProblem->Hide();

  auto *const ends = new wxBoxSizer(wxHORIZONTAL);  // owned by the column
  ends->Add(m_someFrames, wxSizerFlags().CentreVertical());
  ends->Add(m_first, wxSizerFlags().CentreVertical().Border(wxLEFT | wxRIGHT));
  ends->Add(to, wxSizerFlags().CentreVertical());
  ends->Add(m_last, wxSizerFlags().CentreVertical().Border(wxLEFT));
  auto *const column = new wxBoxSizer(wxVERTICAL);  // owned by the grid
  column->Add(m_everything);
  column->Add(ends, wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(kGap / 2)));
  column->Add(m_rangeProblem, wxSizerFlags().Border(wxBOTTOM, FromDIP(kGap / 2)));
  column->Add(m_thisFrame);
  wxString const label = wxGetTranslation("Frames:");
  auto *const heading = new wxStaticText(this, wxID_ANY, label);  // owned by the dialog
  grid.Add(heading, wxSizerFlags().Top().Border(wxTOP, FromDIP(kGap / 2)));
  grid.Add(column);
}

void ExportDialog::makeFormat(wxFlexGridSizer &grid) {
  m_output = new wxChoice(this, wxID_ANY);  // owned by the dialog
  m_output->SetName("output");
  // TRANSLATORS: what is made: a picture, pictures or a video.
  AddLabelledRow(grid, wxGetTranslation("&As:"), *m_output);
  m_format = new wxChoice(this, wxID_ANY);  // owned by the dialog
  m_format->SetName("format");
  AddLabelledRow(grid, wxGetTranslation("&Format:"), *m_format);
}

void ExportDialog::makeOptions(wxFlexGridSizer &grid) {
  m_report = new wxCheckBox(this, wxID_ANY, "");  // owned by the dialog
  m_report->SetLabel(wxGetTranslation("Write a re&port beside it"));
  m_report->SetName("report");
  m_report->SetToolTip(wxGetTranslation(
      "What was burnt into what, with check sums of the source, the frames and the results"));
  m_extend = new wxCheckBox(this, wxID_ANY, "");  // owned by the dialog
  m_extend->SetLabel(wxGetTranslation("En&large the picture where annotations lie beyond it"));
  m_extend->SetName("extend");
  if (isStill()) {
    grid.AddSpacer(0);
    grid.Add(m_report);
    grid.AddSpacer(0);
    grid.Add(m_extend);
    return;
  }
  m_quality = new wxSpinCtrl(this, wxID_ANY);  // owned by the dialog
  m_quality->SetName("quality");
  m_quality->SetRange(kBestQuality, kWorstQuality);
  auto *const scale = new wxStaticText(this, wxID_ANY, "");  // owned by the dialog
  scale->SetLabel(wxGetTranslation("0 is best and largest, 51 worst and smallest"));
  wxString const label = wxGetTranslation("&Quality:");
  framenote::NameForScreenReaders(*m_quality, NameOfLabel(label) + ", " + scale->GetLabel());
  auto *const row = new wxBoxSizer(wxHORIZONTAL);  // owned by the grid
  row->Add(m_quality, wxSizerFlags().CentreVertical().Border(wxRIGHT));
  row->Add(scale, wxSizerFlags().CentreVertical());
  AddLabelledRow(grid, *this, label, row);
  wxString const keepAudio = m_source.Info().hasAudio
                                 ? wxGetTranslation("Keep the &sound, copied as it is")
                                 : wxGetTranslation("Keep the &sound: there is none");
  m_audio = new wxCheckBox(this, wxID_ANY, keepAudio);  // owned by the dialog
  m_audio->SetName("sound");
  m_audio->MoveBeforeInTabOrder(m_report);
  grid.AddSpacer(0);
  grid.Add(m_audio);
  grid.AddSpacer(0);
  grid.Add(m_report);
  grid.AddSpacer(0);
  grid.Add(m_extend);
}

void ExportDialog::makePath(wxFlexGridSizer &grid) {
  wxString const label = wxGetTranslation("Save &in:");
  m_path = new wxTextCtrl(this, wxID_ANY);  // owned by the dialog
  m_path->SetName("path");
  SizeField(*m_path, kPathWidth);
  framenote::NameForScreenReaders(*m_path, NameOfLabel(label));
  auto *const browseButton = new wxButton(this, wxID_ANY);  // owned by the dialog
  browseButton->SetLabel(wxGetTranslation("&Browse..."));
  browseButton->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { browse(); });
  auto *const row = new wxBoxSizer(wxHORIZONTAL);  // owned by the grid
  row->Add(m_path, wxSizerFlags(1).CentreVertical().Border(wxRIGHT));
  row->Add(browseButton, wxSizerFlags().CentreVertical());
  AddLabelledRow(grid, *this, label, row);
}

void ExportDialog::makeWarnings(wxBoxSizer &sizer) {
  m_warningsLabel = new wxStaticText(this, wxID_ANY, "");  // owned by the dialog
  wxSize const size(WidthOfText(*this, kPathWidth), kListHeight * GetCharHeight());
  m_warningsList = new wxListBox;  // owned by the dialog
  m_warningsList->Create(this, wxID_ANY, wxDefaultPosition, size, 0, nullptr,
                         wxLB_SINGLE | wxLB_HSCROLL);
  m_warningsList->SetName("warnings");
  framenote::NameForScreenReaders(
      *m_warningsList, wxGetTranslation("Places where a hide region may leave its subject bare"));
  sizer.Add(m_warningsLabel, wxSizerFlags().DoubleBorder(wxALL & ~wxBOTTOM));
  sizer.AddSpacer(FromDIP(kGap));
  sizer.Add(m_warningsList, wxSizerFlags(1).Expand().DoubleBorder(wxLEFT | wxRIGHT));
}

void ExportDialog::bindEvents() {
  m_output->Bind(wxEVT_CHOICE, [this](wxCommandEvent &) { onOutputChanged(); });
  m_format->Bind(wxEVT_CHOICE, [this](wxCommandEvent &) { onFormatChanged(); });
  m_path->Bind(wxEVT_TEXT, [this](wxCommandEvent &) { onPathTyped(); });
  if (isStill()) return;
  for (wxRadioButton *const choice : {m_thisFrame, m_everything, m_someFrames}) {
    choice->Bind(wxEVT_RADIOBUTTON, [this](wxCommandEvent &) { onFramesChanged(); });
  }
  for (wxTextCtrl *const field : {m_first, m_last}) {
    field->Bind(wxEVT_TEXT, [this](wxCommandEvent &) {
      bool const isNew = !m_someFrames->GetValue();
      m_someFrames->SetValue(true);
      if (isNew) showOutputs();
      m_typing.StartOnce(kTypingPause);
    });
  }
  m_typing.Bind(wxEVT_TIMER, [this](wxTimerEvent &) { onFramesChanged(); });
}

void ExportDialog::restore() {
  wxConfigBase const &config = *wxConfigBase::Get();
  m_report->SetValue(config.ReadBool(kReportKey, false));
  if (isStill()) return;
  BurnSettings const usual;
  m_quality->SetValue(static_cast<int>(config.ReadLong(kQualityKey, usual.quality)));
  m_audio->SetValue(m_source.Info().hasAudio && config.ReadBool(kAudioKey, usual.keepAudio));
}

void ExportDialog::keep() const {
  wxConfigBase &config = *wxConfigBase::Get();
  wxString const place = ConfigPathOf(output());
  config.Write(place + kFolderKey, wxFileName(path()).GetPath());
  config.Write(place + kFormatKey, wxString(format().id));
  config.Write(kReportKey, m_report->GetValue());
  if (output() != BurnOutput::Video) return;
  config.Write(kQualityKey, static_cast<long>(m_quality->GetValue()));
  if (m_source.Info().hasAudio) config.Write(kAudioKey, m_audio->GetValue());
}

// --- What is chosen ---

std::optional<FrameRange> ExportDialog::range() const {
  if (isStill()) return FrameRange{0, 0};
  if (m_thisFrame->GetValue()) return FrameRange{m_frame, m_frame};
  if (m_everything->GetValue()) return FrameRange{0, m_source.Info().frameCount - 1};
  auto const first = ParsePosition(m_first->GetValue().utf8_string(), m_source);
  auto const last = ParsePosition(m_last->GetValue().utf8_string(), m_source);
  if (!first || !last || *last < *first) return std::nullopt;
  return FrameRange{*first, *last};
}

BurnOutput ExportDialog::output() const {
  return m_outputs.at(static_cast<std::size_t>(m_output->GetSelection()));
}

ExportFormat const &ExportDialog::format() const {
  return FormatsOf(output()).at(static_cast<std::size_t>(m_format->GetSelection()));
}

/// Absolute: what is typed without a folder goes where the suggestion would.
wxString ExportDialog::path() const {
  wxFileName file(m_path->GetValue());
  file.Normalize(wxPATH_NORM_TILDE | wxPATH_NORM_DOTS | wxPATH_NORM_ABSOLUTE,
                 wxFileName(suggestedPath()).GetPath());
  return file.GetFullPath();
}

BurnSettings ExportDialog::Settings() const {
  BurnSettings settings;
  settings.range = range().value();
  settings.output = BytesOfPath(path());
  settings.codec = format().codec;
  if (!isStill()) {
    settings.quality = m_quality->GetValue();
    settings.keepAudio = m_audio->GetValue();
  }
  settings.look.extend = m_extend->GetValue();
  if (m_report->GetValue()) settings.report = BytesOfPath(ReportNameOf(path()));
  return settings;
}

// --- What follows from a change ---

void ExportDialog::onFramesChanged() {
  m_typing.Stop();
  showOutputs();
  showRangeProblem();
  showWarnings();
}

void ExportDialog::onOutputChanged() {
  showFormats();
  showPath();
}

void ExportDialog::onFormatChanged() {
  enableOptions();
  showPath();
}

/// The format follows a name that is typed.
void ExportDialog::onPathTyped() {
  int const found = FormatOfName(m_path->GetValue(), output(), m_format->GetSelection());
  if (found < 0 || found == m_format->GetSelection()) return;
  m_format->SetSelection(found);
  enableOptions();
}

/// One frame is a picture; several are a video, or a picture each.
void ExportDialog::showOutputs() {
  bool const isOne = isStill() || m_thisFrame->GetValue();
  std::vector<BurnOutput> outputs{BurnOutput::Video, BurnOutput::Pictures};
  if (isOne) outputs = {BurnOutput::Picture};
  if (outputs == m_outputs) return;
  m_outputs = std::move(outputs);
  m_output->Clear();
  for (BurnOutput const offered : m_outputs) m_output->Append(LabelOf(offered));
  m_output->SetSelection(0);
  m_output->Enable(m_outputs.size() > 1);
  onOutputChanged();
}

void ExportDialog::showFormats() {
  wxString const last = wxConfigBase::Get()->Read(ConfigPathOf(output()) + kFormatKey);
  int chosen = 0;
  m_format->Clear();
  for (ExportFormat const &offered : FormatsOf(output())) {
    int const index = m_format->Append(LabelOf(offered));
    if (last == offered.id) chosen = index;
  }
  m_format->SetSelection(chosen);
  enableOptions();
  fit();
}

void ExportDialog::showPath() {
  wxString const now = m_path->GetValue();
  bool const isOwn = now.empty() || now == m_suggestion;
  m_suggestion = suggestedPath();
  m_path->ChangeValue(isOwn ? m_suggestion : NameForFormat(now, output(), format()));
  m_path->SetInsertionPointEnd();
}

void ExportDialog::enableOptions() {
  if (isStill()) return;
  bool const isVideo = output() == BurnOutput::Video;
  m_quality->Enable(isVideo && format().codec == VideoCodec::H264);
  m_audio->Enable(isVideo && m_source.Info().hasAudio);
}

void ExportDialog::showRangeProblem() {
  bool const isWrong = !range();
  if (isWrong == !m_rangeProblem->GetLabel().empty()) return;
  wxString text;
  if (isWrong) {
    text = wxString::Format(wxGetTranslation("Wanted are frames from 0 to %s, or times; the first "
                                             "not behind the last."),
                            NumberText(m_source.Info().frameCount - 1));
  }
  m_rangeProblem->SetLabel(text);
  m_rangeProblem->Wrap(WidthOfText(*this, kTextWidth));
  m_rangeProblem->Show(isWrong);
  framenote::NameForScreenReaders(*m_first, wxGetTranslation("First frame or time") + ". " + text);
  fit();
}

/// Returns whether the list has changed.
bool ExportDialog::showWarnings() {
  auto const frames = range();
  std::vector<wxString> warnings;
  if (frames && m_warningsOf) warnings = m_warningsOf(*frames);
  bool const isNew = warnings != m_warnings;
  m_warnings = std::move(warnings);
  m_warningsList->Set(m_warnings);
  wxString text = wxGetTranslation("No gap was found in the regions to hide.");
  if (!m_warnings.empty()) {
    text = wxString::Format(
        wxGetTranslation("A region to hide may leave its subject bare; %s to look at:"),
        NumberText(static_cast<std::int64_t>(m_warnings.size())));
  }
  m_warningsLabel->SetLabel(text);
  m_warningsLabel->Show(frames && m_warningsOf);
  m_warningsList->Show(!m_warnings.empty());
  fit();
  return isNew;
}

/// As large as what there is to show wants; what the user made larger stays.
void ExportDialog::fit() {
  bool const isUsers = GetSize() != m_fitted;
  wxSize const before = GetSize();
  SetMinSize(wxDefaultSize);
  wxSize const wanted = ClientToWindowSize(GetSizer()->GetMinSize());
  SetMinSize(wanted);
  SetSize(isUsers ? wxSize(std::max(before.x, wanted.x), std::max(before.y, wanted.y)) : wanted);
  m_fitted = GetSize();
  Layout();
}

wxString ExportDialog::suggestedPath() const {
  wxString folder = wxConfigBase::Get()->Read(ConfigPathOf(output()) + kFolderKey);
  if (folder.empty() || !wxFileName::DirExists(folder)) {
    wxFileName source(ShownPath(m_source.Path()));
    source.MakeAbsolute();
    folder = source.GetPath();
  }
  std::int64_t const number = isStill() ? -1 : m_frame;
  return wxFileName(folder, SuggestedName(m_source.Path(), output(), format(), number))
      .GetFullPath();
}

/// The dialog itself asks before it replaces a file: a path may be typed as well.
void ExportDialog::browse() {
  wxString filter = m_format->GetStringSelection() + "|";
  for (wxString const &extension : format().extensions) filter += "*." + extension + ";";
  filter.RemoveLast();
  wxFileName const now(path());
  wxFileDialog dialog(this, wxGetTranslation("Export To"), now.GetPath(), now.GetFullName(),
                      filter + "|" + wxGetTranslation("All files") + "|*", wxFD_SAVE);
  if (dialog.ShowModal() == wxID_OK) m_path->SetValue(dialog.GetPath());
}
