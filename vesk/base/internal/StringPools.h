/// \file
/// The process-wide pools behind string buffers: five for narrow strings
/// (capacities of 64 to 1024 bytes) and five for 16-bit strings (64 to 1024
/// units), each block holding the 12-byte string header and the characters.
#ifndef VESK_BASE_INTERNAL_STRINGPOOLS_H
#define VESK_BASE_INTERNAL_STRINGPOOLS_H

#include "vesk/base/Export.h"
#include "vesk/base/internal/FixBlockAllocator.h"

namespace vesk {
namespace base {
namespace internal {

/// Largest capacity served by a pool; larger buffers come from the heap.
const unsigned int kLargestPooledCapacity = 1024;
/// Blocks added when a pool's reserve is empty.
const unsigned int kStringPoolGrowCount = 4;

/// The capacity class of a request for n characters: 64, 128, 256, 512 or
/// 1024 for n up to 1024, n itself above.
inline unsigned int StringCapacityClass(unsigned int n) {
  if (n <= 64) return 64;
  if (n <= 128) return 128;
  if (n <= 256) return 256;
  if (n <= 512) return 512;
  if (n <= 1024) return 1024;
  return n;
}

/// The pool for narrow buffers of the capacity class of capacity (block
/// size capacity class + 12); null above 1024.
VESK_API CFixBlockAllocator* NarrowStringPool(unsigned int capacity);
/// The pool for 16-bit buffers of the capacity class of capacity units
/// (block size twice the class + 12); null above 1024.
VESK_API CFixBlockAllocator* WideStringPool(unsigned int capacity);

}  // namespace internal
}  // namespace base
}  // namespace vesk

#endif
