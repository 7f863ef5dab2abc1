/// \file
/// The parallel key and value arrays shared by the narrow and 16-bit string
/// maps. S is the string type, Ch its character type.
#ifndef VESK_UTIL_INTERNAL_STRINGPAIRS_H
#define VESK_UTIL_INTERNAL_STRINGPAIRS_H

#include <cstring>
#include <new>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/util/CollectionMemory.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {
namespace internal {

template <class S, class Ch>
struct CStringPairs {
  bool& caseSensitive;
  S*& keys;
  S*& values;
  unsigned int& size;
  unsigned int& capacity;
  unsigned int& step;
  const char* source;

  int FindKey(const Ch* key) const {
    if (!key) return -1;
    for (unsigned int i = 0; i < size; ++i) {
      int order = caseSensitive ? keys[i].Compare(key) : keys[i].CompareIgnoreCase(key);
      if (order == 0) return static_cast<int>(i);
    }
    return -1;
  }

  // New key and value arrays of exactly n slots; the string handles move
  // across bitwise. Both arrays stay as they were when either allocation fails.
  void Resize(unsigned int n, int line) {
    void* newKeys = platform::Alloc(static_cast<std::size_t>(n) * sizeof(S));
    void* newValues = newKeys ? platform::Alloc(static_cast<std::size_t>(n) * sizeof(S)) : nullptr;
    if (!newValues) {
      platform::Free(newKeys);
      throw vesk::base::CMemoryException(source, static_cast<unsigned int>(line));
    }
    if (size > 0) {
      std::memcpy(newKeys, static_cast<void*>(keys), size * sizeof(S));
      std::memcpy(newValues, static_cast<void*>(values), size * sizeof(S));
    }
    platform::Free(keys);
    platform::Free(values);
    keys = static_cast<S*>(newKeys);
    values = static_cast<S*>(newValues);
    capacity = n;
  }

  void Ensure(unsigned int n, int line) {
    if (n <= capacity) return;
    unsigned int rounded = RoundUpToStep(n, step);
    if (rounded < n) throw vesk::base::CMemoryException(source, static_cast<unsigned int>(line));
    Resize(rounded, line);
  }

  void Compact() {
    if (!keys) return;
    unsigned int target = RoundUpToStep(size, step);
    if (target < step) target = step;
    if (target >= capacity) return;
    try {
      Resize(target, __LINE__);
    } catch (const vesk::base::CMemoryException&) {
      // Shrinking is best effort: the larger arrays stay.
    }
  }

  // Appends a pair; the map is unchanged when anything fails.
  void Append(const Ch* key, const Ch* value, int line) {
    Ensure(size + 1, line);
    ::new (static_cast<void*>(keys + size)) S(key);
    try {
      ::new (static_cast<void*>(values + size)) S(value);
    } catch (...) {
      keys[size].~S();
      throw;
    }
    ++size;
  }

  void RemoveAt(unsigned int index) {
    keys[index].~S();
    values[index].~S();
    std::size_t tail = (size - index - 1) * sizeof(S);
    std::memmove(static_cast<void*>(keys + index), static_cast<void*>(keys + index + 1), tail);
    std::memmove(static_cast<void*>(values + index), static_cast<void*>(values + index + 1), tail);
    --size;
    Compact();
  }

  // Destroys every pair and frees both arrays.
  void Clear() {
    for (unsigned int i = 0; i < size; ++i) {
      keys[i].~S();
      values[i].~S();
    }
    size = 0;
    platform::Free(keys);
    platform::Free(values);
    keys = nullptr;
    values = nullptr;
    capacity = 0;
  }

  // Fills an empty map with copies of the pairs of another; on failure the
  // map is left empty and the exception passes on.
  void CopyFrom(const S* otherKeys, const S* otherValues, unsigned int otherSize, int line) {
    if (otherSize == 0) return;
    Resize(RoundUpToStep(otherSize, step), line);
    try {
      for (; size < otherSize; ++size) {
        ::new (static_cast<void*>(keys + size)) S(otherKeys[size]);
        try {
          ::new (static_cast<void*>(values + size)) S(otherValues[size]);
        } catch (...) {
          keys[size].~S();
          throw;
        }
      }
    } catch (...) {
      Clear();
      throw;
    }
  }
};

}  // namespace internal
}  // namespace util
}  // namespace vesk

#endif
