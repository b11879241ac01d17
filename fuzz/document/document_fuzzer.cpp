// SPDX-License-Identifier: MIT
// The text of a document: it is read, painted, burnt in and written back.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "document/document_trial.h"
#include "support/chance.h"
#include "support/document_mutator.h"
#include "support/entry_points.h"
#include "support/input_clock.h"
#include "support/session.h"

namespace {

using framenote::fuzz::Chance;

/// One mutation in so many is libFuzzer's own, of bytes.
constexpr std::size_t kByteRate = 12;

std::string_view TextOf(std::uint8_t const *data, std::size_t size) {
  return {reinterpret_cast<char const *>(data), size};
}

}  // namespace

int LLVMFuzzerInitialize(int *, char ***) {
  framenote::fuzz::StartWithoutDisplay();
  return 0;
}

int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
  static framenote::fuzz::DocumentTrial trial;
  framenote::fuzz::InputClock const clock;
  trial.Run(TextOf(data, size));
  return 0;
}

std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed) {
  Chance chance(seed);
  if (chance.OneIn(kByteRate)) return LLVMFuzzerMutate(data, size, maxSize);
  std::string const text = framenote::fuzz::MutatedDocument(TextOf(data, size), chance);
  if (text.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::copy(text.begin(), text.end(), data);
  return text.size();
}

std::size_t LLVMFuzzerCustomCrossOver(std::uint8_t const *data1, std::size_t size1,
                                      std::uint8_t const *data2, std::size_t size2,
                                      std::uint8_t *out, std::size_t maxOutSize,
                                      unsigned int seed) {
  Chance chance(seed);
  std::optional<std::string> const text =
      framenote::fuzz::CrossedDocuments(TextOf(data1, size1), TextOf(data2, size2), chance);
  if (!text || text->size() > maxOutSize) return 0;
  std::copy(text->begin(), text->end(), out);
  return text->size();
}
