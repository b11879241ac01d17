// SPDX-License-Identifier: MIT
#include "framenote/annotation_tool.h"

#include <algorithm>
#include <utility>

#include "framenote/annotation_events.h"
#include "framenote/annotation_panel.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_general_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_idle_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/annotation_object.h"

namespace {

constexpr std::size_t kMacroBuckets = 16;

ToolModes MakeModes(AnnotationTool *tool) {
  auto general = std::make_shared<AnnGeneralToolMode>(Types::General, tool);
  auto magnify = std::make_shared<AnnMagnifyToolMode>(Types::Magnify, tool);
  auto hide = std::make_shared<AnnHideToolMode>(Types::Hide, tool);
  auto image = std::make_shared<AnnImageToolMode>(Types::Image, tool);
  auto text = std::make_shared<AnnTextToolMode>(Types::Text, tool);
  auto pencil = std::make_shared<AnnPencilToolMode>(Types::Pencil, tool);
  auto arrow = std::make_shared<AnnArrowToolMode>(Types::Arrow, tool);
  auto shape = std::make_shared<AnnShapeToolMode>(Types::Shape, tool);
  auto idle = std::make_shared<AnnIdleToolMode>(Types::Idle, tool);
  return ToolModes(std::move(idle), std::move(shape), std::move(arrow), std::move(pencil),
                   std::move(text), std::move(image), std::move(hide), std::move(magnify),
                   std::move(general));
}

}  // namespace

AnnotationTool::AnnotationTool(AnnotationToolConfig const &config)
    : m_defaultExtensionColor(*wxWHITE), m_config(config), m_toolModes(MakeModes(this)) {
  setDefaults();
}

AnnotationTool::~AnnotationTool() {
  destroyAllObjects();
}

void AnnotationTool::setDefaults() {
  enterDefaultState();
  m_textMacros = std::unordered_map<wxString, wxString>(kMacroBuckets);
  m_activeTool = m_toolModes.idle;
  m_scale = 1.0;
  m_drawOn = nullptr;
  m_mediaInfo = AnnotationMediaInfo();
  m_visible = true;
  m_mouseEnabled = true;
  SetEvtHandlerEnabled(true);
  m_offset = wxPoint2DDouble(0.0, 0.0);
  m_extensionColor = m_defaultExtensionColor;
  m_copiedObject.reset();
  m_startFrames.clear();
  m_pressPosition = wxPoint2DInt(wxDefaultPosition);
  m_mousePosition = wxPoint2DInt(wxDefaultPosition);
  m_cursor = wxCURSOR_ARROW;
  m_annotationArea = wxRect();
  m_json = wxJSONValue();
}

void AnnotationTool::destroyAllObjects() {
  // An open editor belongs to the selected object, and goes before it.
  if (m_activeTool) m_activeTool->DiscardDrawing();
  // The list must not outlive its objects, whatever a host calls next.
  ObjectList doomed;
  doomed.swap(m_objects);
  m_focused = m_objects.end();
  m_selected = m_objects.end();
  for (IAnnotationObject *object : doomed) delete object;
}

// Whatever cuts a drag off takes this way to the default state, so that no half-drawn object is
// left in the mode.
void AnnotationTool::enterDefaultState() {
  if (m_activeTool) m_activeTool->DiscardDrawing();
  m_state = ToolState::Default;
}

AnnotationPanel *AnnotationTool::InitGui(wxWindow *parent, wxEvtHandler *sink,
                                         std::shared_ptr<AnnotationTool> self) {
  if (!self) self = shared_from_this();
  if (parent != nullptr) {
    AnnotationPanelConfig const config(m_config.showZoomMethod, m_config.showHideAll,
                                       m_config.extensionEnabled, &m_config.textMacros);
    m_panel = new AnnotationPanel(parent, self, config);  // owned by `parent`
  }
  // Stored last, so that events raised while the interface is being built reach nobody.
  m_eventSink = sink;
  return panel();
}

// Null once the panel is gone, or is going.
AnnotationPanel *AnnotationTool::panel() const {
  if (m_panel == nullptr || m_panel->IsBeingDeleted()) return nullptr;
  return dynamic_cast<AnnotationPanel *>(m_panel.get());
}

void AnnotationTool::UpdatePanelOnObjectSelected(Types mode) {
  UpdatePanelControls(mode);
  if (panel() != nullptr) panel()->DoToolToggle(mode);
}

void AnnotationTool::UpdatePanelControls(Types mode) {
  if (panel() != nullptr) panel()->UpdateControls(static_cast<int>(mode));
}

void AnnotationTool::OnAnnImageNotSet() {
  if (panel() != nullptr) panel()->OnAnnImageNotSet();
}

void AnnotationTool::UnlinkGui() {
  m_panel = nullptr;
}

void AnnotationTool::Deactivate() {
  if (m_activeTool) {
    m_activeTool->FinishEditing();
    m_activeTool->DiscardDrawing();
    SetActiveTool(Types::Idle);
  }
  changeFocusedToEnd();
  changeSelectedToEnd();
  enterDefaultState();
  Refresh();
}

