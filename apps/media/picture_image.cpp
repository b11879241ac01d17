// SPDX-License-Identifier: MIT
#include "media/picture_image.h"

#include <cstring>

wxImage ToImage(Picture &&picture) {
  if (!picture.IsOk()) return {};
  int const width = picture.Width();
  int const height = picture.Height();
  return wxImage(width, height, picture.Release());
}

Picture ToPicture(wxImage const &image) {
  if (!image.IsOk()) return {};
  Picture picture(image.GetWidth(), image.GetHeight());
  std::memcpy(picture.Pixels(), image.GetData(), picture.ByteCount());
  return picture;
}
