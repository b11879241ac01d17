// SPDX-License-Identifier: MIT
// The outline of what a lens shows, and the lines that join the two.
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "objects/magnify_support.h"

namespace framenote::test {

namespace {

/// A lens from (20, 20) to (60, 60) whose source is shown 100 to the right and 60 below. The middle
/// pixel of the source area is (139, 99), the centre of the lens (140, 100) in it: what is shown is
/// centred on (139.5, 99.5), and its outline reaches from (129.5, 89.5) to (149.5, 109.5).
class AnnMagnifyLines : public AnnMagnifyTest {
protected:
  wxImage PaintWith(AnnMagnifyProperties::BorderType type, AnnShapeProperties::Shape shape,
                    wxPoint2DInt const &shift = {100, 60}, int thickness = 2) {
    Look().SetBorderType(type);
    Look().SetShape(shape);
    Look().SetBorderColor(*wxRED);
    Look().SetThickness(thickness);
    AnnMagnify lens = Lens({20, 20}, {60, 60});
    if (!(shift == wxPoint2DInt())) DragCentre(lens, shift);
    return Paint(lens);
  }
  static bool IsRedAt(wxImage const &image, double x, double y) {
    pixels::Rgb const c = pixels::ColourAt(image, static_cast<int>(x), static_cast<int>(y));
    return c.red > 200 && c.green < 120 && c.blue < 120;
  }
  /// Which sides of an ellipse are joined, of "trbl"; `places` are on the lines, in that order.
  static std::string JoinedSides(wxImage const &image, std::vector<wxPoint> const &places) {
    std::string joined;
    for (std::size_t i = 0; i < places.size(); ++i) {
      // A line is two pixels wide.
      wxRect const about(places[i] - wxPoint(1, 1), wxSize(3, 3));
      bool isRed = false;
      for (int y = about.GetTop(); y <= about.GetBottom(); ++y) {
        for (int x = about.GetLeft(); x <= about.GetRight(); ++x) isRed |= IsRedAt(image, x, y);
      }
      if (isRed) joined += "trbl"[i];
    }
    return joined;
  }
  /// Paints an elliptic lens of 40 by 40 whose centre has been dragged.
  wxImage PaintEllipse(AnnMagnifyProperties::BorderType type, wxPoint const &corner,
                       wxPoint2DInt const &shift) {
    Look().SetBorderType(type);
    Look().SetShape(AnnShapeProperties::Ellipse);
    Look().SetBorderColor(*wxRED);
    Look().SetThickness(2);
    AnnMagnify lens = Lens(corner, corner + wxPoint(40, 40));
    DragCentre(lens, shift);
    return Paint(lens);
  }
  /// Which corners are joined, as the line between their border's middles is red half way.
  static std::string JoinedCorners(wxImage const &image) {
    // Thickness 2: the middle of the border lies 1 inside the corner.
    double const lens[4][2] = {{21, 21}, {59, 21}, {59, 59}, {21, 59}};
    double const source[4][2] = {{131, 91}, {149, 91}, {149, 109}, {131, 109}};
    std::string joined;
    for (int i = 0; i < 4; ++i) {
      // Beside the lens and the source: at 0.7 of the way.
      double const x = lens[i][0] + 0.7 * (source[i][0] - lens[i][0]);
      double const y = lens[i][1] + 0.7 * (source[i][1] - lens[i][1]);
      if (IsRedAt(image, x, y)) joined += static_cast<char>('0' + i);
    }
    return joined;
  }
};

TEST_F(AnnMagnifyLines, SourceOfADraggedCentreIsOutlined) {
  wxImage const painted =
      PaintWith(AnnMagnifyProperties::PointToZoomedArea4Lines, AnnShapeProperties::Rectangle);
  EXPECT_TRUE(IsRedAt(painted, 139, 90));
  EXPECT_TRUE(IsRedAt(painted, 130, 99));
  EXPECT_FALSE(IsRedAt(painted, 139, 99));
}

TEST_F(AnnMagnifyLines, BorderTypesJoinTwoThreeAndFourCorners) {
  auto const joined = [&](AnnMagnifyProperties::BorderType type) {
    return JoinedCorners(PaintWith(type, AnnShapeProperties::Rectangle));
  };
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea4Lines), "0123");
  // The line from the top left corner ends at the source's near corner from outside; the one of the
  // bottom right corner runs through the source.
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea3Lines), "013");
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea2Lines), "13");
  EXPECT_EQ(joined(AnnMagnifyProperties::ShapeOnly), "");
}

TEST_F(AnnMagnifyLines, ShapeOnlyShowsNoSource) {
  wxImage const painted = PaintWith(AnnMagnifyProperties::ShapeOnly, AnnShapeProperties::Rectangle);
  EXPECT_TRUE(pixels::AreaHas(painted, wxRect(62, 62, 138, 98), pixels::kWhite));
}

TEST_F(AnnMagnifyLines, DefaultPositionHasNoLines) {
  for (int const type : {2, 3, 4}) {
    wxImage const painted = PaintWith(static_cast<AnnMagnifyProperties::BorderType>(type),
                                      AnnShapeProperties::Rectangle, {0, 0});
    EXPECT_LE(pixels::BoundsOfPaint(painted).width, 43);
    EXPECT_EQ(pixels::CountWhere(painted.GetSubImage(wxRect(24, 24, 32, 32)),
                                 [](pixels::Rgb const &c) { return c == pixels::kRed; }),
              0);
  }
}

