// SPDX-License-Identifier: MIT
#include "support/screen_capture.h"

#include <memory>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace framenote::test {

namespace {

struct CloseDisplay {
  void operator()(Display *display) const { XCloseDisplay(display); }
};

struct DestroyImage {
  void operator()(XImage *image) const { XDestroyImage(image); }
};

}  // namespace

wxImage CaptureScreen(wxRect const &area) {
  std::unique_ptr<Display, CloseDisplay> const display(XOpenDisplay(nullptr));
  if (!display) return {};
  std::unique_ptr<XImage, DestroyImage> const pixels(XGetImage(
      display.get(), DefaultRootWindow(display.get()), area.x, area.y,
      static_cast<unsigned>(area.width), static_cast<unsigned>(area.height), AllPlanes, ZPixmap));
  if (!pixels) return {};
  wxImage image(area.width, area.height, false);
  for (int y = 0; y < area.height; ++y) {
    for (int x = 0; x < area.width; ++x) {
      // A true-colour screen of 24 bits: red, green, blue from the top.
      unsigned long const pixel = XGetPixel(pixels.get(), x, y);
      image.SetRGB(x, y, static_cast<unsigned char>(pixel >> 16 & 0xff),
                   static_cast<unsigned char>(pixel >> 8 & 0xff),
                   static_cast<unsigned char>(pixel & 0xff));
    }
  }
  return image;
}

}  // namespace framenote::test
