// SPDX-License-Identifier: MIT
#include "desktop/object_list.h"

#include <dlfcn.h>

#include <string>
#include <utility>
#include <vector>

#include <wx/dataview.h>

#include "desktop/window_fixture.h"
#include "objects/annotation_object.h"
#include "support/objects_of_kinds.h"
#include "support/processor_time.h"
#include "support/tool_driver.h"

namespace framenote::test {

namespace {

class ObjectListOnAWindow : public WindowTest {
protected:
  void SetUp() override {
    WindowTest::SetUp();
    m_list = new ObjectList(m_frame);  // owned by the frame
    m_list->OnSelected([this](int index) { m_chosen.push_back(index); });
    m_table = dynamic_cast<wxDataViewCtrl *>(m_list->GetChildren().front());
    m_frame->Show();
    Idle();
  }

  /// One row as "name | kind | frames".
  std::string RowText(unsigned row) const {
    auto const *const model = static_cast<wxDataViewVirtualListModel *>(m_table->GetModel());
    wxVariant name;
    wxVariant kind;
    wxVariant frames;
    model->GetValueByRow(name, row, 0);
    model->GetValueByRow(kind, row, 1);
    model->GetValueByRow(frames, row, 2);
    wxDataViewIconText text;
    text << name;
    return (text.GetText() + " | " + kind.GetString() + " | " + frames.GetString()).utf8_string();
  }

  int RowCount() const {
    return static_cast<int>(
        static_cast<wxDataViewVirtualListModel *>(m_table->GetModel())->GetCount());
  }

  int TopRow() const {
    auto const *const model = static_cast<wxDataViewVirtualListModel *>(m_table->GetModel());
    return static_cast<int>(model->GetRow(m_table->GetTopItem()));
  }

  void Show(ToolDriver &driver) {
    m_list->SetObjects(driver.Tool().AnnotationObjects());
    Idle();
  }

  ToolDriver m_driver{100};
  ObjectList *m_list = nullptr;
  wxDataViewCtrl *m_table = nullptr;
  std::vector<int> m_chosen;
};

using Indices = std::vector<int>;

TEST_F(ObjectListOnAWindow, NamesObjectsByTextOrByKindAndPlace) {
  m_driver.DrawShape({10, 10}, {60, 60});
  DrawOfKind(m_driver, Types::Text, {70, 10}, {120, 60});
  m_driver.DrawArrow({10, 70}, {60, 120});
  IAnnotationObject &arrow = *m_driver.Object(0);
  arrow.SetEndFrame(24);
  Show(m_driver);
  ASSERT_EQ(RowCount(), 3);
  EXPECT_EQ(RowText(0), "Arrow 1 | Arrow | 0 \u2013 24");
  EXPECT_EQ(RowText(1), "abc | Text | 0");
  EXPECT_EQ(RowText(2), "Shape 3 | Shape | 0");
}

TEST_F(ObjectListOnAWindow, CutsALongTextBetweenWords) {
  DrawOfKind(m_driver, Types::Text, {70, 10}, {120, 60});
  auto &text = dynamic_cast<AnnText &>(*m_driver.Object(0));
  text.SetTextAndParse("The man in the red coat walks\tto the second car", {});
  Show(m_driver);
  EXPECT_EQ(RowText(0), "The man in the red coat walks to the\u2026 | Text | 0");
}

TEST_F(ObjectListOnAWindow, TellsWhatTheKeysChoose) {
  for (int i = 0; i < 3; ++i) m_driver.DrawShape({10 + 50 * i, 10}, {50 + 50 * i, 60});
  Show(m_driver);
  m_list->SetSelected(0);
  m_frame->Raise();
  m_table->SetFocus();
  Idle();
  EXPECT_TRUE(m_chosen.empty());
  Key(WXK_DOWN);
  EXPECT_EQ(m_chosen, Indices({1}));
  Key(WXK_DOWN);
  EXPECT_EQ(m_chosen, Indices({1, 2}));
  EXPECT_EQ(m_list->Selected(), 2);
}

TEST_F(ObjectListOnAWindow, WhatItIsToldIsNotTheUsersChoice) {
  for (int i = 0; i < 3; ++i) m_driver.DrawShape({10 + 50 * i, 10}, {50 + 50 * i, 60});
  Show(m_driver);
  m_list->SetSelected(2);
  Idle();
  EXPECT_EQ(m_table->GetSelectedItemsCount(), 1);
  m_list->SetSelected(7);
  Idle();
  EXPECT_EQ(m_list->Selected(), -1);
  EXPECT_EQ(m_table->GetSelectedItemsCount(), 0);
  m_list->SetSelected(1);
  m_list->SetObjects({});
  Idle();
  EXPECT_EQ(m_list->Selected(), -1);
  EXPECT_TRUE(m_chosen.empty());
}

TEST_F(ObjectListOnAWindow, KeepsItsPlaceAndSelectionWhenObjectsCome) {
  m_driver.DrawShape({10, 10}, {50, 60});
  AnnotationTool::ObjectList objects(200, m_driver.Object(0));
  m_list->SetObjects(objects);
  // GTK lays new rows out when it is idle, and then stops a scrolling that has begun.
  for (int i = 0; i < 15; ++i) Idle();
  m_list->SetSelected(150);
  // It scrolls smoothly; with 400 pixels of height some rows above are seen too.
  EXPECT_TRUE(Settle([this] { return TopRow() > 120; })) << TopRow();
  int before = -1;
  Settle([&] {
    Idle();
    return std::exchange(before, TopRow()) == before;
  });
  int const top = TopRow();
  objects.push_front(m_driver.Object(0));
  m_list->SetObjects(objects);
  Idle();
  EXPECT_EQ(RowCount(), 201);
  EXPECT_EQ(TopRow(), top);
  EXPECT_EQ(m_list->Selected(), 150);
  EXPECT_EQ(m_table->GetSelectedItemsCount(), 1);
  EXPECT_TRUE(m_chosen.empty());
}

TEST_F(ObjectListOnAWindow, ScreenReadersFindItsName) {
  auto const accessibleOf =
      reinterpret_cast<void *(*)(void *)>(dlsym(RTLD_DEFAULT, "gtk_widget_get_accessible"));
  auto const nameOf =
      reinterpret_cast<char const *(*)(void *)>(dlsym(RTLD_DEFAULT, "atk_object_get_name"));
  ASSERT_NE(accessibleOf, nullptr);
  ASSERT_NE(nameOf, nullptr);
  // Of the widget that takes the focus, which another one scrolls.
  EXPECT_STREQ(nameOf(accessibleOf(m_table->GtkGetTreeView())), "Objects");
}

TEST_F(ObjectListOnAWindow, IsCheapWithTenThousandObjects) {
  m_driver.DrawShape({10, 10}, {50, 60});
  AnnotationTool::ObjectList many(10000, m_driver.Object(0));
  m_list->SetObjects(many);
  Idle();
  many.push_back(m_driver.Object(0));
  ProcessorTime const watch;
  for (int i = 0; i < 10; ++i) {
    m_driver.Object(0)->SetEndFrame(i);
    m_list->SetObjects(many);
    wxYield();
  }
  EXPECT_EQ(RowCount(), 10001);
  // Some ten milliseconds each here; generous for slow machines and sanitizers.
  EXPECT_LT(watch.Seconds(), 10.0);
  RecordProperty("milliseconds", static_cast<int>(1000 * watch.Seconds()));
}

}  // namespace

}  // namespace framenote::test
