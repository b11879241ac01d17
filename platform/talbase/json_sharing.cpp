// SPDX-License-Identifier: MIT
#include "talbase/json_sharing.h"

#include "talbase/json_node.h"

namespace framenote {

bool AreShared(wxJSONValue const &a, wxJSONValue const &b) noexcept {
  JsonNode const *const node = JsonAccess::Node(a);
  return node != nullptr && node == JsonAccess::Node(b);
}

}  // namespace framenote
