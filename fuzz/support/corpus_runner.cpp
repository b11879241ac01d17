// SPDX-License-Identifier: MIT
// Runs a fuzzer over the files of folders, without libFuzzer: as a test, with any compiler.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "support/entry_points.h"

namespace {

namespace fs = std::filesystem;

/// In the order of their names, so that a failure comes at the same place each time. The ignore
/// files that keep an empty folder in the repository are no inputs.
std::vector<fs::path> InputsIn(fs::path const &folder) {
  std::vector<fs::path> inputs;
  for (fs::directory_entry const &entry : fs::directory_iterator(folder)) {
    bool const isHidden = entry.path().filename().string().front() == '.';
    if (entry.is_regular_file() && !isHidden) inputs.push_back(entry.path());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

void Run(fs::path const &input) {
  // At once, so that an input that ends the process is the last one named.
  std::printf("%s\n", input.c_str());
  std::fflush(stdout);
  std::ifstream file(input, std::ios::binary);
  std::vector<char> const bytes{std::istreambuf_iterator<char>(file), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const *>(bytes.data()), bytes.size());
}

}  // namespace

// Mutators link with it; nothing is mutated here.
std::size_t LLVMFuzzerMutate(std::uint8_t *, std::size_t size, std::size_t) {
  return size;
}

int main(int argc, char **argv) {
  LLVMFuzzerInitialize(&argc, &argv);
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (fs::path const &input : InputsIn(argv[i])) {
      Run(input);
      ++count;
    }
  }
  std::printf("%zu inputs\n", count);
  return count > 0 ? 0 : 1;
}
