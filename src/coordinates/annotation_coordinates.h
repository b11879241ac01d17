// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include <wx/geometry.h>

#include "framenote/export.h"
#include "talbase/json_value.h"

/// The geometry of one object in every frame: a vector with one entry per frame, in which a run of
/// neighbouring frames with the same geometry shares one record of type `T`. An edit gives its
/// frame a record of its own and leaves the rest of the run alone. A null entry means no geometry.
///
/// The object owns its store by value. Records, the vector and the JSON are guarded by the store's
/// mutex. DuplicateLastCoordinates, UpdateStartEndCoordinates, UpdateJSONValCoordinates,
/// MoveAllCoordsFor and copying (on the source) take it themselves and must not be called with it
/// held; for everything else that touches records the caller holds it.
///
/// Frames outside the store are harmless everywhere: they read as empty, and nothing is written to
/// them but where a function says that it grows the store.
template <class T>
class FRAMENOTE_API IAnnotationCoordinates {
public:
  using FrameRange = std::pair<std::int64_t, std::int64_t>;  ///< first and last, inclusive

  static constexpr char const *coordinatesRangeKey = "Range";  ///< a run's member

  /// A store of `frameCount` frames with a default record in `frame`, which is current.
  IAnnotationCoordinates(std::int64_t frameCount, std::int64_t frame);
  /// An empty store that holds `json`, from which the derived store then reads its runs.
  IAnnotationCoordinates(wxJSONValue const &json, std::int64_t frameCount);
  /// Clones each record of `other` once, so that the copy shares as the source does, and nothing
  /// with the source.
  IAnnotationCoordinates(IAnnotationCoordinates const &other);
  IAnnotationCoordinates &operator=(IAnnotationCoordinates const &) = delete;
  virtual ~IAnnotationCoordinates();

  /// Makes `frame` the current frame.
  virtual void UpdateCoordinatesPointers(std::int64_t frame);
  /// Head of each edit: gives `frame` a record of its own, a copy of what it had or a default one,
  /// and makes it current. Nothing happens when that was done for `frame` the last time, which is
  /// what lets a drag of many mouse events work on one record. Grows the store to hold `frame`;
  /// a negative frame does nothing.
  virtual void AddNewCoordinates(std::int64_t frame);
  /// Lets `frame` share the record of the frame before it, unless it is the frame edited last.
  /// Grows the store by one entry if `frame` is the next one; else does nothing outside it.
  virtual void DuplicateLastCoordinates(std::int64_t frame);
  /// The start (`isStart`) or the end of an object that was present from `start` to `end` becomes
  /// `frame`: frames that join share the record of the old first or last frame, frames that leave
  /// become empty. If all leave, `frame` takes the record of the other end, and the call for that
  /// end, pushed along with `start` beyond `end`, changes nothing. The store does not grow, and the
  /// current frame stays, possibly empty.
  virtual void UpdateStartEndCoordinates(std::int64_t start, std::int64_t end, std::int64_t frame,
                                         bool isStart);
  /// End of each edit: the JSON, and the fragment of the current record, are stale.
  virtual void SetCoordinatesNotUpdatedInJson();
  /// Rebuilds the JSON array from the runs of `first` to `last` if it is stale.
  virtual void UpdateJSONValCoordinates(std::int64_t first, std::int64_t last) = 0;

  /// One entry per frame; null where there is no geometry.
  std::vector<std::shared_ptr<T>> const &CoordsVec() const { return m_coordsVec; }
  /// The record of the current frame; a default one that nobody owns where it is empty.
  T const &Coords() const;
  /// The same for writing. What is written to an empty frame is lost: AddNewCoordinates goes first.
  T &CoordsEditable();
  /// A copy of the record of `frame`; a default one where it is empty.
  T CoordsAt(std::int64_t frame) const;
  /// True outside the store too.
  bool AreCoordinatesEmpty(std::int64_t frame) const { return recordAt(frame) == nullptr; }
  /// The same of the current frame.
  bool AreCurrentCoordinatesEmpty() const { return recordAt(m_current) == nullptr; }
  /// The frame of the last AddNewCoordinates, or -1.
  std::int64_t GetRecentlyUpdatedCoordsFrame() const { return m_recentlyUpdatedFrame; }
  /// What the caller holds, see above; not recursive.
  std::mutex &GetMutex() const { return m_mutex; }
  /// The array of runs as last built, or as passed to the constructor.
  wxJSONValue const &ToJSON() const { return m_jsonVal; }
  /// The same for writing.
  wxJSONValue &JsonVal() { return m_jsonVal; }
  /// Makes the store `size` frames long; new ones are empty. A negative size acts as 0.
  void ResizeCoordsVec(std::int64_t size);
  /// Makes the store `count` frames long if it is shorter.
  void GrowCoordsVec(std::int64_t count) { ResizeCoordsVec(std::max(count, size())); }
  /// Moves every record once, however many frames share it. The fragments of the records stay as
  /// they are: only records marked by an edit are written again.
  void MoveAllCoordsFor(wxPoint2DInt const &delta);
  /// The maximal stretches of `first` to `last` whose entries are the same, empty ones included.
  /// The part outside the store is left out; where nothing is left, or `first` > `last`, the
  /// result is the one pair (`first`, `first`).
  std::vector<FrameRange> getRanges(std::int64_t first, std::int64_t last) const;

