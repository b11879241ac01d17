// SPDX-License-Identifier: MIT
#include "objects/picture_pixels.h"

#include <vector>

namespace framenote {

namespace {

/// What a thread keeps: a part of a picture, not all of a large one.
constexpr std::size_t kMaxKeptBytes = std::size_t{1} << 22;

}  // namespace

wxImage ScratchImage(wxSize const &size) {
  thread_local std::vector<unsigned char> kept;
  std::size_t const bytes = static_cast<std::size_t>(size.x) * static_cast<std::size_t>(size.y) *
                            static_cast<std::size_t>(kPictureChannels);
  if (bytes > kMaxKeptBytes) {
    wxImage image(size, false);
    if (!image.IsOk()) throw std::bad_alloc();
    return image;
  }
  if (kept.size() < bytes) kept.resize(bytes);
  return wxImage(size, kept.data(), true);
}

wxRect RectOfPicture(wxImage const &picture) {
  return picture.IsOk() ? wxRect(0, 0, picture.GetWidth(), picture.GetHeight()) : wxRect();
}

PixelView PixelsOf(wxImage const &picture) {
  return {picture.GetData(), picture.GetWidth(), picture.GetHeight(),
          picture.GetWidth() * kPictureChannels};
}

PixelArea AreaOf(wxRect const &rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

wxPoint CentreOf(wxRect const &rect) {
  wxPoint const sum = rect.GetTopLeft() + rect.GetBottomRight();
  return {sum.x / 2, sum.y / 2};
}

wxBitmap UnsharedCopy(wxBitmap const &bitmap) {
  if (!bitmap.IsOk()) return wxNullBitmap;
  return bitmap.GetSubBitmap(wxRect(wxPoint(0, 0), bitmap.GetSize()));
}

}  // namespace framenote
