// SPDX-License-Identifier: MIT
// The bytes of a project file and of a recovery file: they are read from disk as the programs read
// them, and what was read is written and read again.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "project/project_trial.h"
#include "support/chance.h"
#include "support/document_mutator.h"
#include "support/entry_points.h"
#include "support/input_clock.h"
#include "support/session.h"

namespace {

using framenote::fuzz::Chance;
using framenote::fuzz::MutatedDocument;

/// One mutation in so many is libFuzzer's own, of bytes.
constexpr std::size_t kByteRate = 4;

std::string_view TextOf(std::uint8_t const *data, std::size_t size) {
  return {reinterpret_cast<char const *>(data), size};
}

/// With one line changed: a recovery file has two, each a document of its own.
std::string Mutated(std::string_view text, Chance &chance) {
  std::size_t const end = std::min(text.find('\n'), text.size());
  std::string const first(text.substr(0, end));
  std::string const rest(text.substr(end));
  bool const hasRest = rest.find_first_not_of(" \n") != std::string::npos;
  if (!hasRest || chance.OneIn(2)) return MutatedDocument(first, chance) + rest;
  return first + "\n" + MutatedDocument(rest, chance) + "\n";
}

}  // namespace

int LLVMFuzzerInitialize(int *, char ***) {
  framenote::fuzz::StartWithoutDisplay();
  return 0;
}

int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
  static framenote::fuzz::ProjectTrial trial;
  framenote::fuzz::InputClock const clock;
  trial.Run(TextOf(data, size));
  return 0;
}

std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed) {
  Chance chance(seed);
  if (chance.OneIn(kByteRate)) return LLVMFuzzerMutate(data, size, maxSize);
  std::string const text = Mutated(TextOf(data, size), chance);
  if (text.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::copy(text.begin(), text.end(), data);
  return text.size();
}
