// SPDX-License-Identifier: MIT
#pragma once

#include <wx/gdicmn.h>

#include "coordinates/ann_points.h"
#include "framenote/export.h"
#include "properties/ann_arrow_properties.h"

/// The geometry of an arrow record that needs nothing but the record and the look.
namespace framenote {

/// Base and wings of the head; a kind without a head leaves all three at the tip, an unknown kind
/// leaves them as they are.
FRAMENOTE_API void FindArrowHead(AnnArrowPoints &record, AnnArrowProperties const &look);
/// The four corners of the body. REQUIRES: the head was found.
FRAMENOTE_API void FindArrowBody(AnnArrowPoints &record, AnnArrowProperties const &look);
/// The sum of the rectangles of head and body.
FRAMENOTE_API wxRect BoundsOf(AnnArrowPoints const &record);

}  // namespace framenote
