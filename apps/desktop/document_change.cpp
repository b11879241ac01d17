// SPDX-License-Identifier: MIT
#include "desktop/document_change.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

#include <wx/translation.h>

#include "framenote/annotation_types.h"
#include "objects/ann_magnify.h"
#include "objects/ann_text.h"
#include "objects/annotation_object.h"
#include "properties/ann_shape_properties.h"
#include "talbase/json_value.h"

namespace {

using Kind = DocumentChange::Kind;
using Object = DocumentChange::Object;
using Frames = std::pair<std::int64_t, std::int64_t>;  ///< first and last, both inside

constexpr char const *kObjectsKey = "Objects";
constexpr char const *kCoordinatesKey = IAnnotationObject::coordinatesKey;
constexpr char const *kPropertiesKey = IAnnotationObject::propertiesKey;
constexpr Frames kNoFrames(-1, -1);

// --- Geometry ---

/// A run of frames with one record. "Range" is a member of the record's value too.
struct Run {
  Frames frames;
  wxJSONValue record;
};

/// What happened to records of points, the least first.
enum class Motion { None, Moved, Turned, Other };

struct GeometryChange {
  Motion motion = Motion::None;
  bool isBox = false;  ///< with corners, so that its size can change
  Frames frames = kNoFrames;
};

struct Point {
  double x = 0.0;
  double y = 0.0;
};

Point operator-(Point const &a, Point const &b) {
  return {a.x - b.x, a.y - b.y};
}

bool IsNear(double a, double b) {
  // A turn is worked out in doubles from whole pixels; a user's smallest step is a pixel.
  constexpr double kTolerance = 1e-3;
  return std::abs(a - b) < kTolerance;
}

/// A point of two records.
struct PointPair {
  Point before;
  Point after;
};

/// The points that a record has, and what became of them; none if the records have something else
/// that differs.
std::optional<std::vector<PointPair>> PointsOf(wxJSONValue const &before,
                                               wxJSONValue const &after) {
  if (before.Size() != after.Size()) return std::nullopt;
  std::vector<PointPair> points;
  for (wxString const &key : before.GetMemberNames()) {
    if (key == IAnnotationObject::coordinatesRangeKey) continue;
    wxJSONValue const from = before.ItemAt(key);
    wxJSONValue const to = after.ItemAt(key);
    if (from.IsArray() && to.IsArray() && from.Size() == 2 && to.Size() == 2) {
      points.push_back({{from.ItemAt(0).AsDouble(), from.ItemAt(1).AsDouble()},
                        {to.ItemAt(0).AsDouble(), to.ItemAt(1).AsDouble()}});
    } else if (!from.IsSameAs(to)) {
      return std::nullopt;
    }
  }
  return points;
}

bool AreMovedAlike(std::vector<PointPair> const &points) {
  return std::all_of(points.begin(), points.end(), [&](PointPair const &pair) {
    Point const first = points.front().after - points.front().before;
    Point const step = pair.after - pair.before;
    return IsNear(step.x, first.x) && IsNear(step.y, first.y);
  });
}

/// Whether all points have kept their distances.
bool AreTurned(std::vector<PointPair> const &points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      Point const before = points[i].before - points[j].before;
      Point const after = points[i].after - points[j].after;
      if (!IsNear(std::hypot(before.x, before.y), std::hypot(after.x, after.y))) return false;
    }
  }
  return true;
}

bool IsSameRecord(wxJSONValue const &before, wxJSONValue const &after) {
  auto const points = PointsOf(before, after);
  return points && std::all_of(points->begin(), points->end(), [](PointPair const &pair) {
           return pair.before.x == pair.after.x && pair.before.y == pair.after.y;
         });
}

constexpr std::size_t kFewestCorners = 3;

Motion MotionBetween(wxJSONValue const &before, wxJSONValue const &after) {
  if (IsSameRecord(before, after)) return Motion::None;
  auto const points = PointsOf(before, after);
  if (!points) return Motion::Other;
  if (AreMovedAlike(*points)) return Motion::Moved;
  // An arrow whose head goes around its tail is one of which an end was dragged.
  return points->size() >= kFewestCorners && AreTurned(*points) ? Motion::Turned : Motion::Other;
}

