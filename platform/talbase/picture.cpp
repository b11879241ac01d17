// SPDX-License-Identifier: MIT
#include "talbase/picture.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include <opencv2/core/core_c.h>

namespace {

constexpr int kRgbChannels = 3;

/// Rows of new pixels begin at multiples of this.
constexpr int kRowAlignment = 4;

/// The picture header counts the bytes of all rows, their padding included, in an int.
bool FitsHeader(wxSize const &size, int channels, int step) {
  constexpr std::int64_t most = std::numeric_limits<int>::max();
  std::int64_t const row = std::int64_t{size.x} * channels;
  if (step != 0 && step < row) return false;
  std::int64_t const bytesPerRow = step != 0 ? step : row + kRowAlignment;
  return bytesPerRow <= most && bytesPerRow * size.y <= most;
}

std::shared_ptr<IplImage> NewPicture(wxSize const &size, int channels) {
  IplImage *const image = cvCreateImage(cvSize(size.x, size.y), IPL_DEPTH_8U, channels);
  cvSetZero(image);
  return {image, [](IplImage *owned) { cvReleaseImage(&owned); }};
}

std::shared_ptr<IplImage> PictureOn(wxSize const &size, int channels, void *data, int step) {
  IplImage *const header = cvCreateImageHeader(cvSize(size.x, size.y), IPL_DEPTH_8U, channels);
  cvSetData(header, data, step != 0 ? step : size.x * channels);
  return {header, [](IplImage *owned) { cvReleaseImageHeader(&owned); }};
}

}  // namespace

Image::Image(wxSize const &size, int depth, int channels, void *data, int step) {
  if (size.x <= 0 || size.y <= 0 || channels <= 0 || channels > CV_CN_MAX) return;
  if (depth != IPL_DEPTH_8U || !FitsHeader(size, channels, data == nullptr ? 0 : step)) return;
  m_image = data == nullptr ? NewPicture(size, channels) : PictureOn(size, channels, data, step);
}

wxSize Image::Size() const {
  return m_image ? wxSize(m_image->width, m_image->height) : wxSize(0, 0);
}

int Image::Depth() const {
  return m_image ? m_image->depth : 0;
}

int Image::Channels() const {
  return m_image ? m_image->nChannels : 0;
}

Image::operator IplImage *() {
  return m_image.get();
}

Image::operator IplImage const *() const {
  return m_image.get();
}

Image WxImageToImage(wxImage const &image) {
  if (!image.IsOk()) return Image(wxSize(0, 0), IPL_DEPTH_8U, kRgbChannels, nullptr, 0);
  Image picture(image.GetSize(), IPL_DEPTH_8U, kRgbChannels, nullptr, 0);
  IplImage *const target = picture;
  if (target == nullptr) return picture;
  std::size_t const row = static_cast<std::size_t>(image.GetWidth()) * kRgbChannels;
  for (int y = 0; y < image.GetHeight(); ++y) {
    std::memcpy(target->imageData + static_cast<std::ptrdiff_t>(y) * target->widthStep,
                image.GetData() + static_cast<std::size_t>(y) * row, row);
  }
  return picture;
}

wxImage IplImageToWxImage(IplImage const *picture) {
  if (picture == nullptr || picture->depth != IPL_DEPTH_8U || picture->nChannels != kRgbChannels ||
      picture->imageData == nullptr) {
    return wxImage();
  }
  wxImage image(picture->width, picture->height, false);
  if (!image.IsOk()) return wxImage();
  std::size_t const row = static_cast<std::size_t>(picture->width) * kRgbChannels;
  for (int y = 0; y < picture->height; ++y) {
    std::memcpy(image.GetData() + static_cast<std::size_t>(y) * row,
                picture->imageData + static_cast<std::ptrdiff_t>(y) * picture->widthStep, row);
  }
  return image;
}
