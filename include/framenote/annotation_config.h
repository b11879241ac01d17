// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include <wx/string.h>

#include "framenote/export.h"

/// What a host decides once, when it makes an AnnotationTool. A plain record.
struct FRAMENOTE_API AnnotationToolConfig {
  /// The macros that text boxes may hold, as the host offers them.
  struct FRAMENOTE_API TextMacrosConfig {
    wxString macroLabel;  ///< label beside the macro control
    /// Name shown in the list, and text that is inserted.
    std::vector<std::pair<wxString, wxString>> macros;
    bool showMacroValues = false;  ///< list "name: text" rather than the name alone
  };

  /// Each argument goes to the member of its name.
  AnnotationToolConfig(bool drawWithDeviceContext, bool renderWithDeviceContext,
                       bool showZoomMethod, bool showHideAll, bool extensionEnabled,
                       TextMacrosConfig const &textMacros);

  bool drawWithDeviceContext;    ///< paint on windows with the device-context painter
  bool renderWithDeviceContext;  ///< the same choice for burnt-in frames
  bool showZoomMethod;           ///< the panel offers the magnifier's zoom method
  bool showHideAll;              ///< the panel offers to hide all annotations
  bool extensionEnabled;         ///< the annotation area may grow past the picture
  TextMacrosConfig textMacros;   ///< offered by the panel of text boxes
};
