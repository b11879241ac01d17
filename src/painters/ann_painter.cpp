// SPDX-License-Identifier: MIT
#include "painters/ann_painter.h"

#include <cmath>

#include "painters/ann_painter_device_context.h"
#include "painters/ann_painter_graphics_context.h"

IAnnPainter::~IAnnPainter() = default;

wxPoint2DDouble IAnnPainter::bitmapCorner(wxPoint2DDouble const &topLeft) const {
  if (!m_keepsBitmapsOnPixels) return topLeft;
  return {std::floor(topLeft.m_x), std::floor(topLeft.m_y)};
}

std::unique_ptr<IAnnPainter> IAnnPainter::CreateAnnPainter(AnnPainterType type, wxDC &dc,
                                                           wxObject *object, double scale) {
  switch (type) {
    case GraphicsContext:
      return std::make_unique<AnnPainterGraphicsContext>(object, scale);
    case DeviceContext:
      return std::make_unique<AnnPainterDeviceContext>(dc, scale);
  }
  return nullptr;
}
