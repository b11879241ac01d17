// SPDX-License-Identifier: MIT
#include "desktop/shortcuts_dialog.h"

#include <wx/dataview.h>

#include <gtest/gtest.h>

namespace {

wxDataViewListCtrl *TableIn(ShortcutsDialog const &dialog) {
  for (wxWindow *child : dialog.GetChildren()) {
    if (auto *const table = dynamic_cast<wxDataViewListCtrl *>(child)) return table;
  }
  return nullptr;
}

TEST(ShortcutsDialogTest, HasARowForEachAndNamesAGroupOnce) {
  ShortcutsDialog const dialog(
      nullptr, {{"Ctrl+O", "Open", "File"}, {"Ctrl+S", "Save", "File"}, {"Space", "Play", "Time"}});
  wxDataViewListCtrl const *const table = TableIn(dialog);
  ASSERT_NE(table, nullptr);
  ASSERT_EQ(table->GetItemCount(), 3u);
  EXPECT_EQ(table->GetTextValue(0, 0), "File");
  EXPECT_EQ(table->GetTextValue(1, 0), "");
  EXPECT_EQ(table->GetTextValue(1, 1), "Ctrl+S");
  EXPECT_EQ(table->GetTextValue(1, 2), "Save");
  EXPECT_EQ(table->GetTextValue(2, 0), "Time");
  EXPECT_EQ(table->GetSelectedRow(), 0);
}

TEST(ShortcutsDialogTest, ClosesByEscape) {
  ShortcutsDialog const dialog(nullptr, {{"Ctrl+O", "Open", "File"}});
  EXPECT_EQ(dialog.GetEscapeId(), wxID_CLOSE);
  EXPECT_NE(dialog.FindWindow(wxID_CLOSE), nullptr);
}

}  // namespace
