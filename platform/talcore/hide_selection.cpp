// SPDX-License-Identifier: MIT
#include "talcore/hide_selection.h"

#include <opencv2/core/core_c.h>

#include "talcore/hidden_picture.h"

namespace {

constexpr int kChannels = 3;

framenote::PixelView ViewOf(IplImage const &picture) {
  return {reinterpret_cast<unsigned char const *>(picture.imageData), picture.width, picture.height,
          picture.widthStep};
}

bool CanHide(IplImage const *source, IplImage const *destination) {
  return source != nullptr && destination != nullptr && source->depth == IPL_DEPTH_8U &&
         destination->depth == IPL_DEPTH_8U && source->width > 0 && source->height > 0 &&
         source->width == destination->width && source->height == destination->height &&
         source->nChannels == kChannels && destination->nChannels == kChannels;
}

}  // namespace

void tcvHideSelection(IplImage const *source, IplImage *destination, int effect, int strength) {
  if (!CanHide(source, destination)) return;
  auto const kind = effect != 0 ? framenote::HideEffect::Pixelation : framenote::HideEffect::Blur;
  framenote::HiddenPicture const hidden(ViewOf(*source), kind, strength);
  hidden.Render({0, 0, source->width, source->height},
                reinterpret_cast<unsigned char *>(destination->imageData), destination->widthStep);
}
