// SPDX-License-Identifier: MIT
// Drives minimal_host as a user does: the program runs as a process, and the mouse and the keys go
// through the X server.
#include <string>
#include <vector>

#include <wx/defs.h>

#include <gtest/gtest.h>

#include "support/host_on_screen.h"
#include "talbase/json_text.h"

namespace framenote::test {

namespace {

constexpr int kZoom = 2;
constexpr double kPrecision = 1e-6;  ///< picture pixels

class MinimalHost : public EditingHost {
protected:
  MinimalHost() : EditingHost(wxSize(1000, 760), kZoom) {}

  HostProcess::Arguments Command(std::string const &document) const override {
    return {FRAMENOTE_MINIMAL_HOST_PROGRAM, SavePicture("in.png", 240), document,
            std::to_string(100 * kZoom)};
  }

  /// The corners of the first object, clockwise from the top left.
  std::vector<double> SavedCorners() {
    wxJSONValue const run = SavedObjects().ItemAt(0).ItemAt("Coordinates").ItemAt(0);
    std::vector<double> corners;
    for (char const *key : {"TopLeft", "TopRight", "BottomRight", "BottomLeft"}) {
      corners.push_back(run.ItemAt(key).ItemAt(0).AsDouble());
      corners.push_back(run.ItemAt(key).ItemAt(1).AsDouble());
    }
    return corners;
  }

