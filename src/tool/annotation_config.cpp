// SPDX-License-Identifier: MIT
#include "framenote/annotation_config.h"

AnnotationToolConfig::AnnotationToolConfig(bool drawWithDeviceContextFlag,
                                           bool renderWithDeviceContextFlag,
                                           bool showZoomMethodFlag, bool showHideAllFlag,
                                           bool extensionEnabledFlag,
                                           TextMacrosConfig const &textMacrosConfig)
    : drawWithDeviceContext(drawWithDeviceContextFlag),
      renderWithDeviceContext(renderWithDeviceContextFlag),
      showZoomMethod(showZoomMethodFlag),
      showHideAll(showHideAllFlag),
      extensionEnabled(extensionEnabledFlag),
      textMacros(textMacrosConfig) {}
