// SPDX-License-Identifier: MIT
#pragma once

#include "coordinates/ann_points.h"
#include "talbase/json_value.h"

namespace framenote::test {

/// The runs of an element of the document's "Objects"; those of a kind with a box are its
/// rectangle's.
wxJSONValue RunsOf(wxJSONValue const &element);
/// The corners of a run with a box.
AnnShapePoints BoxOf(wxJSONValue const &run);
/// Whether an object may be left out when it is read: one that leaves no trace where it was read
/// last, which is in its last frame.
bool MayBeLeftOut(wxJSONValue const &element);

}  // namespace framenote::test