  /// For the next shape: the tool is left and taken again, as a list changes what is selected.
  void ChooseEllipse() {
    UseTool(Types::Shape);
    UseTool(Types::Shape);
    ClickControl(kShapeList, 0.95);
    Key(WXK_DOWN);
    Key(WXK_RETURN);
  }
};

void ExpectCorners(std::vector<double> const &corners, std::vector<double> const &expected) {
  ASSERT_EQ(corners.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_NEAR(corners[i], expected[i], kPrecision) << "number " << i;
  }
}

/// An unturned rectangle by its outermost coordinates.
void ExpectRectangle(std::vector<double> const &corners, double left, double top, double right,
                     double bottom) {
  ExpectCorners(corners, {left, top, right, top, right, bottom, left, bottom});
}

TEST_F(MinimalHost, ARectangleIsDrawnMovedResizedAndTurnedWithTheMouse) {
  ASSERT_NO_FATAL_FAILURE(Start());
  UseTool(Types::Shape);
  DragInPicture({{100, 80}, {150, 120}, {180, 140}});
  ExpectRectangle(SavedCorners(), 100, 80, 180, 140);

  // Saving ends the selection; the border is where a hollow shape can be taken.
  DragInPicture({{120, 82}, {125, 90}, {130, 97}});
  ExpectRectangle(SavedCorners(), 110, 95, 190, 155);

  struct {
    wxPoint select, from, to;
    int left, top, right, bottom;
  } const handles[] = {
      {{112, 110}, {110, 95}, {100, 85}, 100, 85, 190, 155},
      {{102, 102}, {145, 85}, {145, 75}, 100, 75, 190, 155},
      {{102, 92}, {190, 75}, {200, 65}, 100, 65, 200, 155},
      {{102, 82}, {200, 110}, {210, 110}, 100, 65, 210, 155},
      {{102, 82}, {210, 155}, {220, 165}, 100, 65, 220, 165},
      {{102, 85}, {160, 165}, {160, 175}, 100, 65, 220, 175},
      {{102, 85}, {100, 175}, {90, 185}, 90, 65, 220, 185},
      {{92, 90}, {90, 125}, {80, 125}, 80, 65, 220, 185},
  };
  int number = 0;
  for (auto const &row : handles) {
    SCOPED_TRACE("handle " + std::to_string(++number));
    ClickInPicture(row.select);
    DragInPicture({row.from, (row.from + row.to) / 2, row.to});
    ExpectRectangle(SavedCorners(), row.left, row.top, row.right, row.bottom);
  }

  // The rotation handle is 30 pixels of the screen above the top side. Dragged to the right of
  // the centre (150, 125), it turns the shape by a quarter.
  ClickInPicture({82, 90});
  DragInPicture({{150, 50}, {220, 60}, {250, 125}});
  ExpectCorners(SavedCorners(), {210, 55, 210, 195, 90, 195, 90, 55});
}

TEST_F(MinimalHost, EachToolMakesItsKindOfObject) {
  ASSERT_NO_FATAL_FAILURE(Start());
  UseTool(Types::Shape);
  DragInPicture({{20, 20}, {50, 40}, {80, 60}});
  ChooseEllipse();
  DragInPicture({{120, 20}, {150, 40}, {190, 70}});
  UseTool(Types::Arrow);
  DragInPicture({{20, 120}, {50, 130}, {90, 150}});
  UseTool(Types::Pencil);
  std::vector<wxPoint> const path = {{120, 120}, {130, 125}, {140, 130}, {150, 140}, {160, 150},
                                     {170, 150}, {180, 140}, {190, 130}, {200, 120}, {210, 110}};
  DragInPicture(path);
  UseTool(Types::Hide);
  DragInPicture({{220, 20}, {240, 40}, {260, 70}});
  UseTool(Types::Magnify);
  DragInPicture({{220, 120}, {240, 140}, {270, 160}});

  // The last one drawn is in front.
  wxJSONValue const objects = SavedObjects();
  ASSERT_EQ(objects.Size(), 6);
  wxJSONValue const lens = objects.ItemAt(0);
  wxJSONValue const region = objects.ItemAt(1);
  wxJSONValue const stroke = objects.ItemAt(2);
  wxJSONValue const arrow = objects.ItemAt(3);
  wxJSONValue const ellipse = objects.ItemAt(4);
  wxJSONValue const rectangle = objects.ItemAt(5);
  EXPECT_EQ(region.ItemAt("Id").AsInt(), 7);
  wxJSONValue const regionRun = region.ItemAt("Rectangle").ItemAt("Coordinates").ItemAt(0);
  ExpectPoint(regionRun.ItemAt("TopLeft"), 220, 20);
  ExpectPoint(regionRun.ItemAt("BottomRight"), 260, 70);
  EXPECT_EQ(lens.ItemAt("Id").AsInt(), 8);
  wxJSONValue const lensRun = lens.ItemAt("Rectangle").ItemAt("Coordinates").ItemAt(0);
  ExpectPoint(lensRun.ItemAt("TopLeft"), 220, 120);
  ExpectPoint(lensRun.ItemAt("BottomRight"), 270, 160);
  EXPECT_EQ(rectangle.ItemAt("Id").AsInt(), 2);
  EXPECT_EQ(rectangle.ItemAt("Properties").ItemAt("Shape").AsInt(), 0);
  EXPECT_EQ(ellipse.ItemAt("Id").AsInt(), 2);
  EXPECT_EQ(ellipse.ItemAt("Properties").ItemAt("Shape").AsInt(), 1);
  ExpectPoint(ellipse.ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft"), 120, 20);
  ExpectPoint(ellipse.ItemAt("Coordinates").ItemAt(0).ItemAt("BottomRight"), 190, 70);
  EXPECT_EQ(arrow.ItemAt("Id").AsInt(), 3);
  ExpectPoint(arrow.ItemAt("Coordinates").ItemAt(0).ItemAt("Tail"), 20, 120);
  ExpectPoint(arrow.ItemAt("Coordinates").ItemAt(0).ItemAt("Head"), 90, 150);
  EXPECT_EQ(stroke.ItemAt("Id").AsInt(), 4);

  // The toolkit may merge motions that come too close together, but keeps their order.
  ExpectPoint(stroke.ItemAt("Coordinates").ItemAt(0).ItemAt("StartPoint"), 120, 120);
  wxJSONValue const diffs = stroke.ItemAt("PathDiffs");
  ASSERT_GE(diffs.Size(), 5);
  ExpectPoint(diffs.ItemAt(0), 0, 0);
  ExpectPoint(diffs.ItemAt(diffs.Size() - 1), 90, -10);
  std::size_t next = 0;
  for (int i = 0; i < diffs.Size(); ++i) {
    wxPoint const diff(diffs.ItemAt(i).ItemAt(0).AsInt(), diffs.ItemAt(i).ItemAt(1).AsInt());
    while (next < path.size() && path[next] != path[0] + diff) ++next;
    ASSERT_LT(next, path.size()) << "point " << i << " is not on the way";
  }
}

TEST_F(MinimalHost, ASecondRunRestoresTheDocumentAndSavesTheSameText) {
  ASSERT_NO_FATAL_FAILURE(Start());
  UseTool(Types::Shape);
  DragInPicture({{20, 20}, {50, 40}, {80, 60}});
  UseTool(Types::Arrow);
  DragInPicture({{20, 120}, {50, 130}, {90, 150}});
  UseTool(Types::Pencil);
  DragInPicture(
      {{120, 120}, {130, 125}, {140, 130}, {150, 140}, {160, 150}, {170, 150}, {180, 140}});
  std::string const first = Save();
  EXPECT_EQ(JsonFromUtf8(first).ItemAt("Annotate").ItemAt("Objects").Size(), 3);

  ASSERT_NO_FATAL_FAILURE(Start());
  EXPECT_EQ(Save(), first);

  // What was restored can be taken and moved like what was drawn.
  DragInPicture({{40, 22}, {45, 30}, {50, 42}});
  wxJSONValue const rectangle = SavedObjects().ItemAt(2);
  ExpectPoint(rectangle.ItemAt("Coordinates").ItemAt(0).ItemAt("TopLeft"), 30, 40);
  ExpectPoint(rectangle.ItemAt("Coordinates").ItemAt(0).ItemAt("BottomRight"), 90, 80);
}

}  // namespace

}  // namespace framenote::test