void AnnotationTool::DeactivateToolAndControls() {
  Deactivate();
  if (panel() != nullptr) panel()->Deactivate();
}

void AnnotationTool::Reset(bool keepState) {
  destroyAllObjects();
  enterDefaultState();
  if (!keepState) setDefaults();
}

void AnnotationTool::EnableMouse(bool enable) {
  m_mouseEnabled = enable;
}

void AnnotationTool::SetObjectsVisible(bool visible) {
  if (panel() != nullptr) panel()->SetHideAllToggleValue(!visible);
  m_visible = visible;
  if (visible) {
    calculateAnnotationArea();
  } else {
    changeFocusedToEnd();
    changeSelectedToEnd();
    enterDefaultState();
    m_cursor = wxCURSOR_ARROW;
    m_annotationArea = wxRect();
  }
  Refresh();
}

void AnnotationTool::ClearAllAnnotations() {
  destroyAllObjects();
  enterDefaultState();
  m_startFrames.clear();
  m_cursor = wxCURSOR_ARROW;
  post(AnnotationObjectDeselectedEvent(wxEVT_ANN_OBJECT_DESELECTED));
  onObjectsModified();
}

bool AnnotationTool::IsEmpty() const {
  return m_objects.empty();
}

bool AnnotationTool::IsVisible() const {
  return m_visible;
}

bool AnnotationTool::IsIdle() const {
  return m_activeTool->IsIdle();
}

bool AnnotationTool::IsDefaultState() const {
  return m_state == ToolState::Default;
}

bool AnnotationTool::HasAnnotation(int frame) const {
  return std::any_of(m_objects.begin(), m_objects.end(), [frame](IAnnotationObject const *object) {
    return object->IsPresentInFrame(frame);
  });
}

AnnotationToolConfig const &AnnotationTool::GetConfig() const {
  return m_config;
}

AnnotationTool::ObjectList const &AnnotationTool::AnnotationObjects() const {
  return m_objects;
}

ToolState AnnotationTool::GetState() const {
  return m_state;
}

IAnnotationObject *AnnotationTool::GetSelectedObject() const {
  return hasSelection() ? *m_selected : nullptr;
}

wxStockCursor AnnotationTool::ProcessMouseEvent(wxPoint const &position, wxMouseEvent const &event,
                                                double scale, wxPoint2DDouble const &offset) {
  m_mousePosition = wxPoint2DInt(position);
  m_scale = scale;
  m_offset = offset;
  if (!m_activeTool || !m_visible || !m_mouseEnabled) return m_cursor;
  // An event may make another mode active, and a menu runs events of its own: what handles the
  // event must live until it returns.
  std::shared_ptr<AnnotationTool> const self = weak_from_this().lock();
  std::shared_ptr<IAnnotationToolMode> const mode = m_activeTool;
  switch (m_state) {
    case ToolState::Default:
      mode->OnMouseDefault(event);
      break;
    case ToolState::Drawing:
      mode->OnMouseDrawing(event);
      break;
    case ToolState::OverObject:
      mode->OnMouseOverObject(event);
      break;
    case ToolState::Selected:
      mode->OnMouseSelected(event);
      break;
    case ToolState::Moving:
      mode->OnMouseMoving(event);
      break;
    case ToolState::AtResizePoint:
      mode->OnMouseAtResizePoint(event);
      break;
    case ToolState::Resizing:
      mode->OnMouseResizing(event);
      break;
    case ToolState::AtRotationPoint:
      mode->OnMouseAtRotationPoint(event);
      break;
    case ToolState::Rotating:
      mode->OnMouseRotating(event);
      break;
    case ToolState::Editing:
      mode->OnMouseEditing(event);
      break;
  }
  return m_cursor;
}

void AnnotationTool::Refresh() {
  if (m_drawOn != nullptr) m_drawOn->Refresh(true, nullptr);
}

void AnnotationTool::SetActiveTool(Types mode) {
  if (mode != Types::General) SetActiveTool(m_toolModes.Of(mode));
}

void AnnotationTool::SetActiveTool(std::shared_ptr<IAnnotationToolMode> const &mode) {
  if (!mode) return;
  // The other mode knows nothing of the editor, so the tool must not stay in its state.
  if (mode != m_activeTool) commitEditing();
  m_activeTool = mode;
}

void AnnotationTool::commitEditing() {
  // An editor may be gone, with the window that it lay on, while the state has not changed yet.
  if (!m_activeTool || (!m_activeTool->IsEditing() && m_state != ToolState::Editing)) return;
  m_activeTool->FinishEditing();
  m_state = hasSelection() ? ToolState::Selected : ToolState::Default;
  onObjectsModified();
}

ToolModes const &AnnotationTool::GetToolModes() const {
  return m_toolModes;
}

std::shared_ptr<IAnnotationToolMode> const &AnnotationTool::GetActiveTool() const {
  return m_activeTool;
}
