// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <ostream>

#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

#include <gtest/gtest.h>

#include "painters/ann_painter.h"

inline void PrintTo(wxRect const &rect, std::ostream *out) {
  *out << '(' << rect.x << ", " << rect.y << ", " << rect.width << 'x' << rect.height << ')';
}

/// Paints small pictures and asks for their pixels.
namespace framenote::pixels {

struct Rgb {
  int red;
  int green;
  int blue;
};

constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kRed{255, 0, 0};
constexpr Rgb kGreen{0, 255, 0};
constexpr Rgb kBlue{0, 0, 255};

/// The largest difference among the three channels.
inline int Difference(Rgb const &a, Rgb const &b) {
  return std::max(
      {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

inline bool operator==(Rgb const &a, Rgb const &b) {
  return Difference(a, b) == 0;
}

inline std::ostream &operator<<(std::ostream &out, Rgb const &colour) {
  return out << "rgb(" << colour.red << ", " << colour.green << ", " << colour.blue << ')';
}

inline wxColour ToColour(Rgb const &colour, int alpha = 255) {
  return wxColour(static_cast<unsigned char>(colour.red), static_cast<unsigned char>(colour.green),
                  static_cast<unsigned char>(colour.blue), static_cast<unsigned char>(alpha));
}

inline Rgb ColourAt(wxImage const &image, int x, int y) {
  return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

/// The bounds of the pixels for which `test` holds; empty if there are none.
template <typename Test>
wxRect BoundsWhere(wxImage const &image, Test test) {
  wxRect bounds;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      if (test(ColourAt(image, x, y))) bounds.Union(wxRect(x, y, 1, 1));
    }
  }
  return bounds;
}

template <typename Test>
int CountWhere(wxImage const &image, Test test) {
  int count = 0;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) count += test(ColourAt(image, x, y)) ? 1 : 0;
  }
  return count;
}

inline wxRect BoundsOf(wxImage const &image, Rgb const &colour, int tolerance = 0) {
  return BoundsWhere(image, [&](Rgb const &c) { return Difference(c, colour) <= tolerance; });
}

/// The bounds of everything that is not the background.
inline wxRect BoundsOfPaint(wxImage const &image, Rgb const &background = kWhite) {
  return BoundsWhere(image, [&](Rgb const &c) { return !(c == background); });
}

inline int CountOf(wxImage const &image, Rgb const &colour, int tolerance = 0) {
  return CountWhere(image, [&](Rgb const &c) { return Difference(c, colour) <= tolerance; });
}

/// The area that is painted in the colour on white, in pixels: parts of pixels count as parts. A
/// surface draws curves as short lines inside them, so round shapes come out up to 1% smaller.
inline double AreaOf(wxImage const &image, Rgb const &colour) {
  double area = 0;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      area += static_cast<double>(Difference(ColourAt(image, x, y), kWhite)) /
              Difference(colour, kWhite);
    }
  }
  return area;
}

/// Whether all pixels of `area` have the colour; names the first that has not.
inline testing::AssertionResult AreaHas(wxImage const &image, wxRect const &area, Rgb const &colour,
                                        int tolerance = 0) {
  for (int y = area.y; y < area.y + area.height; ++y) {
    for (int x = area.x; x < area.x + area.width; ++x) {
      Rgb const found = ColourAt(image, x, y);
      if (Difference(found, colour) <= tolerance) continue;
      return testing::AssertionFailure()
             << "pixel (" << x << ", " << y << ") is " << found << " instead of " << colour;
    }
  }
  return testing::AssertionSuccess();
}

/// Whether two pictures of one size differ nowhere by more than `tolerance`; names the first pixel
/// that does.
inline testing::AssertionResult Alike(wxImage const &a, wxImage const &b, int tolerance) {
  if (a.GetSize() != b.GetSize()) return testing::AssertionFailure() << "sizes differ";
  for (int y = 0; y < a.GetHeight(); ++y) {
    for (int x = 0; x < a.GetWidth(); ++x) {
      Rgb const one = ColourAt(a, x, y);
      Rgb const other = ColourAt(b, x, y);
      if (Difference(one, other) <= tolerance) continue;
      return testing::AssertionFailure() << "pixel (" << x << ", " << y << ") is " << one
                                         << " in one and " << other << " in the other";
    }
  }
  return testing::AssertionSuccess();
}

/// What `paint`, called with the owner of a painter of the type, leaves on a white picture.
template <typename Paint>
wxImage PaintedBy(IAnnPainter::AnnPainterType type, wxSize const &size, double scale, Paint paint) {
  wxBitmap bitmap(size, 24);
  wxMemoryDC dc(bitmap);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  {
    auto painter = IAnnPainter::CreateAnnPainter(type, dc, &dc, scale);
    paint(painter);
  }
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

/// The same for what needs but the painter.
template <typename Paint>
wxImage Painted(IAnnPainter::AnnPainterType type, wxSize const &size, double scale, Paint paint) {
  return PaintedBy(type, size, scale, [&](auto &painter) { paint(*painter); });
}

}  // namespace framenote::pixels
