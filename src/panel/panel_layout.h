// SPDX-License-Identifier: MIT
#pragma once

class wxOwnerDrawnComboBox;
class wxWindow;

/// The measures of the palette panel, in pixels.
namespace framenote {

constexpr int kToolGridRows = 2;
constexpr int kToolGridColumns = 4;
constexpr int kRowGap = 4;
constexpr int kColumnGap = 4;
constexpr int kPanelBorder = 4;

/// How a check box stands below another control. GTK would part the box of a mirrored and stretched
/// one from its text.
int CheckFlags(wxWindow const &check);
/// Makes a list wide enough for its widest item; by itself it is as wide as the toolkit likes.
void FitToItems(wxOwnerDrawnComboBox &combo);

}  // namespace framenote