/// The runs from `begin` up to `end`, in the order of their frames.
std::vector<Run> RunsOf(wxJSONValue const &coordinates, int begin, int end) {
  std::vector<Run> runs;
  for (int i = begin; i < end; ++i) {
    wxJSONValue record = coordinates.ItemAt(i);
    wxJSONValue const range = record.ItemAt(IAnnotationObject::coordinatesRangeKey);
    Frames const frames(range.ItemAt(0).AsInt64(), range.ItemAt(1).AsInt64());
    runs.push_back({frames, std::move(record)});
  }
  std::stable_sort(runs.begin(), runs.end(),
                   [](Run const &a, Run const &b) { return a.frames < b.frames; });
  return runs;
}

/// Walks runs in the order of their frames.
class RunCursor {
public:
  explicit RunCursor(std::vector<Run> const &runs) : m_runs(runs) {}

  /// The run of a frame, or null. No frame asked for is below the one before.
  Run const *At(std::int64_t frame) {
    while (m_next < m_runs.size() && m_runs[m_next].frames.second < frame) ++m_next;
    bool const isInside = m_next < m_runs.size() && m_runs[m_next].frames.first <= frame;
    return isInside ? &m_runs[m_next] : nullptr;
  }
  /// Up to where the answer for `frame` holds, or `last`.
  std::int64_t HoldsUpTo(std::int64_t frame, std::int64_t last) const {
    if (m_next == m_runs.size()) return last;
    Frames const &frames = m_runs[m_next].frames;
    return std::min(last, frames.first <= frame ? frames.second : frames.first - 1);
  }

private:
  std::vector<Run> const &m_runs;
  std::size_t m_next = 0;
};

void Add(GeometryChange &change, Motion motion, Frames const &frames) {
  if (motion == Motion::None) return;
  bool const isFirst = change.motion == Motion::None;
  change.motion = isFirst || change.motion == motion ? motion : Motion::Other;
  change.frames = {isFirst ? frames.first : change.frames.first, frames.second};
}

GeometryChange CompareRuns(std::vector<Run> const &before, std::vector<Run> const &after,
                           Frames const &frames) {
  GeometryChange change;
  RunCursor from(before);
  RunCursor to(after);
  for (std::int64_t frame = frames.first; frame <= frames.second;) {
    Run const *const old = from.At(frame);
    Run const *const now = to.At(frame);
    std::int64_t const last =
        std::min(from.HoldsUpTo(frame, frames.second), to.HoldsUpTo(frame, frames.second));
    if (old != nullptr && now != nullptr) {
      Add(change, MotionBetween(old->record, now->record), {frame, last});
    } else if (old != now) {
      Add(change, Motion::Other, {frame, last});
    }
    if (last == frames.second) break;
    frame = last + 1;
  }
  return change;
}

/// What became of the geometry of an object that was in the frames `were` and is in `are`. Frames
/// that join have the geometry of the nearest old frame, so that is what theirs is compared with.
GeometryChange CompareCoordinates(wxJSONValue const &before, wxJSONValue const &after,
                                  Frames const &were, Frames const &are) {
  ArraySplice const splice = SpliceBetween(before, after);
  if (splice.IsEmpty()) return {};
  // A run more at each side: it may have to stretch into the frames that joined.
  int const begin = std::max(splice.at - 1, 0);
  int const more = splice.at + splice.removed < before.Size() ? 1 : 0;
  auto oldRuns = RunsOf(before, begin, splice.at + splice.removed + more);
  auto const newRuns = RunsOf(after, begin, splice.at + splice.inserted + more);
  Frames frames = are;
  if (!oldRuns.empty()) {
    if (begin > 0) frames.first = std::max(frames.first, oldRuns.front().frames.first);
    if (more > 0 && splice.at + splice.removed + 1 < before.Size()) {
      frames.second = std::min(frames.second, oldRuns.back().frames.second);
    }
    std::int64_t &first = oldRuns.front().frames.first;
    std::int64_t &last = oldRuns.back().frames.second;
    if (first <= were.first) first = std::min(first, are.first);
    if (last >= were.second) last = std::max(last, are.second);
  }
  GeometryChange change = CompareRuns(oldRuns, newRuns, frames);
  change.isBox = !newRuns.empty() && newRuns.front().record.HasMember("TopLeft");
  return change;
}

