// SPDX-License-Identifier: MIT
#pragma once

class wxOwnerDrawnComboBox;

/// The measures of the palette panel, in pixels.
namespace framenote {

constexpr int kToolGridRows = 2;
constexpr int kToolGridColumns = 4;
constexpr int kRowGap = 4;
constexpr int kColumnGap = 4;
constexpr int kPanelBorder = 4;

/// Makes a list wide enough for its widest item; by itself it is as wide as the toolkit likes.
void FitToItems(wxOwnerDrawnComboBox &combo);

}  // namespace framenote
