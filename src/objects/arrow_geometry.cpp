// SPDX-License-Identifier: MIT
#include "objects/arrow_geometry.h"

#include <algorithm>

#include "coordinates/pixel_geometry.h"

namespace framenote {

namespace {

/// Length and width of the head, in thicknesses.
constexpr double kHeadSize = 3.0;

}  // namespace

void FindArrowHead(AnnArrowPoints &record, AnnArrowProperties const &look) {
  wxPoint2DDouble const tip(record.m_head);
  if (look.GetHead() == AnnArrowProperties::Line) {
    record.m_headBase = record.m_headWingLeft = record.m_headWingRight = tip;
    return;
  }
  if (look.GetHead() != AnnArrowProperties::Arrow) return;
  double const length = UsableThickness(look.GetThickness()) * kHeadSize;
  wxPoint2DDouble const back = WithLength(wxPoint2DDouble(record.m_tail) - tip, length);
  wxPoint2DDouble const side = Turned(WithLength(back, length * 0.5), 90.0);
  record.m_headBase = tip + back;
  record.m_headWingLeft = record.m_headBase + side;
  record.m_headWingRight = record.m_headBase - side;
}

void FindArrowBody(AnnArrowPoints &record, AnnArrowProperties const &look) {
  wxPoint2DDouble const tail(record.m_tail);
  double const half = std::max(UsableThickness(look.GetThickness()) / 2, 1);
  wxPoint2DDouble const side =
      WithLength(Turned(wxPoint2DDouble(record.m_head) - tail, -90.0), half);
  record.m_bodyTailLeft = tail + side;
  record.m_bodyHeadLeft = record.m_headBase + side;
  record.m_bodyHeadRight = record.m_headBase - side;
  record.m_bodyTailRight = tail - side;
}

wxRect BoundsOf(AnnArrowPoints const &record) {
  wxPoint const head(record.m_head.m_x, record.m_head.m_y);
  wxRect const headPart = wxRect(head, RoundToPixel(record.m_headWingRight)) +
                          wxRect(RoundToPixel(record.m_headWingLeft), head);
  wxRect const bodyPart =
      wxRect(RoundToPixel(record.m_bodyTailRight), RoundToPixel(record.m_bodyHeadLeft)) +
      wxRect(RoundToPixel(record.m_bodyTailLeft), RoundToPixel(record.m_bodyHeadRight));
  return headPart + bodyPart;
}

}  // namespace framenote
