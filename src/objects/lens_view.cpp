// SPDX-License-Identifier: MIT
#include "objects/lens_view.h"

#include <algorithm>
#include <cstdint>

#include "coordinates/pixel_geometry.h"
#include "objects/picture_pixels.h"

namespace framenote {

namespace {

constexpr double kMaxZoom = 100.0;
/// A lens of more pixels than these, and than its picture so many times, is shown within the
/// picture only.
constexpr std::int64_t kMaxViewPixels = std::int64_t{1} << 21;
constexpr std::int64_t kMaxViewPictures = 4;

}  // namespace

double UsableZoom(double zoom) {
  return zoom >= 1.0 ? std::min(zoom, kMaxZoom) : 1.0;
}

ZoomMethod ZoomMethodOf(int method) {
  switch (method) {
    case wxIMAGE_QUALITY_BILINEAR:
      return ZoomMethod::Bilinear;
    case wxIMAGE_QUALITY_BICUBIC:
    case wxIMAGE_QUALITY_HIGH:
      return ZoomMethod::Bicubic;
    case wxIMAGE_QUALITY_BOX_AVERAGE:
      return ZoomMethod::BoxAverage;
    default:
      return ZoomMethod::Nearest;
  }
}

PixelView PartOf(PixelView const &picture, wxRect const &part) {
  unsigned char const *const corner = picture.data +
                                      static_cast<std::ptrdiff_t>(part.y) * picture.step +
                                      static_cast<std::ptrdiff_t>(part.x) * kPictureChannels;
  return {corner, part.width, part.height, picture.step};
}

wxRect LensView(wxImage const &picture, wxRect const &lens, wxPoint const &shift) {
  wxRect seen = RectOfPicture(picture);
  std::int64_t const most = std::max(kMaxViewPixels, kMaxViewPictures * seen.width * seen.height);
  if (std::int64_t{lens.width} * lens.height <= most) return lens;
  seen.Offset(shift);
  return seen.Intersect(lens);
}

LensImage EnlargeInLens(PixelView const &picture, wxRect const &area, wxRect const &source,
                        wxRect const &view, double zoom, ZoomMethod method) {
  int const width = TruncateToInt(picture.width * zoom);
  int const height = TruncateToInt(picture.height * zoom);
  // Where the enlarged picture lies when the centre of what is shown stays in its place.
  wxPoint const fixed = CentreOf(source) - area.GetPosition();
  wxPoint const corner = area.GetPosition() + wxPoint(TruncateToInt(fixed.x * (1.0 - zoom)),
                                                      TruncateToInt(fixed.y * (1.0 - zoom)));
  wxRect const shown = wxRect(corner, wxSize(width, height)).Intersect(view);
  if (shown.IsEmpty()) return {wxNullBitmap, wxRect()};
  wxRect const part(shown.GetPosition() - corner, shown.GetSize());
  return {RenderedBitmap(EnlargedPicture(picture, width, height, method), part), shown};
}

}  // namespace framenote
