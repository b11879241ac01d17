// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "modes/ann_arrow_tool_mode.h"
#include "modes/ann_pencil_tool_mode.h"
#include "modes/ann_shape_tool_mode.h"
#include "objects/ann_arrow.h"
#include "objects/ann_pencil.h"
#include "objects/ann_shape.h"
#include "painters/painter_fixture.h"
#include "support/tool_driver.h"
#include "talbase/json_text.h"

inline void PrintTo(wxPoint2DDouble const &point, std::ostream *out) {
  *out << '(' << point.m_x << ", " << point.m_y << ')';
}

inline void PrintTo(wxPoint2DInt const &point, std::ostream *out) {
  *out << '(' << point.m_x << ", " << point.m_y << ')';
}

namespace framenote::test {

using pixels::PaintedBy;

/// Whether a point is at (x, y), but for what a turn by an angle loses.
inline testing::AssertionResult At(wxPoint2DDouble const &point, double x, double y) {
  constexpr double kPrecision = 1e-9;
  if (std::abs(point.m_x - x) <= kPrecision && std::abs(point.m_y - y) <= kPrecision) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure()
         << "(" << point.m_x << ", " << point.m_y << ") instead of (" << x << ", " << y << ")";
}

/// Objects without a list: the test owns them, the modes of a tool give them look and position.
class ObjectTest : public testing::Test {
protected:
  explicit ObjectTest(std::int64_t frameCount = 1) : m_driver(frameCount) {}

  ToolModes const &Modes() { return m_driver.Tool().GetToolModes(); }
  AnnShapeProperties &ShapeLook() { return *Modes().shape->m_properties; }
  AnnArrowProperties &ArrowLook() { return *Modes().arrow->m_properties; }
  AnnPencilProperties &PencilLook() { return *Modes().pencil->m_properties; }

  AnnShape Shape(int left, int top, int right, int bottom, std::int64_t frame = 0) {
    return {Modes().shape, wxRect(wxPoint(left, top), wxPoint(right, bottom)), frame};
  }
  AnnArrow Arrow(wxPoint const &tail, wxPoint const &head, std::int64_t frame = 0) {
    return {Modes().arrow, wxPoint2DInt(head), wxPoint2DInt(tail), frame};
  }
  AnnPencil Stroke(std::vector<wxPoint2DInt> const &points, std::int64_t frame = 0) {
    return {Modes().pencil, points, frame};
  }

  void SetZoom(double scale) {
    m_driver.SetScale(scale);
    m_driver.Move(-1000, -1000);
  }

  /// Goes to a frame with the tool and the object, as the tool does with what it owns.
  void GoTo(IAnnotationObject &object, std::int64_t frame) {
    m_driver.GoToFrame(frame);
    object.UpdateCoordinatesPointers(frame);
  }

  ToolDriver m_driver;
};

/// The same on a video of ten frames.
class VideoObjectTest : public ObjectTest {
protected:
  VideoObjectTest() : ObjectTest(10) {}
};

inline AnnShapePoints const &RecordOf(AnnShape const &shape) {
  return shape.GetCoordinates().Coords();
}

inline AnnArrowPoints const &RecordOf(AnnArrow const &arrow) {
  return arrow.GetCoordinates().Coords();
}

inline wxPoint2DInt PixelOf(wxPoint2DDouble const &point) {
  return wxPoint2DInt(IAnnotationObject::GetRounded(point));
}

}  // namespace framenote::test
