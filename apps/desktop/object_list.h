// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

#include <wx/object.h>
#include <wx/panel.h>

#include "framenote/annotation_tool.h"

class wxDataViewCtrl;

/// The objects of a tool in a table: colour and name, kind, frames. It shows what it is told and
/// says which row the user wants; its owner decides, and tells it.
///
/// The table is the system's own, so that it is walked by keyboard and read by screen readers as
/// any other. An object is called by its text or else by its kind and its place in the z-order,
/// counted from 1, as in other messages of the host.
class ObjectList : public wxPanel {
public:
  explicit ObjectList(wxWindow *parent, wxWindowID id = wxID_ANY);
  ~ObjectList() override;

  /// Front of the z-order first. What is shown of the objects is copied; the rows in view stay in
  /// view, and the selected index stays as far as it is still there.
  void SetObjects(AnnotationTool::ObjectList const &objects);
  /// Brings the row into view if it was not the selected one; an unknown index selects none.
  void SetSelected(int index);
  int Selected() const { return m_selected; }
  /// Called with the index of a row that the user chose; -1 where none is left.
  void OnSelected(std::function<void(int)> handler) { m_onSelected = std::move(handler); }

private:
  class Model;

  void addColumns();
  void showSelection();
  void reveal();
  void onSelectionChanged();

  wxDataViewCtrl *m_table = nullptr;  // owned by the panel
  wxObjectDataPtr<Model> m_model;
  int m_selected = -1;
  bool m_isRevealDue = false;
  std::function<void(int)> m_onSelected;
};
