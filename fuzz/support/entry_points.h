// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// The functions that libFuzzer calls in a fuzzer, and the one that it offers. The names and types
/// are libFuzzer's.
extern "C" {

/// Called once, before the first input.
int LLVMFuzzerInitialize(int *argc, char ***argv);
/// Runs one input. Ends the process if it finds a defect.
int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size);
/// Changes the input in place, to at most `maxSize` bytes; returns the new size. Optional.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed);
/// Makes an input of two others; returns its size. Optional.
std::size_t LLVMFuzzerCustomCrossOver(std::uint8_t const *data1, std::size_t size1,
                                      std::uint8_t const *data2, std::size_t size2,
                                      std::uint8_t *out, std::size_t maxOutSize, unsigned int seed);

/// libFuzzer's own mutation of bytes, for a custom mutator to call.
std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maxSize);
}
