/// \file
/// Operations shared by the narrow and 16-bit string vectors and maps: arrays
/// of string values (one pointer each, relocatable bitwise) with the storage
/// rules of SlotArray.h.
#ifndef VESK_UTIL_INTERNAL_STRINGARRAY_H
#define VESK_UTIL_INTERNAL_STRINGARRAY_H

#include <cstdlib>
#include <cstring>
#include <new>

#include "vesk/util/internal/SlotArray.h"

namespace vesk {
namespace util {
namespace internal {

/// Constructs S(text) before index, moving later elements up. The array is
/// unchanged when growing it or building the string fails.
template <class S, class Ch>
void InsertString(S*& array, unsigned int& size, unsigned int& capacity, unsigned int step,
                  unsigned int index, const Ch* text, const char* source, int line) {
  EnsureSlots(array, capacity, size + 1, step, source, line);
  void* slot = array + index;
  std::memmove(static_cast<void*>(array + index + 1), slot, (size - index) * sizeof(S));
  try {
    ::new (slot) S(text);
  } catch (...) {
    std::memmove(slot, static_cast<void*>(array + index + 1), (size - index) * sizeof(S));
    throw;
  }
  ++size;
}

/// Destroys the element at index, moves the tail down and compacts.
template <class S>
void RemoveStringAt(S*& array, unsigned int& size, unsigned int& capacity, unsigned int step,
                    unsigned int index) {
  array[index].~S();
  std::memmove(static_cast<void*>(array + index), static_cast<void*>(array + index + 1),
               (size - index - 1) * sizeof(S));
  --size;
  CompactSlots(array, size, capacity, step);
}

/// Destroys every element (the array itself is kept).
template <class S>
void DestroyStrings(S* array, unsigned int& size) {
  while (size > 0) array[--size].~S();
}

/// Makes an empty array (no storage) hold copies of source's elements. On
/// failure nothing is left allocated and the exception passes on.
template <class S>
void CopyStrings(S*& array, unsigned int& size, unsigned int& capacity, unsigned int step,
                 const S* source, unsigned int sourceSize, const char* sourceName, int line) {
  AllocSlots(array, capacity, sourceSize, step, sourceName, line);
  try {
    for (; size < sourceSize; ++size) ::new (static_cast<void*>(array + size)) S(source[size]);
  } catch (...) {
    DestroyStrings(array, size);
    FreeSlots(array, capacity);
    throw;
  }
}

/// First (or last) index whose element has the text, else -1.
template <class S, class Ch>
int FindString(const S* array, unsigned int size, const Ch* text, bool last) {
  if (!last) {
    for (unsigned int i = 0; i < size; ++i) {
      if (array[i] == text) return static_cast<int>(i);
    }
  } else {
    for (unsigned int i = size; i-- > 0;) {
      if (array[i] == text) return static_cast<int>(i);
    }
  }
  return -1;
}

/// Equal sizes and equal elements in order.
template <class S>
bool EqualStrings(const S* a, unsigned int sizeA, const S* b, unsigned int sizeB) {
  if (sizeA != sizeB) return false;
  for (unsigned int i = 0; i < sizeA; ++i) {
    if (!(a[i] == b[i])) return false;
  }
  return true;
}

/// One step of a vector enumeration: index starts at -1 and may not pass
/// size - 1. Returns false (index unchanged) when no element is left.
inline bool StepEnumeration(int& index, unsigned int size) {
  if (static_cast<long long>(index) >= static_cast<long long>(size) - 1) return false;
  ++index;
  return true;
}

/// Whether an enumeration at index has another element of size.
inline bool EnumerationHasMore(int index, unsigned int size) {
  return static_cast<long long>(index) + 1 < static_cast<long long>(size);
}

/// The runtime's quicksort over the string slots.
template <class S>
void SortStrings(S* array, unsigned int size, int (*compare)(const void*, const void*)) {
  if (size > 1) std::qsort(static_cast<void*>(array), size, sizeof(S), compare);
}

}  // namespace internal
}  // namespace util
}  // namespace vesk

#endif
