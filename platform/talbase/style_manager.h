// SPDX-License-Identifier: MIT
#pragma once

#include <wx/colour.h>

#include "framenote/export.h"

/// The one instance of a class, made at first use. Exported, so that the library and its host meet
/// the same one.
template <class T>
class FRAMENOTE_API Singleton {
public:
  Singleton() = delete;

  /// Usable on any thread; what the instance allows is its class's matter.
  static T &Instance() {
    static T instance;
    return instance;
  }
};

/// The colours that panels take on. REQUIRES: a running wxApp.
class FRAMENOTE_API StyleManager {
public:
  wxColour GetBackgroundColor() const;  ///< of panels
  wxColour GetForegroundColor() const;  ///< of texts on them
};
