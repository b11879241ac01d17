// SPDX-License-Identifier: MIT
#include "desktop/object_list.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <wx/bitmap.h>
#include <wx/dataview.h>
#include <wx/dcmemory.h>
#include <wx/intl.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include "desktop/dialog_parts.h"
#include "desktop/theme.h"
#include "objects/ann_text.h"
#include "objects/annotation_object.h"
#include "panel/accessible_name.h"

namespace {

constexpr int kSwatch = 12;  ///< device-independent pixels
// Widths in characters, heights in lines.
constexpr int kNameWidth = 14;  // longer names would push the heading of the frames out of view
constexpr int kKindWidth = 10;
constexpr int kFramesWidth = 13;
constexpr int kHeight = 8;

/// Of a text, as its object's name.
constexpr std::size_t kNameLength = 40;
/// A change by more rows than this is told as a whole, which is cheaper but scrolls to the top.
constexpr std::size_t kRowByRow = 1000;

enum Column : unsigned { kName, kKind, kFrames, kColumns };

wxString NumberText(std::int64_t number) {
  return wxString::FromUTF8(std::to_string(number));
}

wxString KindText(Types kind) {
  switch (kind) {
    case Types::Shape:
      return wxGetTranslation("Shape");
    case Types::Arrow:
      return wxGetTranslation("Arrow");
    case Types::Pencil:
      return wxGetTranslation("Pencil");
    case Types::Text:
      return wxGetTranslation("Text");
    case Types::Image:
      return wxGetTranslation("Image");
    case Types::Hide:
      return wxGetTranslation("Hide");
    case Types::Magnify:
      return wxGetTranslation("Magnify");
    case Types::Idle:
    case Types::General:
      break;
  }
  return wxGetTranslation("Object");
}

Types KindOf(IAnnotationObject const &object) {
  return static_cast<Types>(object.ToJSON().ItemAt(IAnnotationObject::idKey).AsInt());
}

/// The first words of a text object in one line; empty for other kinds.
wxString FirstWords(IAnnotationObject const &object) {
  auto const *const text = dynamic_cast<AnnText const *>(&object);
  if (text == nullptr) return {};
  // More than enough characters: a text may hold megabytes, most of it never shown here.
  wxString words = text->GetText().Left(4 * kNameLength);
  for (wxUniCharRef character : words) {
    if (character == '\n' || character == '\r' || character == '\t') character = ' ';
  }
  words.Trim().Trim(false);
  if (words.length() <= kNameLength) return words;
  wxString const cut = words.Left(kNameLength);
  std::size_t const space = cut.rfind(' ');
  return (space == wxString::npos || space == 0 ? cut : cut.Left(space)) + wxString(L"\u2026");
}

struct Row {
  wxString words;  ///< of a text
  Types kind = Types::Idle;
  std::int64_t first = 0;
  std::int64_t last = 0;
  wxColour colour;
};

bool operator==(Row const &a, Row const &b) {
  return a.words == b.words && a.kind == b.kind && a.first == b.first && a.last == b.last &&
         a.colour == b.colour;
}

wxString FramesText(Row const &row) {
  wxString const first = NumberText(row.first);
  return row.first == row.last ? first : first + wxString(L" \u2013 ") + NumberText(row.last);
}

}  // namespace

/// The rows, and their values as the table asks for them: it does so for those in view only.
class ObjectList::Model : public wxDataViewVirtualListModel {
public:
  explicit Model(wxWindow const &window) : m_window(window) {}

  void SetRows(std::vector<Row> &&rows) {
    std::vector<Row> const before = std::exchange(m_rows, std::move(rows));
    std::size_t const common = std::min(before.size(), m_rows.size());
    if (common == 0 || std::max(before.size(), m_rows.size()) - common > kRowByRow) {
      Reset(static_cast<unsigned>(m_rows.size()));
      return;
    }
    for (std::size_t count = before.size(); count > m_rows.size(); --count) {
      RowDeleted(static_cast<unsigned>(count - 1));
    }
    for (std::size_t count = before.size(); count < m_rows.size(); ++count) RowAppended();
    for (std::size_t row = 0; row < common; ++row) {
      if (!(before[row] == m_rows[row])) RowChanged(static_cast<unsigned>(row));
    }
  }

  wxString NameOf(unsigned row) const {
    Row const &shown = m_rows[row];
    if (!shown.words.empty()) return shown.words;
    return KindText(shown.kind) + " " + NumberText(std::int64_t{row} + 1);
  }

  void GetValueByRow(wxVariant &value, unsigned row, unsigned column) const override {
    if (row >= m_rows.size()) return;
    switch (column) {
      case kName:
        value << wxDataViewIconText(NameOf(row), swatch(m_rows[row].colour));
        break;
      case kKind:
        value = KindText(m_rows[row].kind);
        break;
      default:
        value = FramesText(m_rows[row]);
    }
  }