// --- Objects ---

/// Where an object's range and coordinates are: those of boxes lie in their rectangle.
wxJSONValue GeometryOf(wxJSONValue const &object) {
  return object.HasMember(AnnText::rectangleKey) ? object.ItemAt(AnnText::rectangleKey) : object;
}

Frames RangeOf(wxJSONValue const &object) {
  wxJSONValue const geometry = GeometryOf(object);
  return {geometry.ItemAt(IAnnotationObject::startFrameKey).AsInt64(),
          geometry.ItemAt(IAnnotationObject::endFrameKey).AsInt64()};
}

Object ShapeOf(wxJSONValue const &object) {
  switch (AnnShapeProperties(object.ItemAt(kPropertiesKey)).GetShape()) {
    case AnnShapeProperties::Rectangle:
      return Object::Rectangle;
    case AnnShapeProperties::Ellipse:
      return Object::Ellipse;
  }
  return Object::Shape;
}

Object ObjectOf(wxJSONValue const &object) {
  switch (static_cast<Types>(object.ItemAt(IAnnotationObject::idKey).AsInt())) {
    case Types::Shape:
      return ShapeOf(object);
    case Types::Arrow:
      return Object::Arrow;
    case Types::Pencil:
      return Object::Stroke;
    case Types::Text:
      return Object::Text;
    case Types::Image:
      return Object::Picture;
    case Types::Hide:
      return Object::HideRegion;
    case Types::Magnify:
      return Object::Magnifier;
    default:
      return Object::Unknown;
  }
}

bool IsSameMember(wxJSONValue const &before, wxJSONValue const &after, char const *key) {
  return before.ItemAt(key).IsSameAs(after.ItemAt(key));
}

/// The first and the last frame that are in one of the ranges only.
Frames FramesThatCameOrWent(Frames const &were, Frames const &are) {
  bool const startDiffers = were.first != are.first;
  bool const endDiffers = were.second != are.second;
  std::int64_t const first = std::min(were.first, are.first);
  std::int64_t const last = std::max(were.second, are.second);
  if (startDiffers && endDiffers) return {first, last};
  if (startDiffers) return {first, std::min(std::max(were.first, are.first) - 1, last)};
  return {std::max(std::min(were.second, are.second) + 1, first), last};
}

Kind KindOf(GeometryChange const &change) {
  switch (change.motion) {
    case Motion::None:
      return Kind::None;
    case Motion::Moved:
      return Kind::Move;
    case Motion::Turned:
      return Kind::Rotate;
    case Motion::Other:
      break;
  }
  return change.isBox ? Kind::Resize : Kind::Reshape;
}

/// What became of an object, as far as it is geometry or range.
std::pair<Kind, Frames> CompareGeometry(wxJSONValue const &before, wxJSONValue const &after) {
  Frames const were = RangeOf(before);
  Frames const are = RangeOf(after);
  GeometryChange const change =
      CompareCoordinates(GeometryOf(before).ItemAt(kCoordinatesKey),
                         GeometryOf(after).ItemAt(kCoordinatesKey), were, are);
  if (change.motion != Motion::None) return {KindOf(change), change.frames};
  constexpr char const *kCentreKey = AnnMagnify::coordinatesCenterPointKey;
  GeometryChange const view =
      CompareCoordinates(before.ItemAt(kCentreKey), after.ItemAt(kCentreKey), were, are);
  if (view.motion != Motion::None) return {Kind::MoveView, view.frames};
  if (were != are) return {Kind::Range, FramesThatCameOrWent(were, are)};
  return {Kind::None, are};
}

