// SPDX-License-Identifier: MIT
// The document: how the annotations are stored, compared and restored.
#include "framenote/annotation_events.h"
#include "framenote/annotation_panel.h"
#include "framenote/annotation_tool.h"
#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_hide_tool_mode.h"
#include "modes/ann_image_tool_mode.h"
#include "modes/ann_magnify_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "modes/ann_text_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_hide.h"
#include "objects/ann_image.h"
#include "objects/ann_magnify.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "objects/ann_text.h"
#include "talbase/json_conversions.h"
#include "tool/document_budget.h"

namespace {

constexpr char const *kAnnotateKey = AnnotationJsonChangedEvent::m_annotateKey;
constexpr char const *kExtensionColorKey = "ExtensionColor";
constexpr char const *kObjectsKey = "Objects";

wxJSONValue ExtensionColorToJson(wxColour const &colour) {
  if (colour == wxNullColour) return wxJSONValue(wxJSONTYPE_NULL);
  return wxJSONValue(ToString(colour));
}

/// Whether a restored object is not worth keeping. A lens may only show nothing yet: what it shows
/// depends on the frame and on the picture, which a host may set later.
bool LeavesNoTrace(IAnnotationObject const &object) {
  auto const *const lens = dynamic_cast<AnnMagnify const *>(&object);
  return lens != nullptr ? lens->HasCollapsed() : object.WouldDisappear();
}

}  // namespace

void AnnotationTool::ToJSON(wxJSONValue &value) const {
  // In mid-gesture and while playing the selected object's value is behind: it has the new range,
  // and no geometry for it.
  bool const isBehind = framenote::IsHandling(m_state) || m_mediaInfo.isPlaying;
  if (isBehind && hasSelection()) (*m_selected)->OnObjectModified();
  if (panel() != nullptr) panel()->ToJSON(value);
  value.Set(kExtensionColorKey, ExtensionColorToJson(m_extensionColor));
  wxJSONValue objects(wxJSONTYPE_ARRAY);
  for (IAnnotationObject const *object : m_objects) objects.Append(object->ToJSON());
  value.Set(kObjectsKey, std::move(objects));
}

wxJSONValue const &AnnotationTool::GetJSON() const {
  return m_json;
}

void AnnotationTool::OnJsonChanged() {
  SendAnnotationFrameRangeChangedEvent();
  wxJSONValue json;
  ToJSON(json);
  if (json.IsSameAs(m_json)) return;
  m_json = json;
  post(AnnotationJsonChangedEvent(wxEVT_ANN_JSON_CHANGED, m_json));
}

void AnnotationTool::FromJSON(wxJSONValue const &document, std::int64_t frameCount) {
  destroyAllObjects();
  setDefaults();
  if (!document.IsValid()) return;
  wxJSONValue const annotate = document.ItemAt(kAnnotateKey);
  if (!annotate.IsValid()) return;
  m_mediaInfo.frameCount = frameCount;
  if (annotate.ItemAt(kExtensionColorKey).IsValid()) {
    m_extensionColor = FromString<wxColour>(
        annotate.Get(kExtensionColorKey, wxJSONValue(ToString(m_defaultExtensionColor)))
            .AsString());
  }
  if (panel() != nullptr) {
    panel()->FromJSON(annotate);
    panel()->setExtensionColor();
  }
  if (!annotate.HasMember(kObjectsKey)) return;
  readObjects(annotate.ItemAt(kObjectsKey));
  calculateAnnotationArea();
  OnJsonChanged();
}

void AnnotationTool::readObjects(wxJSONValue const &elements) {
  framenote::DocumentBudget budget(m_mediaInfo.frameCount);
  for (int i = 0; i < elements.Size(); ++i) {
    wxJSONValue const element = elements.ItemAt(i);
    if (!element.HasMember(IAnnotationObject::idKey) || !budget.HasRoomFor(element)) continue;
    budget.Spend(element);
    std::unique_ptr<IAnnotationObject> object = objectFromJSON(element);
    if (!object || LeavesNoTrace(*object)) continue;
    // To the back: the array starts with the top of the z-order.
    m_objects.push_back(object.release());  // owned by the list
  }
}

std::unique_ptr<IAnnotationObject> AnnotationTool::objectFromJSON(
    wxJSONValue const &element) const {
  switch (static_cast<Types>(element.ItemAt(IAnnotationObject::idKey).AsInt())) {
    case Types::Shape:
      if (!AnnShape::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnShape>(m_toolModes.shape, element);
    case Types::Arrow:
      if (!AnnArrow::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnArrow>(m_toolModes.arrow, element);
    case Types::Pencil:
      if (!AnnPencil::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnPencil>(m_toolModes.pencil, element);
    case Types::Text:
      if (!AnnText::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnText>(m_toolModes.shape, m_toolModes.text, element);
    case Types::Image:
      if (!AnnImage::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnImage>(m_toolModes.shape, m_toolModes.image, element);
    case Types::Hide:
      if (!AnnHide::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnHide>(m_toolModes.shape, m_toolModes.hide, element, m_image);
    case Types::Magnify:
      if (!AnnMagnify::IsJSONValid(element)) return nullptr;
      return std::make_unique<AnnMagnify>(m_toolModes.shape, m_toolModes.magnify, element, m_image);
    default:
      return nullptr;
  }
}

void AnnotationTool::CloneFrom(AnnotationTool &other) {
  other.onObjectsModified();
  takePicture(other.m_image);
  wxJSONValue document(wxJSONTYPE_OBJECT);
  document.Set(kAnnotateKey, other.m_json);
  FromJSON(document, other.m_mediaInfo.frameCount);
}
