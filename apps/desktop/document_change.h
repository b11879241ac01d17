// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include <wx/string.h>

class wxJSONValue;

/// Where two arrays differ: `removed` elements from `at` on became `inserted` ones.
struct ArraySplice {
  int at = 0;
  int removed = 0;
  int inserted = 0;

  bool IsEmpty() const { return removed == 0 && inserted == 0; }
};

/// The difference of two arrays, without what they have in common at their ends. Of equal elements
/// the new one is that in front, as new objects are. Anything but an array counts as empty.
ArraySplice SpliceBetween(wxJSONValue const &before, wxJSONValue const &after);

/// What the step from one document to another did, as a user would say it.
struct DocumentChange {
  enum class Kind {
    None,  ///< the documents are the same
    Add,   ///< drawn or pasted
    Remove,
    Move,      ///< in one frame or in more
    MoveView,  ///< a magnifier shows another place
    Resize,
    Rotate,
    Reshape,  ///< any other change of the geometry
    Look,
    Text,   ///< what a text box says
    Range,  ///< the first or the last frame
    Order,
    ClearAll,  ///< several objects went, and none is left
    Settings,  ///< what belongs to no object: how far the picture is extended, and its colour
    Several    ///< several objects, or more than one of the above
  };
  enum class Object {
    Unknown,
    Shape,  ///< neither of the two below
    Rectangle,
    Ellipse,
    Arrow,
    Stroke,
    Text,
    Picture,
    HideRegion,
    Magnifier
  };

  Kind kind = Kind::None;
  Object object = Object::Unknown;
  /// The place of the one object concerned in the list of each document; -1 where it is not in it,
  /// or no one object is concerned. Of two objects that change places it is the one that goes to
  /// the front.
  int indexBefore = -1;
  int indexAfter = -1;
  /// The first and the last frame that look otherwise than before: of a change of geometry the
  /// frames whose geometry changed, of a range those that came or went, of anything else the range
  /// of the object. -1 if no one object is concerned.
  std::int64_t firstFrame = -1;
  std::int64_t lastFrame = -1;
  /// A text box was added that is still empty: it is not seen before it says something, and goes if
  /// it never does.
  bool isUnfinished = false;
  /// Where the lists of objects differ.
  ArraySplice objects;
};

/// Compares two annotation values, as AnnotationTool::GetJSON gives them; one that is no object
/// counts as empty. Costs no more than the list of objects and the runs of one of them: what the
/// values share is not visited.
DocumentChange CompareDocuments(wxJSONValue const &before, wxJSONValue const &after);

/// The first and the last frame of the object at a place of a document's list; (0, 0) if there is
/// none.
std::pair<std::int64_t, std::int64_t> FramesOfObject(wxJSONValue const &document, int index);

/// The runs of frames in which the object at a place of a document's list stands still, in order.
std::vector<std::pair<std::int64_t, std::int64_t>> StillRunsOfObject(wxJSONValue const &document,
                                                                     int index);

/// A phrase for a menu, as in "move arrow", in the user's language; empty for no change.
wxString ChangeName(DocumentChange const &change);
