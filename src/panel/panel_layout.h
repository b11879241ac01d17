// SPDX-License-Identifier: MIT
#pragma once

/// The measures of the palette panel, in pixels.
namespace framenote {

constexpr int kToolGridRows = 2;
constexpr int kToolGridColumns = 4;
constexpr int kRowGap = 4;
constexpr int kColumnGap = 4;
constexpr int kPanelBorder = 4;

}  // namespace framenote