TEST_F(AnnMagnifyLines, SmallSourceIsPaintedSolid) {
  // Half the source's side is 10.
  wxImage const hollow = PaintWith(AnnMagnifyProperties::PointToZoomedArea3Lines,
                                   AnnShapeProperties::Rectangle, {100, 60}, 9);
  EXPECT_FALSE(IsRedAt(hollow, 139, 99));
  for (auto const shape : {AnnShapeProperties::Rectangle, AnnShapeProperties::Ellipse}) {
    EXPECT_TRUE(IsRedAt(
        PaintWith(AnnMagnifyProperties::PointToZoomedArea3Lines, shape, {100, 60}, 10), 139, 99));
  }
}

TEST_F(AnnMagnifyLines, EllipseJoinsTheMiddlesOfItsSides) {
  // Counted along a line across all of them, half way between lens and source.
  auto const lines = [&](AnnMagnifyProperties::BorderType type) {
    wxImage const painted = PaintWith(type, AnnShapeProperties::Ellipse);
    int crossings = 0;
    bool wasRed = false;
    for (int i = 0; i < 120; ++i) {
      bool const isRed = IsRedAt(painted, 140 - i, 30 + i);
      if (isRed && !wasRed) ++crossings;
      wasRed = isRed;
    }
    return crossings;
  };
  // The middles of the sides seen from the source: right, bottom, and, towards the lens, top, left.
  EXPECT_EQ(lines(AnnMagnifyProperties::PointToZoomedArea4Lines), 4);
  EXPECT_EQ(lines(AnnMagnifyProperties::PointToZoomedArea3Lines), 2);
  EXPECT_EQ(lines(AnnMagnifyProperties::PointToZoomedArea2Lines), 2);
  EXPECT_EQ(lines(AnnMagnifyProperties::ShapeOnly), 0);
}

TEST_F(AnnMagnifyLines, OfThreeSidesTowardsTheLensTheSecondGivesWayToTheLast) {
  // The lens, from (80, 20) to (120, 60), is above the source, about (99.5, 119.5), and twice as
  // wide: all sides of the source but the lower one look towards it. Between (100, 21) and
  // (99.5, 110.5), (119, 40) and (109, 119.5), (100, 59) and (99.5, 129), (81, 40) and (90, 119.5);
  // the lower one has a stretch of its own within the source only.
  auto const joined = [&](AnnMagnifyProperties::BorderType type) {
    return JoinedSides(PaintEllipse(type, {80, 20}, {0, 80}),
                       {{100, 85}, {113, 85}, {99, 120}, {86, 85}});
  };
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea4Lines), "trbl");
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea3Lines), "trl");
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea2Lines), "tl");
}

TEST_F(AnnMagnifyLines, PairOfOppositeSidesIsKept) {
  // The same with the lens, from (20, 60) to (60, 100), on the left of the source.
  auto const joined = [&](AnnMagnifyProperties::BorderType type) {
    return JoinedSides(PaintEllipse(type, {20, 60}, {80, 0}),
                       {{85, 66}, {120, 79}, {85, 93}, {85, 79}});
  };
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea4Lines), "trbl");
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea3Lines), "tbl");
  EXPECT_EQ(joined(AnnMagnifyProperties::PointToZoomedArea2Lines), "tb");
}

TEST_F(AnnMagnifyLines, MirroredLensIsJoinedAsItIsSeen) {
  for (auto const &[type, corners] :
       {std::pair(AnnMagnifyProperties::PointToZoomedArea3Lines, "013"),
        std::pair(AnnMagnifyProperties::PointToZoomedArea2Lines, "13")}) {
    Look().SetBorderType(type);
    Look().SetBorderColor(*wxRED);
    Look().SetThickness(2);
    AnnMagnify lens = Lens({20, 20}, {60, 60});
    DragCentre(lens, {100, 60});
    // Its left side goes over the right one, and both to where the other one was.
    wxStockCursor cursor = wxCURSOR_ARROW;
    for (auto const &[from, to] : {std::pair(20, 100), std::pair(60, 20), std::pair(100, 60)}) {
      ASSERT_TRUE(lens.IsAtResizePoint({from, 40}, cursor));
      lens.PrepareResizing();
      lens.ResizeTo({to, 40}, false);
    }
    ASSERT_TRUE(lens.IsReflected(RecordOf(lens)));
    EXPECT_EQ(JoinedCorners(Paint(lens)), corners);
  }
}

TEST_F(AnnMagnifyLines, OutlineNearTheEdgeIsCentredOnWhatIsShown) {
  // The source's centre is dragged to (196, 100): the area is clipped to columns 176 to 199 with
  // 187 in its middle, and at zoom 2 the lens shows 187 + (196 - 187) / 2 = 191.5 in its centre.
  wxImage const painted = PaintWith(AnnMagnifyProperties::PointToZoomedArea4Lines,
                                    AnnShapeProperties::Rectangle, {156, 60});
  EXPECT_TRUE(IsRedAt(painted, 182, 100));
  EXPECT_FALSE(IsRedAt(painted, 187, 100));
}

}  // namespace

}  // namespace framenote::test
