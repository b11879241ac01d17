// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include "framenote/export.h"
#include "objects/annotation_object.h"

namespace framenote {

/// What the kinds with a geometry store of their own have in common: the mode they came from, the
/// record of their look, the store, and every operation that treats a point record as a whole.
///
/// `Kind` is the concrete class, `Mode` its tool mode, `Properties` its look and `Store` its
/// per-frame coordinates. The bodies are in recorded_object_impl.h, which only the sources of the
/// concrete kinds include: they alone need the mode's complete type.
template <class Kind, class Mode, class Properties, class Store>
class FRAMENOTE_API RecordedObject : public IAnnotationObject {
public:
  // The operations of IAnnotationObject that take a record as a whole.
  void MoveFor(wxPoint2DInt const &delta) override;           ///< in the current frame's own record
  void MoveAllFramesFor(wxPoint2DInt const &delta) override;  ///< each record once
  void UpdateProperties() override;                           ///< a copy of the mode's record
  void OnSelection(bool isNew) override;                      ///< by way of the mode
  void UpdateCoordinatesPointers(std::int64_t frame) override;                ///< that of the store
  void DuplicateLastCoordinates(std::int64_t frame) override;                 ///< that of the store
  void UpdateStartEndCoordinates(std::int64_t frame, bool isStart) override;  ///< that of the store
  bool AreCoordinatesEmpty(std::int64_t frame) override;                      ///< that of the store
  std::int64_t GetRecentlyUpdatedCoordsFrame() const override;                ///< that of the store
  void SetCopiedObject() const override;                      ///< by way of the mode
  void Paste() const override;                                ///< by way of the mode
  void OnObjectModified() override;                           ///< by the store's array
  void OnVideoLengthIncreased(std::int64_t length) override;  ///< the store grows

protected:
  /// one run's record
  using Points = std::decay_t<decltype(std::declval<Store &>().CoordsEditable())>;

  /// A new object with the look of the mode's record. `makeStore` gets the frame count and the
  /// look, and returns the store.
  template <class MakeStore>
  RecordedObject(std::shared_ptr<Mode> const &mode, std::int64_t frame, MakeStore const &makeStore);
  /// A restored object; without "Properties" it takes the look of the mode's record.
  template <class MakeStore>
  RecordedObject(std::shared_ptr<Mode> const &mode, wxJSONValue const &json,
                 MakeStore const &makeStore);
  /// A copy shares nothing with `other` but its modes.
  RecordedObject(RecordedObject const &other);
  ~RecordedObject() override;

  /// Head of each edit. A selected object can be edited outside its range; the range then grows to
  /// the current frame, as it does when the position moves, so that the edit starts from the
  /// object's form and is kept.
  void growToCurrentFrame();
  /// The one way to edit a frame: lock, give the frame a record of its own, change it, mark it.
  template <class Change>
  void editCurrentFrame(Change const &change);
  /// A copy of the current record, taken under the lock; none if the frame has no record.
  std::optional<Points> currentRecord() const;
  /// Derives the cached points of the current record anew, if there is one.
  template <class Derive>
  void deriveCurrentRecord(Derive const &derive);
  /// The rectangle over all runs of the object: `bounds` gives that of a record. The empty
  /// rectangle at the origin takes part in the sum.
  template <class Bounds>
  wxRect sumOverRuns(Bounds const &bounds);
  /// How far from a handle it is still hit, in picture pixels: 15 on the screen, but not less than
  /// `least`.
  double handleTolerance(double least) const;
  /// Completes the mirror of a new object.
  void initJSONValOfNewObject();
  void setJSONValProperties();   ///< brings "Properties" of the mirror up to date
  void setJSONValCoordinates();  ///< brings "Coordinates" of the mirror up to date

  std::shared_ptr<Mode> m_toolMode;  ///< never null
  Properties m_properties;           ///< the look
  Store m_coordinates;               ///< the geometry in every frame
};

}  // namespace framenote