  /// Calls `visit(firstFrame, lastFrame, record)` for each run within `first` to `last` that has a
  /// record, in frame order. The caller holds the mutex. A record may come up in several runs.
  template <class F>
  void ForEachRun(std::int64_t first, std::int64_t last, F visit) const {
    forEachStretch(first, last, [&](std::int64_t from, std::int64_t to) {
      if (T const *record = recordAt(from)) visit(from, to, *record);
    });
  }

protected:
  /// For the one store that can be moved; takes the mutex of `other` and leaves it empty.
  IAnnotationCoordinates(IAnnotationCoordinates &&other) noexcept;

  /// What the element of a run is made of.
  struct RunParts {
    /// Of the record; an invalid value leaves the run out.
    wxJSONValue fragment;
    std::optional<bool> mirrored;  ///< of the stores that keep it
  };

  /// The record of `frame`, null where it is empty.
  T *recordAt(std::int64_t frame) const;
  /// UpdateJSONValCoordinates of a store whose records write themselves. Takes the mutex.
  void updateJSONVal(std::int64_t first, std::int64_t last, wxJSONValue const &(*fragmentOf)(T &));
  /// Builds the array from the runs of `first` to `last`. `partsAt` gives the parts of the run that
  /// begins at a frame. REQUIRES: the mutex is held.
  void rebuildJSONVal(std::int64_t first, std::int64_t last,
                      std::function<RunParts(std::int64_t)> const &partsAt);
  /// Fills the store from the array `runs`, growing it where a run reaches past its end, and makes
  /// the last frame of the last run current. `makeRecord` makes the record of an element, or null
  /// to leave the run out. REQUIRES: the mutex is held.
  void readRuns(wxJSONValue const &runs,
                std::function<std::shared_ptr<T>(wxJSONValue const &)> const &makeRecord);

  std::vector<std::shared_ptr<T>> m_coordsVec;  ///< one entry per frame
  /// Index of the current entry rather than a pointer to it: the vector grows.
  std::int64_t m_current = 0;
  std::int64_t m_recentlyUpdatedFrame = -1;  ///< the frame edited last, or -1
  bool m_jsonUpToDate = false;               ///< whether the array reflects the records
  mutable std::mutex m_mutex;                ///< guards everything here
  wxJSONValue m_jsonVal;                     ///< the array of runs

private:
  /// A run as it stands in the array.
  struct WrittenRun {
    FrameRange range;
    RunParts parts;
    wxJSONValue element;

    bool IsOf(FrameRange const &otherRange, RunParts const &others) const;
  };
  static wxJSONValue elementOf(FrameRange const &range, RunParts const &parts);

  std::int64_t size() const { return static_cast<std::int64_t>(m_coordsVec.size()); }
  bool isInside(std::int64_t frame) const { return 0 <= frame && frame < size(); }
  /// Gives `frame` a record of its own, growing the store; false if it is negative or has one.
  bool makeOwnRecord(std::int64_t frame);
  void fill(std::int64_t first, std::int64_t last, std::shared_ptr<T> const &record);
  /// The last frame up to `last` whose entry is that of `first`. REQUIRES: both are inside.
  std::int64_t findRunEnd(std::int64_t first, std::int64_t last) const;
  bool isSharedOutside(std::int64_t first, std::int64_t last) const;

  /// What was written last, in the order of the frames: an edit of one run takes the elements of
  /// the others from here, and who compares two arrays finds them shared.
  std::vector<WrittenRun> m_writtenRuns;

  /// Calls `visit(firstFrame, lastFrame)` for each stretch of equal entries, null ones included.
  template <class F>
  void forEachStretch(std::int64_t first, std::int64_t last, F visit) const {
    last = std::min(last, size() - 1);
    for (auto from = std::max<std::int64_t>(first, 0); from <= last;) {
      std::int64_t const to = findRunEnd(from, last);
      visit(from, to);
      from = to + 1;
    }
  }
};
