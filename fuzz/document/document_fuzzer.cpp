// SPDX-License-Identifier: MIT
// The text of a document: reads it, paints it on the screen's way and on the burnt-in frames' way,
// and writes it back.
#include <cstdint>
#include <string_view>

#include "document/document_trial.h"
#include "support/entry_points.h"
#include "support/session.h"

int LLVMFuzzerInitialize(int *, char ***) {
  framenote::fuzz::StartWithoutDisplay();
  return 0;
}

int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
  static framenote::fuzz::DocumentTrial trial;
  trial.Run(std::string_view(reinterpret_cast<char const *>(data), size));
  return 0;
}