  bool SetValueByRow(wxVariant const &, unsigned, unsigned) override { return false; }
  unsigned GetColumnCount() const override { return kColumns; }
  wxString GetColumnType(unsigned column) const override {
    return column == kName ? wxDataViewIconTextRenderer::GetDefaultType() : wxString("string");
  }

private:
  wxBitmap const &swatch(wxColour const &colour) const {
    wxColour const shown = colour.IsOk() ? wxColour(colour.GetRGB()) : SurroundColour();
    wxBitmap &bitmap = m_swatches[shown.GetRGB()];
    if (bitmap.IsOk()) return bitmap;
    bitmap.CreateWithDIPSize(wxSize(kSwatch, kSwatch), m_window.GetDPIScaleFactor());
    wxMemoryDC dc(bitmap);
    dc.SetBrush(shown);
    dc.SetPen(Mixed(shown, ReadableOn(shown), 0.4));
    dc.DrawRectangle(wxPoint(), dc.GetSize());
    dc.SelectObject(wxNullBitmap);
    return bitmap;
  }

  wxWindow const &m_window;
  std::vector<Row> m_rows;
  mutable std::unordered_map<wxUint32, wxBitmap> m_swatches;  ///< by colour
};

ObjectList::ObjectList(wxWindow *parent, wxWindowID id) : wxPanel(parent, id) {
  wxSize const size(WidthOfText(*this, kNameWidth + kKindWidth + kFramesWidth),
                    kHeight * GetCharHeight());
  m_table = new wxDataViewCtrl;  // owned by the panel
  m_table->Create(this, wxID_ANY, wxDefaultPosition, size, wxDV_SINGLE | wxBORDER_NONE);
  m_model.reset(new Model(*this));  // owned by the pointer, which counts
  m_table->AssociateModel(m_model.get());
  addColumns();
  framenote::NameForScreenReaders(*m_table, wxGetTranslation("Objects"));
  auto *const sizer = new wxBoxSizer(wxVERTICAL);  // owned by the panel
  sizer->Add(m_table, wxSizerFlags(1).Expand());
  SetSizerAndFit(sizer);
  m_table->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED,
                [this](wxDataViewEvent &) { onSelectionChanged(); });
  Bind(wxEVT_IDLE, [this](wxIdleEvent &event) {
    event.Skip();
    reveal();
  });
}

ObjectList::~ObjectList() = default;

void ObjectList::addColumns() {
  m_table->AppendIconTextColumn(wxGetTranslation("Name"), kName, wxDATAVIEW_CELL_INERT,
                                WidthOfText(*this, kNameWidth), wxALIGN_LEFT,
                                wxDATAVIEW_COL_RESIZABLE);
  m_table->AppendTextColumn(wxGetTranslation("Kind"), kKind, wxDATAVIEW_CELL_INERT,
                            WidthOfText(*this, kKindWidth), wxALIGN_LEFT, wxDATAVIEW_COL_RESIZABLE);
  m_table->AppendTextColumn(wxGetTranslation("Frames"), kFrames, wxDATAVIEW_CELL_INERT,
                            WidthOfText(*this, kFramesWidth), wxALIGN_LEFT,
                            wxDATAVIEW_COL_RESIZABLE);
}

void ObjectList::SetObjects(AnnotationTool::ObjectList const &objects) {
  std::vector<Row> rows;
  rows.reserve(objects.size());
  for (IAnnotationObject *const object : objects) {
    rows.push_back({FirstWords(*object), KindOf(*object), object->GetStartFrame(),
                    object->GetEndFrame(), object->GetDominantColor()});
  }
  int const selected = std::exchange(m_selected, -1);  // changes of rows are not the user's
  m_model->SetRows(std::move(rows));
  m_selected = selected < static_cast<int>(m_model->GetCount()) ? selected : -1;
  showSelection();
}

void ObjectList::SetSelected(int index) {
  int const wanted = index >= 0 && index < static_cast<int>(m_model->GetCount()) ? index : -1;
  if (wanted == m_selected) return;
  m_selected = wanted;
  showSelection();
  m_isRevealDue = wanted >= 0;
}

void ObjectList::showSelection() {
  wxDataViewItem const shown = m_table->GetSelection();
  if (m_selected < 0) {
    if (shown.IsOk()) m_table->UnselectAll();
    return;
  }
  wxDataViewItem const wanted = m_model->GetItem(static_cast<unsigned>(m_selected));
  if (shown != wanted) m_table->SetCurrentItem(wanted);
}

/// When there is time for it: GTK complains where a row was told to be shown and is gone by then.
void ObjectList::reveal() {
  if (!std::exchange(m_isRevealDue, false) || m_selected < 0) return;
  m_table->EnsureVisible(m_model->GetItem(static_cast<unsigned>(m_selected)));
}

void ObjectList::onSelectionChanged() {
  wxDataViewItem const item = m_table->GetSelection();
  int const index = item.IsOk() ? static_cast<int>(m_model->GetRow(item)) : -1;
  if (index == m_selected) return;
  m_selected = index;
  if (m_onSelected) m_onSelected(index);
}