std::pair<Kind, Frames> CompareObject(wxJSONValue const &before, wxJSONValue const &after) {
  Frames const range = RangeOf(after);
  if (!IsSameMember(before, after, AnnText::textLinesKey)) return {Kind::Text, range};
  auto const geometry = CompareGeometry(before, after);
  if (!IsSameMember(before, after, kPropertiesKey)) {
    // The commands that resize a picture also set whether it keeps its proportions.
    bool const isResized = ObjectOf(after) == Object::Picture && geometry.first != Kind::None;
    return isResized ? geometry : std::make_pair(Kind::Look, range);
  }
  // Other members, or the same records in other runs.
  if (geometry.first == Kind::None) return {Kind::Reshape, range};
  return geometry;
}

bool IsEmptyText(wxJSONValue const &object) {
  if (ObjectOf(object) != Object::Text) return false;
  wxString const lines = object.ItemAt(AnnText::textLinesKey).AsString();
  return lines == "[]" || lines == R"([""])";
}

// --- Documents ---

DocumentChange ChangeOfObject(Kind kind, wxJSONValue const &object, int before, int after,
                              Frames const &frames) {
  DocumentChange change;
  change.kind = kind;
  change.object = ObjectOf(object);
  change.indexBefore = before;
  change.indexAfter = after;
  std::tie(change.firstFrame, change.lastFrame) = frames;
  return change;
}

DocumentChange ChangeOf(Kind kind) {
  DocumentChange change;
  change.kind = kind;
  return change;
}

/// Whether the last of the elements went before the others (`toFront`), or the first behind them.
bool IsRotated(wxJSONValue const &before, wxJSONValue const &after, ArraySplice const &splice,
               bool toFront) {
  int const count = splice.removed;
  int const step = toFront ? 1 : count - 1;
  for (int i = 0; i < count; ++i) {
    wxJSONValue const moved = after.ItemAt(splice.at + (i + step) % count);
    if (!before.ItemAt(splice.at + i).IsSameAs(moved)) return false;
  }
  return true;
}

DocumentChange CompareManyObjects(wxJSONValue const &before, wxJSONValue const &after,
                                  ArraySplice const &splice) {
  if (after.Size() == 0) return ChangeOf(Kind::ClearAll);
  if (splice.removed != splice.inserted) return ChangeOf(Kind::Several);
  int const first = splice.at;
  int const last = splice.at + splice.removed - 1;
  if (IsRotated(before, after, splice, true)) {
    wxJSONValue const object = after.ItemAt(first);
    return ChangeOfObject(Kind::Order, object, last, first, RangeOf(object));
  }
  if (IsRotated(before, after, splice, false)) {
    wxJSONValue const object = after.ItemAt(last);
    return ChangeOfObject(Kind::Order, object, first, last, RangeOf(object));
  }
  return ChangeOf(Kind::Several);
}

DocumentChange CompareObjects(wxJSONValue const &before, wxJSONValue const &after,
                              ArraySplice const &splice) {
  int const at = splice.at;
  wxJSONValue const old = before.ItemAt(at);
  wxJSONValue const now = after.ItemAt(at);
  if (splice.removed == 0 && splice.inserted == 1) {
    DocumentChange change = ChangeOfObject(Kind::Add, now, -1, at, RangeOf(now));
    change.isUnfinished = IsEmptyText(now);
    return change;
  }
  if (splice.removed == 1 && splice.inserted == 0) {
    return ChangeOfObject(Kind::Remove, old, at, -1, RangeOf(old));
  }
  if (splice.removed != 1 || splice.inserted != 1) {
    return CompareManyObjects(before, after, splice);
  }
  if (!IsSameMember(old, now, IAnnotationObject::idKey)) return ChangeOf(Kind::Several);
  auto const [kind, frames] = CompareObject(old, now);
  return ChangeOfObject(kind, now, at, at, frames);
}

