/// \file
/// Operations shared by the narrow and 16-bit string vectors and maps: arrays
/// of string values (one pointer each, relocatable bitwise) with the storage
/// rules of SlotArray.h.
#ifndef VESK_UTIL_INTERNAL_STRINGARRAY_H
#define VESK_UTIL_INTERNAL_STRINGARRAY_H

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/util/internal/SlotArray.h"

namespace vesk {
namespace util {
namespace internal {

/// The text block a string slot points to (the string's only member is the
/// pointer to its text), or null for an empty string.
template <class S>
inline const char* TextBlockOf(const S* slot) {
  static_assert(sizeof(S) == sizeof(void*), "a string is one pointer to its text");
  const char* text;
  std::memcpy(&text, static_cast<const void*>(slot), sizeof(text));
  return text;
}

/// Asks the cache for the start of the text of a slot; never faults, even
/// for null.
template <class S>
inline void PrefetchText(const S* slot) {
  const char* text = TextBlockOf(slot);
  __builtin_prefetch(text);
  // Compares read whole words: the first 32 bytes may end in the next line.
  __builtin_prefetch(text + 31);
}

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
  // Many strings go in the order of their texts' addresses (the slots are
  // reordered first; their order no longer matters). Their heap blocks then
  // come back next to each other, so each release finds the bookkeeping of
  // its neighbours in the cache instead of fetching it from memory.
  const unsigned int kManyStrings = 4096;
  if (size >= kManyStrings) {
    static_assert(sizeof(S) == sizeof(std::uintptr_t), "a string is one pointer to its text");
    std::uintptr_t* words = reinterpret_cast<std::uintptr_t*>(array);
    std::sort(words, words + size);
    // The slots were rewritten as plain words: no read of them as strings
    // may move above this point.
    std::atomic_signal_fence(std::memory_order_seq_cst);
  }
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

/// A stable merge sort of string slots with the caller's compare function,
/// which receives pointers to the slots (or to bitwise copies of them in the
/// scratch block). The texts lie scattered over the heap, so each merge asks
/// for the texts it will compare a few steps ahead: the compare then finds
/// them in the cache instead of waiting for memory on every call.
template <class S>
class CStringSlotSorter {
 public:
  typedef int (*Compare)(const void*, const void*);

  explicit CStringSlotSorter(Compare compare) : m_compare(compare) {}

  /// Sorts array in place with scratch room for size slots.
  void Sort(S* array, S* scratch, std::size_t size) const { SortHere(array, scratch, size); }

 private:
  static const std::size_t kShortRun = 8;
  static const std::size_t kAhead = 8;

  bool Less(const S* a, const S* b) const { return m_compare(a, b) < 0; }

  static void Move(S* target, const S* source, std::size_t count) {
    std::memcpy(static_cast<void*>(target), static_cast<const void*>(source), count * sizeof(S));
  }

  void InsertionSort(S* a, std::size_t n) const {
    for (std::size_t i = 0; i < n; ++i) PrefetchText(a + i);
    alignas(S) unsigned char held[sizeof(S)];
    for (std::size_t i = 1; i < n; ++i) {
      if (!Less(a + i, a + i - 1)) continue;
      Move(reinterpret_cast<S*>(held), a + i, 1);
      std::size_t j = i;
      do {
        Move(a + j, a + j - 1, 1);
        --j;
      } while (j > 0 && Less(reinterpret_cast<S*>(held), a + j - 1));
      Move(a + j, reinterpret_cast<S*>(held), 1);
    }
  }

  // Merges the sorted runs x and y into out; equal elements keep x first.
  void Merge(const S* x, std::size_t nx, const S* y, std::size_t ny, S* out) const {
    if (!Less(y, x + nx - 1)) {  // already in order
      Move(out, x, nx);
      Move(out + nx, y, ny);
      return;
    }
    for (std::size_t k = 0; k < kAhead; ++k) {
      if (k < nx) PrefetchText(x + k);
      if (k < ny) PrefetchText(y + k);
    }
    std::size_t i = 0, j = 0;
    while (i < nx && j < ny) {
      if (Less(y + j, x + i)) {
        if (j + kAhead < ny) PrefetchText(y + j + kAhead);
        Move(out++, y + j++, 1);
      } else {
        if (i + kAhead < nx) PrefetchText(x + i + kAhead);
        Move(out++, x + i++, 1);
      }
    }
    Move(out, x + i, nx - i);
    Move(out + (nx - i), y + j, ny - j);
  }

  // Sorts a[0, n); the result ends in a, b serves as scratch.
  void SortHere(S* a, S* b, std::size_t n) const {
    if (n <= kShortRun) {
      InsertionSort(a, n);
      return;
    }
    std::size_t half = n / 2;
    SortInto(a, b, half);
    SortInto(a + half, b + half, n - half);
    Merge(b, half, b + half, n - half, a);
  }

