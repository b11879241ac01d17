// SPDX-License-Identifier: MIT
// Any sequence of calls that a host may make.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

#include "host/host_calls.h"
#include "host/host_invariants.h"
#include "host/host_session.h"
#include "support/entry_points.h"
#include "support/session.h"

namespace {

using namespace framenote::fuzz;

bool IsTraced() {
  static bool const isTraced = std::getenv("FRAMENOTE_FUZZ_TRACE") != nullptr;
  return isTraced;
}

void Trace(HostCall const &call, std::uint8_t const *bytes, std::size_t size) {
  std::fprintf(stderr, "%s", call.name);
  for (std::size_t i = 1; i < size; ++i) std::fprintf(stderr, " %d", bytes[i]);
  std::fprintf(stderr, "\n");
}

std::size_t CountCalls(std::size_t size) {
  return size <= kHeaderSize ? 0 : (size - kHeaderSize + kCallSize - 1) / kCallSize;
}

/// Leaves out, doubles, moves, changes or puts in one call.
std::size_t MutateCalls(std::uint8_t *calls, std::size_t count, std::size_t maxCount,
                        std::minstd_rand &random) {
  auto const below = [&random](std::size_t n) { return random() % n; };
  std::size_t const at = below(count + 1);
  std::uint8_t *const place = calls + at * kCallSize;
  std::size_t const rest = (count - at) * kCallSize;
  std::size_t const kind = below(4);
  if (kind == 0 && at < count) {
    std::memmove(place, place + kCallSize, rest - kCallSize);
    return count - 1;
  }
  if (kind == 1 && at < count) {
    *place = static_cast<std::uint8_t>(below(static_cast<std::size_t>(HostCallId::Count)));
    return count;
  }
  if (count >= maxCount) return count;
  std::uint8_t made[kCallSize];
  if (kind == 2 && count > 0) {
    std::memcpy(made, calls + below(count) * kCallSize, kCallSize);
  } else {
    for (std::uint8_t &byte : made) byte = static_cast<std::uint8_t>(below(256));
    made[0] = static_cast<std::uint8_t>(below(static_cast<std::size_t>(HostCallId::Count)));
  }
  std::memmove(place + kCallSize, place, rest);
  std::memcpy(place, made, kCallSize);
  return count + 1;
}

}  // namespace

int LLVMFuzzerInitialize(int *, char ***) {
  StartWithoutDisplay();
  return 0;
}

int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
  static HostInvariants invariants;
  if (size < kHeaderSize) return 0;
  HostSession session(data[0], data[1]);
  invariants.Begin();
  std::size_t const calls = std::min(CountCalls(size), kMaxCalls);
  for (std::size_t i = 0; i < calls; ++i) {
    std::size_t const at = kHeaderSize + i * kCallSize;
    std::size_t const length = std::min(kCallSize, size - at);
    HostCall const *const call = FindCall(data[at]);
    if (call == nullptr) continue;
    if (IsTraced()) Trace(*call, data + at, length);
    ByteReader bytes(data + at + 1, length - 1);
    call->run(session, bytes);
    invariants.Check(session, call->name, i + 1 == calls);
  }
  return 0;
}

// Whole calls stay whole half of the time; else any bytes change.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maxSize,
                                    unsigned int seed) {
  std::minstd_rand random(seed);
  // Calls past the last one that runs would only take time.
  maxSize = std::min(maxSize, kHeaderSize + kMaxCalls * kCallSize);
  size = std::min(size, maxSize);
  std::size_t const room = maxSize < kHeaderSize ? 0 : (maxSize - kHeaderSize) / kCallSize;
  std::size_t const count = size < kHeaderSize ? 0 : (size - kHeaderSize) / kCallSize;
  if (size < kHeaderSize || room == 0 || random() % 2 == 0) {
    return LLVMFuzzerMutate(data, size, maxSize);
  }
  if (count > 0 && random() % 2 == 0) {
    // One call, in place.
    std::uint8_t *const call = data + kHeaderSize + random() % count * kCallSize;
    LLVMFuzzerMutate(call, kCallSize, kCallSize);
    return size;
  }
  return kHeaderSize + MutateCalls(data + kHeaderSize, count, room, random) * kCallSize;
}