/// A tool that has not written its document yet has a null one: no setting is another one then.
bool HasSameSettings(wxJSONValue const &before, wxJSONValue const &after) {
  if (!before.IsObject() || !after.IsObject()) return true;
  auto const hasThoseOf = [](wxJSONValue const &document, wxJSONValue const &other) {
    auto const names = other.GetMemberNames();
    return std::all_of(names.begin(), names.end(), [&](wxString const &name) {
      return name == kObjectsKey || document.ItemAt(name).IsSameAs(other.ItemAt(name));
    });
  };
  return hasThoseOf(before, after) && hasThoseOf(after, before);
}

// --- Names ---

/// What can be done to one kind of object; a phrase each, since no language forms all of them
/// alike.
struct Phrases {
  char const *add;
  char const *remove;
  char const *move;
  char const *resize;
  char const *rotate;
  char const *reshape;
  char const *look;
  char const *range;
};

/// In the order of DocumentChange::Object.
constexpr std::array<Phrases, 10> kPhrases = {{
    // TRANSLATORS: changes, which follow "Undo" and "Redo".
    {wxTRANSLATE("add object"), wxTRANSLATE("delete object"), wxTRANSLATE("move object"),
     wxTRANSLATE("resize object"), wxTRANSLATE("rotate object"), wxTRANSLATE("reshape object"),
     wxTRANSLATE("change look of object"), wxTRANSLATE("change range of object")},
    {wxTRANSLATE("add shape"), wxTRANSLATE("delete shape"), wxTRANSLATE("move shape"),
     wxTRANSLATE("resize shape"), wxTRANSLATE("rotate shape"), wxTRANSLATE("reshape shape"),
     wxTRANSLATE("change look of shape"), wxTRANSLATE("change range of shape")},
    {wxTRANSLATE("add rectangle"), wxTRANSLATE("delete rectangle"), wxTRANSLATE("move rectangle"),
     wxTRANSLATE("resize rectangle"), wxTRANSLATE("rotate rectangle"),
     wxTRANSLATE("reshape rectangle"), wxTRANSLATE("change look of rectangle"),
     wxTRANSLATE("change range of rectangle")},
    {wxTRANSLATE("add ellipse"), wxTRANSLATE("delete ellipse"), wxTRANSLATE("move ellipse"),
     wxTRANSLATE("resize ellipse"), wxTRANSLATE("rotate ellipse"), wxTRANSLATE("reshape ellipse"),
     wxTRANSLATE("change look of ellipse"), wxTRANSLATE("change range of ellipse")},
    {wxTRANSLATE("add arrow"), wxTRANSLATE("delete arrow"), wxTRANSLATE("move arrow"),
     wxTRANSLATE("resize arrow"), wxTRANSLATE("rotate arrow"), wxTRANSLATE("reshape arrow"),
     wxTRANSLATE("change look of arrow"), wxTRANSLATE("change range of arrow")},
    {wxTRANSLATE("draw stroke"), wxTRANSLATE("delete stroke"), wxTRANSLATE("move stroke"),
     wxTRANSLATE("resize stroke"), wxTRANSLATE("rotate stroke"), wxTRANSLATE("reshape stroke"),
     wxTRANSLATE("change look of stroke"), wxTRANSLATE("change range of stroke")},
    {wxTRANSLATE("add text"), wxTRANSLATE("delete text"), wxTRANSLATE("move text"),
     wxTRANSLATE("resize text"), wxTRANSLATE("rotate text"), wxTRANSLATE("reshape text"),
     wxTRANSLATE("change look of text"), wxTRANSLATE("change range of text")},
    {wxTRANSLATE("add picture"), wxTRANSLATE("delete picture"), wxTRANSLATE("move picture"),
     wxTRANSLATE("resize picture"), wxTRANSLATE("rotate picture"), wxTRANSLATE("reshape picture"),
     wxTRANSLATE("change look of picture"), wxTRANSLATE("change range of picture")},
    {wxTRANSLATE("add hide region"), wxTRANSLATE("delete hide region"),
     wxTRANSLATE("move hide region"), wxTRANSLATE("resize hide region"),
     wxTRANSLATE("rotate hide region"), wxTRANSLATE("reshape hide region"),
     wxTRANSLATE("change look of hide region"), wxTRANSLATE("change range of hide region")},
    {wxTRANSLATE("add magnifier"), wxTRANSLATE("delete magnifier"), wxTRANSLATE("move magnifier"),
     wxTRANSLATE("resize magnifier"), wxTRANSLATE("rotate magnifier"),
     wxTRANSLATE("reshape magnifier"), wxTRANSLATE("change look of magnifier"),
     wxTRANSLATE("change range of magnifier")},
}};

