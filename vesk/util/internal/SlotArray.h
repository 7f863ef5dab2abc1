/// \file
/// Storage rules shared by the library's growable arrays (object and string
/// vectors, string maps): elements are relocatable bitwise, capacity grows to
/// a multiple of the growth step and shrinks back after removals.
#ifndef VESK_UTIL_INTERNAL_SLOTARRAY_H
#define VESK_UTIL_INTERNAL_SLOTARRAY_H

#include <cstddef>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/util/CollectionMemory.h"

namespace vesk {
namespace util {
namespace internal {

/// Makes array hold at least n elements: n is rounded up to the step and the
/// array moved to a block of that size. The old block stays intact (and
/// CMemoryException is thrown with source and line) when the heap refuses,
/// or when the rounded size does not fit in 32 bits.
template <class T>
void EnsureSlots(T*& array, unsigned int& capacity, unsigned int n, unsigned int step,
                 const char* source, int line) {
  if (n <= capacity) return;
  unsigned int rounded = RoundUpToStep(n, step);
  if (rounded < n) throw vesk::base::CMemoryException(source, static_cast<unsigned int>(line));
  void* block = platform::Realloc(array, static_cast<std::size_t>(rounded) * sizeof(T));
  if (!block) throw vesk::base::CMemoryException(source, static_cast<unsigned int>(line));
  array = static_cast<T*>(block);
  capacity = rounded;
}

/// A fresh array of n (rounded) elements for an array that holds no
/// elements; the old block, if any, is freed.
template <class T>
void AllocSlots(T*& array, unsigned int& capacity, unsigned int n, unsigned int step,
                const char* source, int line) {
  if (n == 0) return;
  unsigned int rounded = RoundUpToStep(n, step);
  if (rounded < n) throw vesk::base::CMemoryException(source, static_cast<unsigned int>(line));
  void* block = platform::Alloc(static_cast<std::size_t>(rounded) * sizeof(T));
  if (!block) throw vesk::base::CMemoryException(source, static_cast<unsigned int>(line));
  platform::Free(array);
  array = static_cast<T*>(block);
  capacity = rounded;
}

/// After a removal: the size rounded up to the step, but at least one step;
/// when that is below the capacity the array is reallocated to it. Shrinking
/// never throws: if the heap refuses, the larger block is kept.
template <class T>
void CompactSlots(T*& array, unsigned int size, unsigned int& capacity, unsigned int step) {
  if (!array) return;
  unsigned int target = RoundUpToStep(size, step);
  if (target < step) target = step;
  if (target >= capacity) return;
  void* block = platform::Realloc(array, static_cast<std::size_t>(target) * sizeof(T));
  if (!block) return;
  array = static_cast<T*>(block);
  capacity = target;
}

/// Reallocates to exactly size elements, or frees the array when size is 0.
/// Keeps the larger block when the heap refuses.
template <class T>
void TrimSlots(T*& array, unsigned int size, unsigned int& capacity) {
  if (size == 0) {
    platform::Free(array);
    array = nullptr;
    capacity = 0;
    return;
  }
  if (size >= capacity) return;
  void* block = platform::Realloc(array, static_cast<std::size_t>(size) * sizeof(T));
  if (!block) return;
  array = static_cast<T*>(block);
  capacity = size;
}

/// Frees the array and zeroes the capacity.
template <class T>
void FreeSlots(T*& array, unsigned int& capacity) {
  platform::Free(array);
  array = nullptr;
  capacity = 0;
}

}  // namespace internal
}  // namespace util
}  // namespace vesk

#endif
