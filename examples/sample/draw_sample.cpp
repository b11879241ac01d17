// SPDX-License-Identifier: MIT
//
// Draws the sample that the demonstration annotates: the picture of a street, and a document with
// annotations for it. Needs no display.
//
//   framenote_sample DIRECTORY    writes DIRECTORY/sample.png and DIRECTORY/sample-annotations.json

#include <cstdio>
#include <memory>

#include <wx/brush.h>
#include <wx/colour.h>
#include <wx/ffile.h>
#include <wx/font.h>
#include <wx/graphics.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/pen.h>

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

/// The annotations, as a host would store them: a rectangle around the number plate, an ellipse
/// around the person, an arrow to the car's rear wheel and a stroke under the window.
char const *const kDocument = R"({
  "Annotate": {
    "ExtensionColor": null,
    "Objects": [
      {
        "Id": 2,
        "StartFrame": 0,
        "EndFrame": 0,
        "Properties": {
          "Shape": 0,
          "BorderColor": "#FFD400FF",
          "BorderColorTransparent": false,
          "FillColor": "#FFFFFFFF",
          "FillColorTransparent": true,
          "Thickness": 5
        },
        "Coordinates": [
          {
            "TopLeft": [716, 508],
            "TopRight": [880, 508],
            "BottomRight": [880, 566],
            "BottomLeft": [716, 566],
            "Range": [0, 0]
          }
        ]
      },
      {
        "Id": 2,
        "StartFrame": 0,
        "EndFrame": 0,
        "Properties": {
          "Shape": 1,
          "BorderColor": "#E02020FF",
          "BorderColorTransparent": false,
          "FillColor": "#FFFFFFFF",
          "FillColorTransparent": true,
          "Thickness": 6
        },
        "Coordinates": [
          {
            "TopLeft": [160, 290],
            "TopRight": [340, 290],
            "BottomRight": [340, 650],
            "BottomLeft": [160, 650],
            "Range": [0, 0]
          }
        ]
      },
      {
        "Id": 3,
        "StartFrame": 0,
        "EndFrame": 0,
        "Properties": {
          "Head": 0,
          "Color": "#20A040FF",
          "Thickness": 8
        },
        "Coordinates": [
          {
            "Head": [1046, 530],
            "Tail": [1190, 330],
            "Range": [0, 0]
          }
        ]
      },
      {
        "Id": 4,
        "StartFrame": 0,
        "EndFrame": 0,
        "PathDiffs": [
          [0, 0], [20, 10], [40, 0], [60, 10], [80, 0], [100, 10], [120, 0], [140, 10], [160, 0]
        ],
        "Properties": {
          "Color": "#2060E0FF",
          "Thickness": 4
        },
        "Coordinates": [
          {
            "StartPoint": [720, 452],
            "Range": [0, 0]
          }
        ]
      }
    ]
  }
}
)";

/// Fills what is drawn next; `colour` is 0xBBGGRR.
void Fill(wxGraphicsContext &context, unsigned long colour) {
  context.SetPen(*wxTRANSPARENT_PEN);
  context.SetBrush(wxBrush(wxColour(colour)));
}

void DrawHouses(wxGraphicsContext &context) {
  constexpr unsigned long kWalls[] = {0x7a8fb0, 0x90a8b8, 0x6880a0, 0x88a0c8};
  constexpr int kHouseWidth = kWidth / 4;
  for (int house = 0; house < 4; ++house) {
    int const left = house * kHouseWidth;
    int const top = 90 + 35 * (house % 3);
    Fill(context, kWalls[house]);
    context.DrawRectangle(left, top, kHouseWidth, 460 - top);
    Fill(context, 0x503c28);
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 4; ++column) {
        context.DrawRectangle(left + 28 + 70 * column, top + 30 + 100 * row, 40, 60);
      }
    }
  }
}

void DrawStreet(wxGraphicsContext &context) {
  Fill(context, 0xe8c8a0);
  context.DrawRectangle(0, 0, kWidth, kHeight);
  DrawHouses(context);
  Fill(context, 0xb0b0b0);
  context.DrawRectangle(0, 460, kWidth, 100);
  Fill(context, 0x505050);
  context.DrawRectangle(0, 560, kWidth, kHeight - 560);
  Fill(context, 0xf0f0f0);
  for (int left = 40; left < kWidth; left += 200) context.DrawRectangle(left, 670, 110, 10);
}

void DrawPlate(wxGraphicsContext &context) {
  Fill(context, 0xffffff);
  context.DrawRoundedRectangle(728, 518, 140, 38, 6);
  context.SetFont(wxFont(wxFontInfo(20).FaceName("DejaVu Sans Mono").Bold()), *wxBLACK);
  double width = 0;
  double height = 0;
  context.GetTextExtent("FN 2026", &width, &height);
  context.DrawText("FN 2026", 798 - width / 2, 537 - height / 2);
}

void DrawWheel(wxGraphicsContext &context, double x, double y) {
  Fill(context, 0x202020);
  context.DrawEllipse(x - 48, y - 48, 96, 96);
  Fill(context, 0xb8b8b8);
  context.DrawEllipse(x - 22, y - 22, 44, 44);
}

/// A car seen from the side, its number plate turned to the viewer.
void DrawCar(wxGraphicsContext &context) {
  Fill(context, 0x3030a8);
  context.DrawRoundedRectangle(560, 440, 600, 150, 40);
  wxGraphicsPath cabin = context.CreatePath();
  cabin.MoveToPoint(660, 450);
  cabin.AddLineToPoint(740, 350);
  cabin.AddLineToPoint(990, 350);
  cabin.AddLineToPoint(1070, 450);
  cabin.CloseSubpath();
  context.FillPath(cabin);
  Fill(context, 0xf0e0c8);
  context.DrawRoundedRectangle(752, 366, 100, 74, 10);
  context.DrawRoundedRectangle(870, 366, 110, 74, 10);
  DrawWheel(context, 660, 590);
  DrawWheel(context, 1030, 590);
  DrawPlate(context);
}

void DrawPerson(wxGraphicsContext &context) {
  Fill(context, 0x90b8e8);
  context.DrawEllipse(222, 312, 56, 66);
  Fill(context, 0x285028);
  context.DrawRoundedRectangle(208, 382, 84, 130, 22);
  context.SetPen(wxPen(wxColour(0x285028ul), 22));
  context.StrokeLine(214, 400, 190, 490);
  context.StrokeLine(286, 400, 310, 490);
  context.SetPen(wxPen(wxColour(0x602818ul), 28));
  context.StrokeLine(230, 510, 222, 620);
  context.StrokeLine(270, 510, 280, 620);
}

wxImage DrawScene() {
  wxImage image(kWidth, kHeight);
  {
    std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(image));
    DrawStreet(*context);
    DrawCar(*context);
    DrawPerson(*context);
  }  // the pixels reach the image when the context goes
  return image;
}

bool WriteDocument(wxString const &path) {
  wxFFile file;
  return file.Open(path, "wb") && file.Write(wxString::FromUTF8(kDocument)) && file.Close();
}

}  // namespace

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fputs("usage: framenote_sample DIRECTORY\n", stderr);
    return 2;
  }
  wxInitializer const wx;
  if (!wx) return 1;
  wxImage::AddHandler(new wxPNGHandler);  // owned by wxImage

  wxString const directory = wxString::FromUTF8(argv[1]);
  if (!DrawScene().SaveFile(directory + "/sample.png", wxBITMAP_TYPE_PNG)) return 1;
  return WriteDocument(directory + "/sample-annotations.json") ? 0 : 1;
}