char const *PhraseOf(DocumentChange const &change) {
  Phrases const &phrases = kPhrases[static_cast<std::size_t>(change.object)];
  switch (change.kind) {
    case Kind::None:
      break;
    case Kind::Add:
      return phrases.add;
    case Kind::Remove:
      return phrases.remove;
    case Kind::Move:
      return phrases.move;
    case Kind::MoveView:
      return wxTRANSLATE("move view of magnifier");
    case Kind::Resize:
      return phrases.resize;
    case Kind::Rotate:
      return phrases.rotate;
    case Kind::Reshape:
      return phrases.reshape;
    case Kind::Look:
      return phrases.look;
    case Kind::Text:
      return wxTRANSLATE("edit text");
    case Kind::Range:
      return phrases.range;
    case Kind::Order:
      return wxTRANSLATE("change order");
    case Kind::ClearAll:
      return wxTRANSLATE("clear all");
    case Kind::Settings:
      return wxTRANSLATE("change extension");
    case Kind::Several:
      return wxTRANSLATE("change several objects");
  }
  return "";
}

}  // namespace

ArraySplice SpliceBetween(wxJSONValue const &before, wxJSONValue const &after) {
  ArraySplice splice{0, before.IsArray() ? before.Size() : 0, after.IsArray() ? after.Size() : 0};
  auto const isSameAt = [&](int i, int j) { return before.ItemAt(i).IsSameAs(after.ItemAt(j)); };
  while (splice.removed > 0 && splice.inserted > 0 &&
         isSameAt(splice.removed - 1, splice.inserted - 1)) {
    --splice.removed;
    --splice.inserted;
  }
  while (splice.removed > 0 && splice.inserted > 0 && isSameAt(splice.at, splice.at)) {
    ++splice.at;
    --splice.removed;
    --splice.inserted;
  }
  return splice;
}

DocumentChange CompareDocuments(wxJSONValue const &before, wxJSONValue const &after) {
  wxJSONValue const old = before.ItemAt(kObjectsKey);
  wxJSONValue const now = after.ItemAt(kObjectsKey);
  bool const hasSameSettings = HasSameSettings(before, after);
  if (old.IsSameAs(now)) return ChangeOf(hasSameSettings ? Kind::None : Kind::Settings);
  ArraySplice const splice = SpliceBetween(old, now);
  if (splice.IsEmpty()) return ChangeOf(hasSameSettings ? Kind::None : Kind::Settings);
  DocumentChange change =
      hasSameSettings ? CompareObjects(old, now, splice) : ChangeOf(Kind::Several);
  change.objects = splice;
  return change;
}

std::pair<std::int64_t, std::int64_t> FramesOfObject(wxJSONValue const &document, int index) {
  return RangeOf(document.ItemAt(kObjectsKey).ItemAt(index));
}

std::vector<std::pair<std::int64_t, std::int64_t>> StillRunsOfObject(wxJSONValue const &document,
                                                                     int index) {
  wxJSONValue const object = document.ItemAt(kObjectsKey).ItemAt(index);
  wxJSONValue const runs = GeometryOf(object).ItemAt(kCoordinatesKey);
  std::vector<std::pair<std::int64_t, std::int64_t>> result;
  for (int i = 0; i < runs.Size(); ++i) {
    wxJSONValue const range = runs.ItemAt(i).ItemAt("Range");
    result.emplace_back(range.ItemAt(0).AsInt64(), range.ItemAt(1).AsInt64());
  }
  return result;
}

wxString ChangeName(DocumentChange const &change) {
  char const *const phrase = PhraseOf(change);
  // The empty text is the key of a catalogue's own header.
  return *phrase == '\0' ? wxString() : wxGetTranslation(phrase);
}
