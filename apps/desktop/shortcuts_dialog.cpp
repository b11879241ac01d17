// SPDX-License-Identifier: MIT
#include "desktop/shortcuts_dialog.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/dataview.h>
#include <wx/intl.h>
#include <wx/sizer.h>

#include "desktop/dialog_parts.h"
#include "panel/accessible_name.h"

namespace {

constexpr int kCellPadding = 24;  ///< device-independent pixels
// Widths in characters, heights in lines.
constexpr int kWidest = 60;  ///< of a column; longer texts are read by widening it
constexpr int kNarrowest = 44;
constexpr int kHeight = 30;
constexpr int kLowest = 12;

void AddColumn(wxDataViewListCtrl &table, wxString const &title, int width) {
  table.AppendTextColumn(title, wxDATAVIEW_CELL_INERT, width, wxALIGN_LEFT,
                         wxDATAVIEW_COL_RESIZABLE);
}

/// Wide enough for the title and every text of the column.
int WidthOf(wxWindow const &table, wxString const &title, std::vector<Shortcut> const &shortcuts,
            wxString Shortcut::*column) {
  int widest = table.GetTextExtent(title).x;
  for (Shortcut const &shortcut : shortcuts) {
    widest = std::max(widest, table.GetTextExtent(shortcut.*column).x);
  }
  return std::min(widest + table.FromDIP(kCellPadding), WidthOfText(table, kWidest));
}

wxDataViewListCtrl *MakeTable(wxWindow *parent, std::vector<Shortcut> const &shortcuts) {
  auto *const table = new wxDataViewListCtrl(parent, wxID_ANY);  // owned by its parent
  // TRANSLATORS: headings of a table: the menu, the keys.
  wxString const group = wxGetTranslation("Where");
  wxString const keys = wxGetTranslation("Keys");
  wxString const what = wxGetTranslation("What they do");
  int const widths[] = {WidthOf(*table, group, shortcuts, &Shortcut::group),
                        WidthOf(*table, keys, shortcuts, &Shortcut::keys),
                        WidthOf(*table, what, shortcuts, &Shortcut::what)};
  AddColumn(*table, group, widths[0]);
  AddColumn(*table, keys, widths[1]);
  AddColumn(*table, what, widths[2]);
  wxString last;
  for (Shortcut const &shortcut : shortcuts) {
    wxVector<wxVariant> row;
    // Once for each group, which so stands out.
    row.push_back(shortcut.group == last ? wxString() : shortcut.group);
    row.push_back(shortcut.keys);
    row.push_back(shortcut.what);
    table->AppendItem(row);
    last = shortcut.group;
  }
  int const width = widths[0] + widths[1] + widths[2] + table->FromDIP(kCellPadding);
  int const narrowest = WidthOfText(*table, kNarrowest);
  table->SetMinSize({std::max(width, narrowest), kHeight * table->GetCharHeight()});
  framenote::NameForScreenReaders(*table, wxGetTranslation("Keyboard shortcuts"));
  return table;
}

}  // namespace

ShortcutsDialog::ShortcutsDialog(wxWindow *parent, std::vector<Shortcut> const &shortcuts)
    : wxDialog(parent, wxID_ANY, wxGetTranslation("Keyboard Shortcuts"), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER) {
  wxDataViewListCtrl *const table = MakeTable(this, shortcuts);
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the dialog
  sizer->Add(table, wxSizerFlags(1).Expand().DoubleBorder());
  sizer->Add(CreateStdDialogButtonSizer(wxCLOSE),
             wxSizerFlags().Expand().DoubleBorder(wxLEFT | wxRIGHT | wxBOTTOM));
  SetSizerAndFit(sizer);
  SetMinSize({WidthOfText(*this, kNarrowest), kLowest * GetCharHeight()});
  SetEscapeId(wxID_CLOSE);
  if (!shortcuts.empty()) {
    table->SelectRow(0);
    table->SetCurrentItem(table->RowToItem(0));
  }
  table->SetFocus();
  CentreOnParent();
}
