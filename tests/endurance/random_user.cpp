// SPDX-License-Identifier: MIT
#include "endurance/random_user.h"

#include <algorithm>
#include <iterator>

#include <wx/dcmemory.h>
#include <wx/textctrl.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_shape.h"
#include "objects/annotation_object.h"

namespace framenote::test {

namespace {

using Edit = RandomUser::Edit;

constexpr int kWidth = 400;
constexpr int kHeight = 300;
constexpr int kKinds = 7;

/// The control in which a text is edited; null if there is none.
wxTextCtrl *EditorOn(wxWindow &window) {
  for (wxWindow *const child : window.GetChildren()) {
    if (auto *const editor = dynamic_cast<wxTextCtrl *>(child)) return editor;
  }
  return nullptr;
}

}  // namespace

RandomUser::RandomUser(AnnotationTool &tool, std::int64_t frameCount, std::size_t objects)
    : m_tool(tool),
      m_frameCount(frameCount),
      m_objects(objects),
      m_picturePath(wxFileName::CreateTempFileName("framenote")),
      m_window(new wxFrame(nullptr, wxID_ANY, "")),  // owned by this user, which destroys it
      m_canvas(kWidth, kHeight, 24),
      m_goTo([this](std::int64_t frame) {
        m_tool.UpdateMediaInfo({frame, m_frameCount, false});
      }) {
  wxImage(30, 20).SaveFile(m_picturePath, wxBITMAP_TYPE_PNG);
  paint();
}

RandomUser::~RandomUser() {
  m_tool.Deactivate();
  m_window->Destroy();
  wxRemoveFile(m_picturePath);
}

int RandomUser::below(int limit) {
  return static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

wxPoint RandomUser::somewhere() {
  int const x = 10 + below(kWidth - 20);
  return {x, 10 + below(kHeight - 20)};
}

void RandomUser::mouse(wxEventType type, wxPoint const &at) {
  m_tool.ProcessMouseEvent(at, wxMouseEvent(type), 1.0, wxPoint2DDouble(0.0, 0.0));
}

void RandomUser::drag(wxPoint const &from, wxPoint const &to) {
  mouse(wxEVT_MOTION, from);
  mouse(wxEVT_LEFT_DOWN, from);
  mouse(wxEVT_MOTION, (from + to) / 2);
  mouse(wxEVT_MOTION, to);
  mouse(wxEVT_LEFT_UP, to);
}

wxPoint RandomUser::held() const {
  wxPoint2DInt const point = m_tool.GetSelectedObject()->GetPastePoint();
  return {point.m_x, point.m_y};
}

void RandomUser::run(AnnotationCommand command) {
  wxCommandEvent event(wxEVT_MENU, static_cast<int>(command));
  m_tool.onPopupClick(event);
}

bool RandomUser::selectSome() {
  std::size_t const count = m_tool.AnnotationObjects().size();
  if (count > 0) m_tool.SelectObject(static_cast<std::size_t>(below(static_cast<int>(count))));
  return m_tool.GetSelectedObject() != nullptr;
}

void RandomUser::Act() {
  std::size_t const count = m_tool.AnnotationObjects().size();
  auto edit = static_cast<Edit>(below(static_cast<int>(kEdits)));
  bool const isTooMany = count > m_objects + m_objects / 10;
  if (isTooMany && (edit == Edit::Draw || edit == Edit::Duplicate)) edit = Edit::Delete;
  bool const isTooFew = count + m_objects / 10 < m_objects;
  if (isTooFew && (edit == Edit::Delete || edit == Edit::Duplicate)) edit = Edit::Draw;
  if (perform(edit)) ++m_counts[static_cast<std::size_t>(edit)];
}

void RandomUser::Settle() {
  while (m_tool.AnnotationObjects().size() < m_objects) draw();
  while (m_tool.AnnotationObjects().size() > m_objects) remove();
  m_tool.Deactivate();
}

bool RandomUser::perform(Edit edit) {
  switch (edit) {
    case Edit::Draw:
      return draw();
    case Edit::Move:
      return move();
    case Edit::Drag:
      return dragSelected();
    case Edit::Turn:
      return turn();
    case Edit::Look:
      return changeLook();
    case Edit::Type:
      return type();
    case Edit::Range:
      return changeRange();
    case Edit::Order:
      return changeOrder();
    case Edit::Duplicate:
      return duplicate();
    case Edit::Delete:
      return remove();
    case Edit::Frame:
      return stepFrame();
    case Edit::Paint:
      return paint();
  }
  return false;
}

/// By the mouse; a text gets its words in the editor that opens.
bool RandomUser::draw() {
  m_tool.Deactivate();
  auto const kind = static_cast<Types>(static_cast<int>(Types::Shape) + below(kKinds));
  std::size_t const before = m_tool.AnnotationObjects().size();
  if (kind == Types::Image) {
    AnnImageToolMode &mode = *m_tool.GetToolModes().image;
    mode.SetPicture(m_picturePath);
    mode.m_properties->SetFileName(wxFileName(m_picturePath));
  }
  m_tool.SetActiveTool(kind);
  // No motion before it: a press then draws, also where an object lies.
  wxPoint const from = somewhere();
  mouse(wxEVT_LEFT_DOWN, from);
  for (int i = 1; i <= 5; ++i) {
    mouse(wxEVT_MOTION, from + wxPoint(i * (6 + below(6)), i * 6 + below(7)));
  }
  mouse(wxEVT_LEFT_UP, from + wxPoint(60, 40));
  if (wxTextCtrl *const editor = EditorOn(*m_window)) {
    editor->SetValue(wxString::Format("text %d", below(1000)));
  }
  m_tool.Deactivate();
  return m_tool.AnnotationObjects().size() > before;
}

/// Towards the middle on the whole, or all would leave the picture in time.
bool RandomUser::move() {
  if (!selectSome()) return false;
  wxPoint const way = (somewhere() - held()) / 4 + wxPoint(1, 0);
  m_tool.MoveSelected({way.x, way.y});
  return true;
}

/// Where an object is held it has a handle as a rule, and elsewhere it is moved.
bool RandomUser::dragSelected() {
  if (!selectSome()) return false;
  wxPoint const from = held() + (below(2) == 0 ? wxPoint() : wxPoint(25, 20));
  drag(from, from + wxPoint(below(21) - 10, below(21) - 10));
  return true;
}

bool RandomUser::turn() {
  if (!selectSome()) return false;
  auto *const shape = dynamic_cast<AnnShape *>(m_tool.GetSelectedObject());
  if (shape == nullptr) return false;
  shape->PrepareResizing();
  shape->Rotate(somewhere());
  shape->OnObjectModified();
  m_tool.OnJsonChanged();
  return true;
}

bool RandomUser::changeLook() {
  if (!selectSome()) return false;
  ToolModes const &modes = m_tool.GetToolModes();
  int const value = 1 + below(9);
  auto const part = static_cast<unsigned char>(20 * value);
  modes.shape->m_properties->SetFillColor(wxColour(part, 0, 0));
  modes.arrow->m_properties->SetThickness(value);
  modes.pencil->m_properties->SetThickness(value);
  modes.text->m_properties->SetFontColor(wxColour(part, part, part));
  modes.image->m_properties->SetTransparentColor(value % 2 == 0 ? AnnImageProperties::White
                                                                : AnnImageProperties::Black);
  modes.hide->m_properties->SetStrength(value);
  modes.magnify->m_properties->SetThickness(value);
  m_tool.GetActiveTool()->ApplyProperties();
  return true;
}

bool RandomUser::type() {
  if (!selectSome() || m_tool.GetActiveTool()->GetModeId() != Types::Text) return false;
  mouse(wxEVT_LEFT_DCLICK, held() + wxPoint(2, 2));
  wxTextCtrl *const editor = EditorOn(*m_window);
  if (editor == nullptr) return false;
  editor->SetValue(wxString::Format("words %d\nand more", below(1000)));
  m_tool.Deactivate();
  return true;
}

bool RandomUser::changeRange() {
  if (!selectSome()) return false;
  std::int64_t const frame = m_tool.GetMediaInfo().frameIndex;
  m_tool.SetSelectedsAnnotationStart(std::max<std::int64_t>(frame - below(5), 0));
  m_tool.SetSelectedsAnnotationEnd(std::min<std::int64_t>(frame + below(5), m_frameCount - 1));
  return true;
}

bool RandomUser::changeOrder() {
  if (!selectSome()) return false;
  run(static_cast<AnnotationCommand>(static_cast<int>(AnnotationCommand::BringToFront) + below(4)));
  return true;
}

bool RandomUser::duplicate() {
  if (!selectSome()) return false;
  run(AnnotationCommand::Copy);
  mouse(wxEVT_MOTION, somewhere());
  run(AnnotationCommand::Paste);
  return true;
}

/// In a frame that the object is in.
bool RandomUser::remove() {
  auto const &objects = m_tool.AnnotationObjects();
  if (objects.empty()) return false;
  int const index = below(static_cast<int>(objects.size()));
  IAnnotationObject const &chosen = **std::next(objects.begin(), index);
  m_tool.Deactivate();
  if (!chosen.IsPresentInFrame(m_tool.GetMediaInfo().frameIndex)) m_goTo(chosen.GetStartFrame());
  m_tool.SelectObject(static_cast<std::size_t>(index));
  if (m_tool.GetSelectedObject() == nullptr) return false;
  run(AnnotationCommand::Delete);
  return true;
}

bool RandomUser::stepFrame() {
  m_goTo(below(static_cast<int>(m_frameCount)));
  return true;
}

bool RandomUser::paint() {
  wxMemoryDC dc(m_canvas);
  m_tool.Draw(dc, m_window, {0.0, 0.0}, 1.0);
  return true;
}

}  // namespace framenote::test
