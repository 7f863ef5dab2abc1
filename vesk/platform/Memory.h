/// \file
/// Heap blocks and relocatable handles of the platform layer. Every allocation
/// of the library goes through Alloc / Realloc / AllocHandle, so a test can
/// make the Nth allocation fail and walk each failure path.
#ifndef VESK_PLATFORM_MEMORY_H
#define VESK_PLATFORM_MEMORY_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace platform {

/// Allocates size bytes (at least one); null when the heap (or fault
/// injection) refuses.
VESK_API void* Alloc(std::size_t size) noexcept;
/// Resizes a block from Alloc; null (and the old block intact) on failure.
VESK_API void* Realloc(void* block, std::size_t size) noexcept;
/// Frees a block from Alloc or Realloc; null is ignored.
VESK_API void Free(void* block) noexcept;

/// A relocatable handle: a pointer to the current address of its block. The
/// block may move when the handle is resized; the handle itself stays put.
typedef char** MemHandle;
/// Creates a handle of size bytes; null on failure.
VESK_API MemHandle AllocHandle(std::size_t size) noexcept;
/// Resizes the block of a handle, keeping its contents; false on failure
/// (the block is unchanged).
VESK_API bool ReallocHandle(MemHandle handle, std::size_t size) noexcept;
/// Frees a handle and its block; null is ignored.
VESK_API void FreeHandle(MemHandle handle) noexcept;

/// Fault injection, for tests. After FailAllocationAt(n) the nth following
/// allocation (1 = the next one) fails; with everyAfter set, every one from
/// the nth on fails. FailAllocationAt(0) switches injection off.
VESK_API void FailAllocationAt(unsigned long n, bool everyAfter = false) noexcept;
/// Number of allocations attempted since the process started (also counts
/// the ones that failed). Lets a test find how many allocations a call makes.
VESK_API unsigned long AllocationCount() noexcept;
/// Number of blocks and handles currently live.
VESK_API long LiveAllocations() noexcept;

}  // namespace platform
}  // namespace vesk

#endif
