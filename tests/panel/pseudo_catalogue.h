// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include <wx/arrstr.h>
#include <wx/buffer.h>
#include <wx/string.h>
#include <wx/translation.h>

namespace framenote::test {

/// While it lives, every given text is translated into one that is half as long again.
class PseudoCatalogue {
public:
  explicit PseudoCatalogue(std::vector<wxString> const &texts);
  ~PseudoCatalogue();
  PseudoCatalogue(PseudoCatalogue const &) = delete;
  PseudoCatalogue &operator=(PseudoCatalogue const &) = delete;

  /// What a text becomes.
  static wxString Longer(wxString const &text);
};

}  // namespace framenote::test
