/// \file
/// The whole behaviour of the narrow and 16-bit string maps over their
/// parallel key and value arrays. S is the string type, Ch its character type.
#ifndef VESK_UTIL_INTERNAL_STRINGPAIRS_H
#define VESK_UTIL_INTERNAL_STRINGPAIRS_H

#include <cstring>
#include <new>
#include <utility>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/util/CollectionMemory.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {
namespace internal {

/// The maps keep their own members and hand them in by reference; line is the
/// line of the calling member, reported with any exception.
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
  /// Sets up a new map: no pairs, a growth step of 0 taken as 5, and a
  /// non-zero initial capacity (rounded up to the step) allocated at once.
  void Init(bool keysCaseSensitive, unsigned int initialCapacity, unsigned int growthStep,
            int line) {
    caseSensitive = keysCaseSensitive;
    keys = nullptr;
    values = nullptr;
    size = 0;
    capacity = 0;
    step = growthStep == 0 ? 5 : growthStep;
    Allocate(initialCapacity, line);
  }

  /// Fills an empty map with room for n pairs (rounded up to the step).
  void Allocate(unsigned int n, int line) {
    if (n > 0) Resize(RoundUpToStep(n, step), line);
  }

  void Trim(int line) {
    if (size == 0) {
      Clear();
    } else if (size < capacity) {
      Resize(size, line);
    }
  }

  /// Exchanges every member with other's.
  void Swap(CStringPairs other) {
    std::swap(caseSensitive, other.caseSensitive);
    std::swap(keys, other.keys);
    std::swap(values, other.values);
    std::swap(size, other.size);
    std::swap(capacity, other.capacity);
    std::swap(step, other.step);
  }

  // Replaces the value of an existing key, else appends the pair.
  void Put(const Ch* key, const Ch* value, int line) {
    if (!key || !*key) {
      throw vesk::base::CIllegalArgumentException(source, static_cast<unsigned int>(line),
                                                  "Invalid key.");
    }
    int index = FindKey(key);
    if (index >= 0) {
      values[index] = value;
      return;
    }
    Append(key, value, line);
  }

  S& ValueOf(const Ch* key, int line) const {
    int index = FindKey(key);
    if (index < 0) throw CNoSuchElementException(source, static_cast<unsigned int>(line));
    return values[index];
  }

  int IndexOfValue(const Ch* value) const {
    return value ? FindString(values, size, value, false) : -1;
  }

  S& KeyAt(unsigned int index, int line) const {
    CheckIndex(index, size, source, line);
    return keys[index];
  }

  S& ValueAt(unsigned int index, int line) const {
    CheckIndex(index, size, source, line);
    return values[index];
  }

  bool Remove(const Ch* key) {
    int index = FindKey(key);
    if (index < 0) return false;
    RemoveAt(static_cast<unsigned int>(index));
    return true;
  }

  // Equal sizes, and every key is in other (by other's key rule) with an
  // equal value.
  bool Equals(const CStringPairs& other) const {
    if (size != other.size) return false;
    for (unsigned int i = 0; i < size; ++i) {
      int index = other.FindKey(keys[i]);
      if (index < 0 || !(other.values[index] == values[i])) return false;
    }
    return true;
  }
};

/// The next key of a map's key iterator; CNoSuchElementException after the last.
template <class Map>
auto NextKey(Map& map, unsigned int& index, const char* source, int line)
    -> decltype(map.GetKeyAt(index)) {
  if (index >= map.GetSize())
    throw CNoSuchElementException(source, static_cast<unsigned int>(line));
  return map.GetKeyAt(index++);
}

}  // namespace internal
}  // namespace util
}  // namespace vesk

#endif
