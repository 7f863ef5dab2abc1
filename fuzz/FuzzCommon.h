// Shared checks of the decoder fuzz targets.
#ifndef VESK_FUZZ_FUZZCOMMON_H
#define VESK_FUZZ_FUZZCOMMON_H

#include <cstdio>
#include <cstdlib>

#include "vesk/platform/Memory.h"

/// Stops the run with a message; libFuzzer records the input as a crash.
#define FUZZ_CHECK(condition)                                                             \
  do {                                                                                    \
    if (!(condition)) {                                                                   \
      std::fprintf(stderr, "check failed: %s (%s:%d)\n", #condition, __FILE__, __LINE__); \
      std::abort();                                                                       \
    }                                                                                     \
  } while (0)

/// After a failed decode: outputs null and 0, and no block left behind.
inline void CheckFailedDecode(const char* data, unsigned int length, long liveBefore) {
  FUZZ_CHECK(data == nullptr);
  FUZZ_CHECK(length == 0);
  FUZZ_CHECK(vesk::platform::LiveAllocations() == liveBefore);
}

#endif
