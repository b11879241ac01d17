// SPDX-License-Identifier: MIT
#include "desktop/theme.h"

#include <algorithm>
#include <cmath>

#include <wx/settings.h>

namespace {

constexpr double kSurroundShare = 0.4;
constexpr double kDarkestSurround = 24.0;
constexpr double kLightestSurround = 96.0;
constexpr double kMiddleGrey = 128.0;

unsigned char MixedChannel(unsigned char under, unsigned char over, double share) {
  return static_cast<unsigned char>(std::lround(under + (over - under) * share));
}

/// 0 to 255, by the weights of ITU-R BT.601.
double Brightness(wxColour const &colour) {
  return 0.299 * colour.Red() + 0.587 * colour.Green() + 0.114 * colour.Blue();
}

}  // namespace

wxColour Mixed(wxColour const &under, wxColour const &over, double share) {
  return {MixedChannel(under.Red(), over.Red(), share),
          MixedChannel(under.Green(), over.Green(), share),
          MixedChannel(under.Blue(), over.Blue(), share)};
}

wxColour SurroundColour() {
  double const face = Brightness(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  double const grey = std::clamp(face * kSurroundShare, kDarkestSurround, kLightestSurround);
  auto const channel = static_cast<unsigned char>(std::lround(grey));
  return {channel, channel, channel};
}

wxColour ReadableOn(wxColour const &background) {
  return Brightness(background) < kMiddleGrey ? wxColour(255, 255, 255) : wxColour(0, 0, 0);
}
