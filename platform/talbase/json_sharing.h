// SPDX-License-Identifier: MIT
#pragma once

#include "framenote/export.h"

class wxJSONValue;

namespace framenote {

/// Whether two values are one string, array or object in memory: then they are the same, to the
/// order of their members, which is known without a visit. Others may be the same too.
FRAMENOTE_API bool AreShared(wxJSONValue const &a, wxJSONValue const &b) noexcept;

}  // namespace framenote