  // Sorts a[0, n) into b[0, n); a serves as scratch.
  void SortInto(S* a, S* b, std::size_t n) const {
    if (n <= kShortRun) {
      InsertionSort(a, n);
      Move(b, a, n);
      return;
    }
    std::size_t half = n / 2;
    SortHere(a, b, half);
    SortHere(a + half, b + half, n - half);
    Merge(a, half, a + half, n - half, b);
  }

  Compare m_compare;
};

/// Sorts the string slots with compare. Takes a scratch block of the
/// array's size; when the heap refuses it, the runtime's in-place quicksort
/// does the work instead (sorting never fails for want of memory).
template <class S>
void SortStrings(S* array, unsigned int size, int (*compare)(const void*, const void*)) {
  if (size < 2) return;
  void* scratch = platform::Alloc(static_cast<std::size_t>(size) * sizeof(S));
  if (!scratch) {
    std::qsort(static_cast<void*>(array), size, sizeof(S), compare);
    return;
  }
  try {
    CStringSlotSorter<S>(compare).Sort(array, static_cast<S*>(scratch), size);
  } catch (...) {
    platform::Free(scratch);
    throw;
  }
  platform::Free(scratch);
}

/// CArrayIndexOutOfBoundsException (source, line) unless index < size.
inline void CheckIndex(unsigned int index, unsigned int size, const char* source, int line) {
  if (index >= size) {
    throw vesk::base::CArrayIndexOutOfBoundsException(source, static_cast<unsigned int>(line));
  }
}

/// The whole behaviour of the narrow and 16-bit string vectors, over the
/// members of one of them (S the string type, Ch its character type). The
/// vectors keep their own members and hand them in by reference; line is the
/// line of the calling member, reported with any exception.
template <class S, class Ch>
struct CStringVectorBody {
  S*& elements;
  unsigned int& size;
  unsigned int& capacity;
  unsigned int& step;
  const char* source;

  void CheckText(const Ch* text, int line) const {
    if (!text) {
      throw vesk::base::CIllegalArgumentException(source, static_cast<unsigned int>(line),
                                                  "Invalid element.");
    }
  }

  /// Sets up a new vector: no elements, a growth step of 0 taken as 10, and
  /// a non-zero initial capacity (rounded up to the step) allocated at once.
  void Init(unsigned int initialCapacity, unsigned int growthStep, int line) {
    elements = nullptr;
    size = 0;
    capacity = 0;
    step = growthStep == 0 ? 10 : growthStep;
    AllocSlots(elements, capacity, initialCapacity, step, source, line);
  }

  void CopyFrom(const S* otherElements, unsigned int otherSize, int line) {
    CopyStrings(elements, size, capacity, step, otherElements, otherSize, source, line);
  }

  /// Exchanges every member with other's.
  void Swap(CStringVectorBody other) {
    std::swap(elements, other.elements);
    std::swap(size, other.size);
    std::swap(capacity, other.capacity);
    std::swap(step, other.step);
  }

  void Destroy() {
    DestroyStrings(elements, size);
    FreeSlots(elements, capacity);
  }

  S& At(unsigned int index, int line) const {
    CheckIndex(index, size, source, line);
    return elements[index];
  }

  void Insert(const Ch* text, unsigned int index, int line) {
    CheckText(text, line);
    CheckIndex(index, size + 1, source, line);
    InsertString(elements, size, capacity, step, index, text, source, line);
  }

  void Set(const Ch* text, unsigned int index, int line) {
    CheckText(text, line);
    At(index, line) = text;
  }

  bool Contains(const Ch* text, int line) const {
    CheckText(text, line);
    return FindString(elements, size, text, false) >= 0;
  }

  /// First (or last) index of text, -1 when absent or null.
  int IndexOf(const Ch* text, bool last) const {
    return text ? FindString(elements, size, text, last) : -1;
  }

  void RemoveFirst(const Ch* text) {
    int index = IndexOf(text, false);
    if (index >= 0)
      RemoveStringAt(elements, size, capacity, step, static_cast<unsigned int>(index));
  }

  void RemoveAt(unsigned int index, int line) {
    CheckIndex(index, size, source, line);
    RemoveStringAt(elements, size, capacity, step, index);
  }

  void RemoveAll() {
    DestroyStrings(elements, size);
    CompactSlots(elements, size, capacity, step);
  }

  void Ensure(unsigned int n, int line) { EnsureSlots(elements, capacity, n, step, source, line); }

  void Trim() { TrimSlots(elements, size, capacity); }

  void Sort(int (*compare)(const void*, const void*), int line) {
    if (!compare) {
      throw vesk::base::CIllegalArgumentException(source, static_cast<unsigned int>(line),
                                                  "Invalid compare function.");
    }
    SortStrings(elements, size, compare);
  }

  bool Equals(const S* otherElements, unsigned int otherSize) const {
    return EqualStrings(elements, size, otherElements, otherSize);
  }
};

}  // namespace internal
}  // namespace util
}  // namespace vesk

#endif
