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

/// The rank of a capacity class among the pooled ones (64 → 0 ... 1024 → 4);
/// -1 above 1024, where buffers come from the heap.
inline int StringPoolRank(unsigned int capacity) {
  if (capacity <= 64) return 0;
  if (capacity <= 128) return 1;
  if (capacity <= 256) return 2;
  if (capacity <= 512) return 3;
  if (capacity <= 1024) return 4;
  return -1;
}

/// Takes a block for a buffer of the pooled class of that rank (narrow or
/// 16-bit). The block this thread gave back last to the same pool is reused
/// first, with no lock taken: a short-lived string made in a loop then costs
/// no atomic operation at all. Throws CMemoryException as the pool does.
VESK_API void* TakeStringBlock(bool wide, int rank);
/// Gives a block back: kept for this thread's next TakeStringBlock when the
/// thread keeps none of that pool yet, else returned to the pool. A kept
/// block still counts as used in its pool.
VESK_API void GiveStringBlock(bool wide, int rank, void* block) noexcept;
/// Returns the blocks this thread keeps to their pools. Runs when a thread
/// ends; tests call it before they read exact pool counts.
VESK_API void ReturnThreadStringBlocks() noexcept;

}  // namespace internal
}  // namespace base
}  // namespace vesk

#endif
