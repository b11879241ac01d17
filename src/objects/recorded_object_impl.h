// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <mutex>

#include "coordinates/pixel_geometry.h"
#include "objects/recorded_object.h"

namespace framenote {

template <class Kind, class Mode, class Properties, class Store>
template <class MakeStore>
RecordedObject<Kind, Mode, Properties, Store>::RecordedObject(std::shared_ptr<Mode> const &mode,
                                                              std::int64_t frame,
                                                              MakeStore const &makeStore)
    : IAnnotationObject(frame),
      m_toolMode(mode),
      m_properties(*mode->m_properties),
      m_coordinates(makeStore(mode->GetToolFrameCount(), m_properties)) {}

template <class Kind, class Mode, class Properties, class Store>
template <class MakeStore>
RecordedObject<Kind, Mode, Properties, Store>::RecordedObject(std::shared_ptr<Mode> const &mode,
                                                              wxJSONValue const &json,
                                                              MakeStore const &makeStore)
    : IAnnotationObject(json),
      m_toolMode(mode),
      m_properties(json.Get(propertiesKey, mode->m_properties->ToJSON())),
      m_coordinates(makeStore(mode->GetToolFrameCount(), m_properties)) {
  setJSONValProperties();
}

template <class Kind, class Mode, class Properties, class Store>
RecordedObject<Kind, Mode, Properties, Store>::RecordedObject(RecordedObject const &) = default;

template <class Kind, class Mode, class Properties, class Store>
RecordedObject<Kind, Mode, Properties, Store>::~RecordedObject() = default;

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::growToCurrentFrame() {
  std::int64_t const frame = m_toolMode->GetToolCurrentFrame();
  if (frame < m_startFrame) SetStartFrame(frame);
  if (frame > m_endFrame) SetEndFrame(frame);
}

template <class Kind, class Mode, class Properties, class Store>
template <class Change>
void RecordedObject<Kind, Mode, Properties, Store>::editCurrentFrame(Change const &change) {
  growToCurrentFrame();
  {
    std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
    m_coordinates.AddNewCoordinates(m_toolMode->GetToolCurrentFrame());
    change(m_coordinates.CoordsEditable());
    m_coordinates.SetCoordinatesNotUpdatedInJson();
  }
  m_containingRectValid = false;
}

template <class Kind, class Mode, class Properties, class Store>
template <class Derive>
void RecordedObject<Kind, Mode, Properties, Store>::deriveCurrentRecord(Derive const &derive) {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  if (!m_coordinates.AreCurrentCoordinatesEmpty()) derive(m_coordinates.CoordsEditable());
}

template <class Kind, class Mode, class Properties, class Store>
template <class Bounds>
wxRect RecordedObject<Kind, Mode, Properties, Store>::sumOverRuns(Bounds const &bounds) {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  wxRect sum;
  m_coordinates.ForEachRun(
      m_startFrame, m_endFrame,
      [&](std::int64_t, std::int64_t, Points const &record) { sum += bounds(record); });
  return sum;
}

template <class Kind, class Mode, class Properties, class Store>
auto RecordedObject<Kind, Mode, Properties, Store>::currentRecord() const -> std::optional<Points> {
  std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
  if (m_coordinates.AreCurrentCoordinatesEmpty()) return std::nullopt;
  return m_coordinates.Coords();
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::MoveFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt(0, 0)) return;
  editCurrentFrame([&](Points &record) { MoveRecord(record, delta); });
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::MoveAllFramesFor(wxPoint2DInt const &delta) {
  if (delta == wxPoint2DInt(0, 0)) return;
  m_coordinates.MoveAllCoordsFor(delta);
  {
    std::lock_guard<std::mutex> const lock(m_coordinates.GetMutex());
    m_coordinates.SetCoordinatesNotUpdatedInJson();
  }
  m_containingRectValid = false;
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::UpdateProperties() {
  m_properties = *m_toolMode->m_properties;
  setJSONValProperties();
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::OnSelection(bool isNew) {
  m_selected = true;
  *m_toolMode->m_properties = m_properties;
  m_toolMode->NotifyObjectSelected(isNew);
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::UpdateCoordinatesPointers(std::int64_t frame) {
  m_coordinates.UpdateCoordinatesPointers(frame);
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::DuplicateLastCoordinates(std::int64_t frame) {
  if (frame > m_startFrame) m_coordinates.DuplicateLastCoordinates(frame);
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::UpdateStartEndCoordinates(std::int64_t frame,
                                                                              bool isStart) {
  m_coordinates.UpdateStartEndCoordinates(m_startFrame, m_endFrame, frame, isStart);
}

template <class Kind, class Mode, class Properties, class Store>
bool RecordedObject<Kind, Mode, Properties, Store>::AreCoordinatesEmpty(std::int64_t frame) {
  return m_coordinates.AreCoordinatesEmpty(frame);
}

template <class Kind, class Mode, class Properties, class Store>
std::int64_t RecordedObject<Kind, Mode, Properties, Store>::GetRecentlyUpdatedCoordsFrame() const {
  return m_coordinates.GetRecentlyUpdatedCoordsFrame();
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::SetCopiedObject() const {
  m_toolMode->StoreCopiedObject(std::make_unique<Kind>(static_cast<Kind const &>(*this)));
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::Paste() const {
  m_toolMode->InsertPastedObject(std::make_unique<Kind>(static_cast<Kind const &>(*this)));
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::OnObjectModified() {
  setJSONValCoordinates();
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::OnVideoLengthIncreased(std::int64_t length) {
  // The store may be longer already: the count can have fallen before, and a document can reach
  // past the media.
  m_coordinates.GrowCoordsVec(length);
}

template <class Kind, class Mode, class Properties, class Store>
double RecordedObject<Kind, Mode, Properties, Store>::handleTolerance(double least) const {
  constexpr double kOnScreen = 15.0;
  return std::max(kOnScreen / UsableScale(m_toolMode->GetToolScale()), least);
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::initJSONValOfNewObject() {
  setJSONValCoordinates();
  m_jsonVal.Set(idKey, static_cast<int>(m_toolMode->GetModeId()));
  setJSONValProperties();
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::setJSONValProperties() {
  m_jsonVal.Set(propertiesKey, m_properties.ToJSON());
}

template <class Kind, class Mode, class Properties, class Store>
void RecordedObject<Kind, Mode, Properties, Store>::setJSONValCoordinates() {
  m_coordinates.UpdateJSONValCoordinates(m_startFrame, m_endFrame);
  m_jsonVal.Set(coordinatesKey, m_coordinates.ToJSON());
}

}  // namespace framenote
