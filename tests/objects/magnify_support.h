// SPDX-License-Identifier: MIT
#pragma once

#include "modes/ann_magnify_tool_mode.h"
#include "objects/ann_magnify.h"
#include "objects/object_support.h"
#include "support/test_pictures.h"

namespace framenote::test {

inline const wxSize kCanvas(200, 160);

/// Lenses on a picture whose pixels tell where they come from.
class AnnMagnifyTest : public ObjectTest {
protected:
  explicit AnnMagnifyTest(std::int64_t frameCount = 1)
      : ObjectTest(frameCount), m_picture(PlacePicture(kCanvas.x, kCanvas.y)) {
    m_driver.Tool().SetImage(m_picture, true);
  }

  AnnMagnifyProperties &Look() { return *Modes().magnify->m_properties; }
  /// A lens with the corners `a` and `b`.
  AnnMagnify Lens(wxPoint const &a, wxPoint const &b, std::int64_t frame = 0) {
    return {Modes().shape, Modes().magnify, wxRect(a, b), m_driver.Tool().GetImage(), frame};
  }
  AnnMagnify Restored(wxJSONValue const &json) {
    return {Modes().shape, Modes().magnify, json, m_driver.Tool().GetImage()};
  }
  wxImage Paint(AnnMagnify const &lens,
                IAnnPainter::AnnPainterType type = IAnnPainter::GraphicsContext) {
    return PaintedBy(type, kCanvas, 1.0,
                     [&](auto &painter) { lens.Draw(painter, wxPoint2DDouble(0.0, 0.0)); });
  }
  /// Which pixel of the picture a place of the lens shows.
  static wxPoint Shown(wxImage const &painted, int x, int y) {
    return {painted.GetRed(x, y), painted.GetGreen(x, y)};
  }
  /// Drags the centre of what is shown.
  void DragCentre(AnnMagnify &lens, wxPoint2DInt const &delta) {
    auto const centre = (RecordOf(lens).m_topLeft + RecordOf(lens).m_bottomRight) * 0.5;
    ASSERT_TRUE(lens.IsAtCenterPoint(PixelOf(centre)));
    lens.MoveFor(delta);
  }
  static wxRect SizeOf(AnnMagnify const &lens) {
    return {PixelRounded(RecordOf(lens).m_topLeft), PixelRounded(RecordOf(lens).m_bottomRight)};
  }
  static wxPoint PixelRounded(wxPoint2DDouble const &point) {
    return IAnnotationObject::GetRounded(point);
  }

  wxImage m_picture;
};

}  // namespace framenote::test
