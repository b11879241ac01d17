// SPDX-License-Identifier: MIT
#include "burn/freed_memory.h"

#if defined(_WIN32) || defined(__APPLE__)

// Neither the heap of Windows nor the zones of macOS can be told how much to keep.
void KeepFreedMemory() {}

#else

#include <cstdlib>  // says which C library this is

#ifdef __GLIBC__
#include <malloc.h>
#endif

void KeepFreedMemory() {
#ifdef __GLIBC__
  constexpr int kLargestInHeap = 32 << 20;  // the most that is taken
  constexpr int kMostKept = 256 << 20;
  mallopt(M_MMAP_THRESHOLD, kLargestInHeap);
  mallopt(M_TRIM_THRESHOLD, kMostKept);
#endif
}

#endif
