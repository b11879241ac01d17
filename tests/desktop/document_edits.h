// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "support/objects_of_kinds.h"

namespace framenote::test {

/// What a user does to an object, in this order.
enum class Edit { Draw, Move, Resize, Turn, Look, Range, Delete };

/// An edit, and what the menu calls it.
struct NamedEdit {
  Edit edit;
  char const *name;
};

inline std::vector<NamedEdit> EditsOf(Types type) {
  switch (type) {
    case Types::Shape:
      return {{Edit::Draw, "add rectangle"},
              {Edit::Move, "move rectangle"},
              {Edit::Resize, "resize rectangle"},
              {Edit::Turn, "rotate rectangle"},
              {Edit::Look, "change look of rectangle"},
              {Edit::Range, "change range of rectangle"},
              {Edit::Delete, "delete rectangle"}};
    case Types::Arrow:
      return {{Edit::Draw, "add arrow"},
              {Edit::Move, "move arrow"},
              {Edit::Resize, "reshape arrow"},
              {Edit::Look, "change look of arrow"},
              {Edit::Range, "change range of arrow"},
              {Edit::Delete, "delete arrow"}};
    case Types::Pencil:
      return {{Edit::Draw, "draw stroke"},
              {Edit::Move, "move stroke"},
              {Edit::Look, "change look of stroke"},
              {Edit::Range, "change range of stroke"},
              {Edit::Delete, "delete stroke"}};
    case Types::Text:
      return {{Edit::Draw, "add text"},
              {Edit::Move, "move text"},
              {Edit::Resize, "resize text"},
              {Edit::Turn, "rotate text"},
              {Edit::Look, "change look of text"},
              {Edit::Range, "change range of text"},
              {Edit::Delete, "delete text"}};
    case Types::Image:
      return {{Edit::Draw, "add picture"},
              {Edit::Move, "move picture"},
              {Edit::Resize, "resize picture"},
              {Edit::Turn, "rotate picture"},
              {Edit::Look, "change look of picture"},
              {Edit::Range, "change range of picture"},
              {Edit::Delete, "delete picture"}};
    case Types::Hide:
      return {{Edit::Draw, "add hide region"},
              {Edit::Move, "move hide region"},
              {Edit::Resize, "resize hide region"},
              {Edit::Turn, "rotate hide region"},
              {Edit::Look, "change look of hide region"},
              {Edit::Range, "change range of hide region"},
              {Edit::Delete, "delete hide region"}};
    case Types::Magnify:
      return {{Edit::Draw, "add magnifier"},
              {Edit::Move, "move magnifier"},
              {Edit::Resize, "resize magnifier"},
              {Edit::Turn, "rotate magnifier"},
              {Edit::Look, "change look of magnifier"},
              {Edit::Range, "change range of magnifier"},
              {Edit::Delete, "delete magnifier"}};
    default:
      return {};
  }
}

/// A tool on a picture of 400 by 300, in a video of ten frames, with a user's hands.
class EditedTool {
public:
  EditedTool() { Tool().SetImage(wxImage(400, 300), true); }

  ToolDriver &Driver() { return m_driver; }
  AnnotationTool &Tool() { return m_driver.Tool(); }
  wxJSONValue const &Document() { return Tool().GetJSON(); }

  /// Draws an object of a kind; it stays selected.
  void Draw(Types type, wxPoint const &from, wxPoint const &to) {
    if (type == Types::Image) {  // its file has to be there when the object is restored
      m_driver.UseTool(type);
      m_driver.Drag(from, to);
    } else {
      DrawOfKind(m_driver, type, from, to);
      m_driver.UseTool(type);
    }
    Tool().OnJsonChanged();
  }
  void Move(wxPoint2DInt const &delta) {
    m_driver.Selected()->MoveFor(delta);
    FinishEdit();
  }
  void Turn() {
    auto &shape = dynamic_cast<AnnShape &>(*m_driver.Selected());
    shape.PrepareResizing();
    shape.Rotate({300, 150});
    FinishEdit();
  }
  /// Gives the selected object another look, as the property panel does.
  void ChangeLook(Types type, int value) {
    ToolModes const &modes = Tool().GetToolModes();
    auto const part = static_cast<unsigned char>(value);
    modes.shape->m_properties->SetThickness(value);
    modes.arrow->m_properties->SetThickness(value);
    modes.pencil->m_properties->SetThickness(value);
    modes.text->m_properties->SetFontColor(wxColour(part, part, part));
    modes.image->m_properties->SetTransparentColor(value % 2 == 0 ? AnnImageProperties::White
                                                                  : AnnImageProperties::Black);
    modes.hide->m_properties->SetStrength(value);
    modes.magnify->m_properties->SetThickness(value);
    modes.Of(type)->ApplyProperties();
  }
  void Run(AnnotationCommand command) {
    wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
    Tool().onPopupClick(event);
  }

  void Perform(Types type, Edit edit) {
    switch (edit) {
      case Edit::Draw:
        return Draw(type, {100, 100}, {200, 160});
      case Edit::Move:
        return Move({7, 5});
      case Edit::Resize:
        m_driver.Move(207, 165);
        return m_driver.Drag({207, 165}, {227, 195});
      case Edit::Turn:
        return Turn();
      case Edit::Look:
        return ChangeLook(type, 7);
      case Edit::Range:
        return Tool().SetSelectedsAnnotationEnd(4);
      case Edit::Delete:
        return Run(AnnotationCommand::Delete);
    }
  }

  /// What the end of a gesture does.
  void FinishEdit() {
    m_driver.Selected()->OnObjectModified();
    Tool().OnJsonChanged();
  }

private:
  ToolDriver m_driver{10};
  PictureToPaste m_picture{*m_driver.Tool().GetToolModes().image};
};

}  // namespace framenote::test
