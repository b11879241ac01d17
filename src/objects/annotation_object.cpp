// SPDX-License-Identifier: MIT
#include "objects/annotation_object.h"

#include "coordinates/pixel_geometry.h"

IAnnotationObject::IAnnotationObject(std::int64_t frame)
    : m_defaultColor(*wxBLACK),
      m_startFrame(frame),
      m_endFrame(frame),
      m_jsonVal(wxJSONTYPE_OBJECT) {
  initJSONVal();
}

IAnnotationObject::IAnnotationObject(wxJSONValue const &json)
    : m_defaultColor(*wxBLACK),
      m_startFrame(json.Get(startFrameKey, 0).AsInt64()),
      m_endFrame(json.Get(endFrameKey, 0).AsInt64()),
      m_jsonVal(json) {
  initJSONVal();
}

IAnnotationObject::IAnnotationObject(IAnnotationObject const &other) = default;
IAnnotationObject::~IAnnotationObject() = default;

void IAnnotationObject::SetStartFrame(std::int64_t frame) {
  UpdateStartEndCoordinates(frame, true);
  m_startFrame = frame;
  setJSONValStartFrame();
  if (m_endFrame < m_startFrame) SetEndFrame(m_startFrame);
  m_containingRectValid = false;
}

void IAnnotationObject::SetEndFrame(std::int64_t frame) {
  UpdateStartEndCoordinates(frame, false);
  m_endFrame = frame;
  setJSONValEndFrame();
  if (m_endFrame < m_startFrame) SetStartFrame(m_endFrame);
  m_containingRectValid = false;
}

void IAnnotationObject::OnObjectModified() {}

wxJSONValue const &IAnnotationObject::ToJSON() const {
  return m_jsonVal;
}

std::pair<std::int64_t, std::int64_t> IAnnotationObject::GetFrameDuration() const {
  return {m_startFrame, m_endFrame};
}

bool IAnnotationObject::IsPresentInFrame(std::int64_t frame) const {
  return m_startFrame <= frame && frame <= m_endFrame;
}

wxRect IAnnotationObject::GetContainingRect() {
  if (!m_containingRectValid) {
    findContainingRect();
    m_containingRectValid = true;
  }
  return m_containingRect;
}

wxPoint IAnnotationObject::GetRounded(wxPoint2DDouble const &point) {
  return framenote::RoundToPixel(point);
}

int IAnnotationObject::GetPointMarkerRadiusWithTolerance(double tolerance) {
  return framenote::TruncateToInt(tolerance * m_pointMarkerRadius);
}

void IAnnotationObject::initJSONVal() {
  setJSONValStartFrame();
  setJSONValEndFrame();
}

void IAnnotationObject::setJSONValStartFrame() {
  m_jsonVal.Set(startFrameKey, m_startFrame);
}

void IAnnotationObject::setJSONValEndFrame() {
  m_jsonVal.Set(endFrameKey, m_endFrame);
}
