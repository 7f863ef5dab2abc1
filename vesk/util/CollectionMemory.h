/// \file
/// Heap blocks for the collection templates. The templates live in public
/// headers and cannot reach the internal platform layer, so they allocate
/// through these exported entry points, which take the same library heap (and
/// the same fault injection) as every other allocation.
#ifndef VESK_UTIL_COLLECTIONMEMORY_H
#define VESK_UTIL_COLLECTIONMEMORY_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace util {

/// Allocates size bytes from the library heap; null when it refuses.
VESK_API void* AllocBlock(std::size_t size) noexcept;
/// Resizes a block from AllocBlock; null (and the old block intact) on failure.
VESK_API void* ReallocBlock(void* block, std::size_t size) noexcept;
/// Frees a block from AllocBlock or ReallocBlock; null is ignored.
VESK_API void FreeBlock(void* block) noexcept;

/// Rounds n up to a multiple of step the way every growable array of the
/// library does: n + ((step - 1) * n mod step), in unsigned 32-bit
/// arithmetic. A step of 0 is taken as 1.
inline unsigned int RoundUpToStep(unsigned int n, unsigned int step) {
  if (step == 0) step = 1;
  return n + ((step - 1) * n) % step;
}

}  // namespace util
}  // namespace vesk

#endif
