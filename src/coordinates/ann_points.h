// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include <wx/geometry.h>

#include "framenote/export.h"
#include "talbase/json_value.h"

/// The point records: what one run of frames of an object holds. Only what cannot be derived is
/// saved; the other points are caches that the objects work out after a load or an edit.
///
/// A fresh record counts as written: the edit that fills it marks it. All points are in picture
/// pixels.

/// A rectangle or ellipse, possibly rotated and mirrored; the corners are doubles so that repeated
/// rotation does not drift by rounding.
struct FRAMENOTE_API AnnShapePoints {
  wxJSONValue m_json;           ///< the record's own part of the document
  bool m_updatedInJson = true;  ///< whether that part reflects the record
  ///@{
  /// A corner of the outline, in cyclic order.
  wxPoint2DDouble m_topLeft;
  wxPoint2DDouble m_topRight;
  wxPoint2DDouble m_bottomRight;
  wxPoint2DDouble m_bottomLeft;
  ///@}
  ///@{
  /// Derived: the middle of a side.
  wxPoint2DDouble m_topResizePoint;
  wxPoint2DDouble m_rightResizePoint;
  wxPoint2DDouble m_bottomResizePoint;
  wxPoint2DDouble m_leftResizePoint;
  ///@}
  wxPoint2DDouble m_rotationPoint;  ///< derived: the centre of the rotation handle
  ///@{
  /// Derived: a corner of the outline inset by the border's thickness.
  wxPoint2DDouble m_innerTopLeft;
  wxPoint2DDouble m_innerTopRight;
  wxPoint2DDouble m_innerBottomRight;
  wxPoint2DDouble m_innerBottomLeft;
  ///@}
};

/// An arrow from its tail to its head.
struct FRAMENOTE_API AnnArrowPoints {
  wxJSONValue m_json;           ///< the record's own part of the document
  bool m_updatedInJson = true;  ///< whether that part reflects the record
  wxPoint2DInt m_head;          ///< the tip
  wxPoint2DInt m_tail;          ///< the other end
  ///@{
  /// Derived: a corner of the body.
  wxPoint2DDouble m_bodyTailLeft;
  wxPoint2DDouble m_bodyHeadLeft;
  wxPoint2DDouble m_bodyHeadRight;
  wxPoint2DDouble m_bodyTailRight;
  ///@}
  wxPoint2DDouble m_headBase;       ///< derived: the middle of the head's base
  wxPoint2DDouble m_headWingLeft;   ///< derived: a corner of the head
  wxPoint2DDouble m_headWingRight;  ///< derived: the other one
};

/// A stroke: its points in drawing order. Only the first one is saved per run; the differences to
/// it are saved once, by the object.
struct FRAMENOTE_API AnnPencilPoints {
  wxJSONValue m_json;                ///< the record's own part of the document
  bool m_updatedInJson = true;       ///< whether that part reflects the record
  std::vector<wxPoint2DInt> m_path;  ///< in drawing order
};

/// What a pasted picture keeps per run beyond its corners, which live in the shape store of the
/// same object.
struct FRAMENOTE_API AnnImagePoints {
  bool m_mirrored = false;  ///< painted with left and right exchanged
};

/// What a lens keeps per run beyond its corners.
struct FRAMENOTE_API AnnMagnifyPoints {
  wxJSONValue m_json;             ///< the record's own part of the document
  bool m_updatedInJson = true;    ///< whether that part reflects the record
  wxPoint2DDouble m_centerPoint;  ///< centre of the area that is magnified
};

namespace framenote {

///@{
/// Adds `delta` to every point of the record, derived points included. Integer points saturate at
/// kMaxPixel. The flags and the fragment are left alone.
FRAMENOTE_API void MoveRecord(AnnShapePoints &record, wxPoint2DInt const &delta);
FRAMENOTE_API void MoveRecord(AnnArrowPoints &record, wxPoint2DInt const &delta);
FRAMENOTE_API void MoveRecord(AnnPencilPoints &record, wxPoint2DInt const &delta);
FRAMENOTE_API void MoveRecord(AnnImagePoints &record, wxPoint2DInt const &delta);
FRAMENOTE_API void MoveRecord(AnnMagnifyPoints &record, wxPoint2DInt const &delta);
///@}

///@{
/// The record's fragment, written first if the record has changed since. Keys of a loaded fragment
/// that are not the record's own survive. A stroke without points writes no start point.
FRAMENOTE_API wxJSONValue const &CurrentFragment(AnnShapePoints &record);
FRAMENOTE_API wxJSONValue const &CurrentFragment(AnnArrowPoints &record);
FRAMENOTE_API wxJSONValue const &CurrentFragment(AnnPencilPoints &record);
FRAMENOTE_API wxJSONValue const &CurrentFragment(AnnMagnifyPoints &record);
///@}

}  // namespace framenote
