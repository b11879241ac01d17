// SPDX-License-Identifier: MIT
#include "painters/ann_painter.h"

#include "painters/ann_painter_device_context.h"
#include "painters/ann_painter_graphics_context.h"

IAnnPainter::~IAnnPainter() = default;

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
