// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "objects/boxed_object.h"
#include "objects/recorded_object_impl.h"

namespace framenote {

template <class Kind, class Mode, class Properties>
BoxedObject<Kind, Mode, Properties>::BoxedObject(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                                                 std::shared_ptr<Mode> const &mode,
                                                 wxRect const &rect, std::int64_t frame)
    : AnnShape(shapeMode, rect, frame),
      m_kindMode(mode),
      m_look(*mode->m_properties),
      m_outerJsonVal(wxJSONTYPE_OBJECT) {}

template <class Kind, class Mode, class Properties>
BoxedObject<Kind, Mode, Properties>::BoxedObject(std::shared_ptr<AnnShapeToolMode> const &shapeMode,
                                                 std::shared_ptr<Mode> const &mode,
                                                 wxJSONValue const &json)
    : AnnShape(shapeMode, json.ItemAt(rectangleKey)),
      m_kindMode(mode),
      m_look(json.Get(propertiesKey, mode->m_properties->ToJSON())),
      m_outerJsonVal(json) {}

template <class Kind, class Mode, class Properties>
BoxedObject<Kind, Mode, Properties>::BoxedObject(BoxedObject const &) = default;

template <class Kind, class Mode, class Properties>
BoxedObject<Kind, Mode, Properties>::~BoxedObject() = default;

template <class Kind, class Mode, class Properties>
bool BoxedObject<Kind, Mode, Properties>::IsJSONValid(wxJSONValue const &json) {
  return json.IsValid() && json.HasMember(rectangleKey) &&
         AnnShape::IsJSONValid(json.ItemAt(rectangleKey));
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::OnSelection(bool isNew) {
  m_selected = true;
  *m_kindMode->m_properties = m_look;
  m_kindMode->NotifyObjectSelected(isNew);
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::SetCopiedObject() const {
  m_kindMode->StoreCopiedObject(std::make_unique<Kind>(static_cast<Kind const &>(*this)));
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::Paste() const {
  m_kindMode->InsertPastedObject(std::make_unique<Kind>(static_cast<Kind const &>(*this)));
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::OnObjectModified() {
  AnnShape::OnObjectModified();
  setJSONValRectangle();
}

template <class Kind, class Mode, class Properties>
wxJSONValue const &BoxedObject<Kind, Mode, Properties>::ToJSON() const {
  return m_outerJsonVal;
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::setRectangleLook(AnnShapeProperties::Shape shape,
                                                           wxColour const &border,
                                                           wxColour const &fill, int thickness) {
  m_properties.SetThickness(thickness);
  m_properties.SetBorderColor(border);
  m_properties.SetFillColor(fill);
  m_properties.SetShape(shape);
  setJSONValProperties();
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::initMirrorOfNewObject() {
  m_outerJsonVal.Set(idKey, static_cast<int>(m_kindMode->GetModeId()));
  setJSONValLook();
  setJSONValRectangle();
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::setJSONValLook() {
  m_outerJsonVal.Set(propertiesKey, m_look.ToJSON());
}

template <class Kind, class Mode, class Properties>
void BoxedObject<Kind, Mode, Properties>::setJSONValRectangle() {
  m_outerJsonVal.Set(rectangleKey, m_jsonVal);
}

}  // namespace framenote
