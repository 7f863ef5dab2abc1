/// \file
/// The growable array behind CStringBuffer (bytes) and CUnicodeStringBuffer
/// (16-bit units): a terminated text in a heap array whose capacity is kept
/// a multiple of the buffer's growth step. The functions take the buffer's
/// array and capacity by reference; conversions between the two character
/// types stay in the classes.
#ifndef VESK_BASE_INTERNAL_STRINGBUFFERBODY_H
#define VESK_BASE_INTERNAL_STRINGBUFFERBODY_H

#include <cstddef>
#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {
namespace internal {

/// What the shared buffer code needs to know of a character type.
template <typename Ch>
struct CStringBufferTraits;

template <>
struct CStringBufferTraits<char> {
  static constexpr const char* kSource = "vesk/base/StringBuffer";
  /// Largest array in bytes.
  static constexpr unsigned int kMaximumUnits = 0xFFFFFFFFu;
  static unsigned int Length(const char* text) {
    return text ? static_cast<unsigned int>(std::strlen(text)) : 0;
  }
};

template <>
struct CStringBufferTraits<unsigned short> {
  static constexpr const char* kSource = "vesk/base/UnicodeStringBuffer";
  /// Largest array in units whose byte size still fits 32 bits.
  static constexpr unsigned int kMaximumUnits = 0x7FFFFFFFu;
  static unsigned int Length(const unsigned short* text) { return platform::Utf16Length(text); }
};

/// The shared buffer algorithms for one character type. `buffer` is the
/// array (null before the first allocation), `capacity` its size in units
/// and `step` the growth step (at least 8).
template <typename Ch>
class CStringBufferBody {
 public:
  typedef CStringBufferTraits<Ch> Traits;

  /// The growth step a buffer uses when asked for step: at least 8.
  static unsigned int GrowthStep(unsigned int step) { return step > 8 ? step : 8; }

  /// Rounds n up to a multiple of the step, computed as n + ((step - 1) * n
  /// mod step) in 32-bit arithmetic (exact for the sizes in use). A result
  /// that wrapped below n cannot be allocated.
  static unsigned int RoundUp(unsigned int n, unsigned int step) {
    unsigned int rounded = n + ((step - 1) * n) % step;
    if (rounded < n) VESK_THROW(Traits::kSource, CMemoryException);
    return rounded;
  }

  /// An array of n units (uninitialised).
  static Ch* NewArray(unsigned int n) {
    if (n > Traits::kMaximumUnits) VESK_THROW(Traits::kSource, CMemoryException);
    Ch* array = static_cast<Ch*>(platform::Alloc(static_cast<std::size_t>(n) * sizeof(Ch)));
    if (!array) VESK_THROW(Traits::kSource, CMemoryException);
    return array;
  }

  /// Room for n units; a new array starts empty.
  static void Reserve(Ch*& buffer, unsigned int& capacity, unsigned int step, unsigned int n) {
    unsigned int rounded = RoundUp(n, step);
    if (capacity >= rounded) return;
    Ch* array = NewArray(rounded);
    array[0] = 0;
    Replace(buffer, capacity, array, rounded);
  }

  /// Room for n units that keeps the text.
  static void Grow(Ch*& buffer, unsigned int& capacity, unsigned int step, unsigned int n) {
    unsigned int rounded = RoundUp(n, step);
    if (capacity >= rounded) return;
    Ch* array = NewArray(rounded);
    if (buffer) {
      std::memcpy(array, buffer,
                  (static_cast<std::size_t>(Traits::Length(buffer)) + 1) * sizeof(Ch));
    } else {
      array[0] = 0;
    }
    Replace(buffer, capacity, array, rounded);
  }

  /// Makes the text count units of text, which may be the buffer's own.
  static void Assign(Ch*& buffer, unsigned int& capacity, unsigned int step, const Ch* text,
                     unsigned int count) {
    if (count == 0) {
      if (buffer) buffer[0] = 0;
      return;
    }
    if (capacity > count) {
      std::memmove(buffer, text, static_cast<std::size_t>(count) * sizeof(Ch));
    } else {
      if (count == 0xFFFFFFFFu) VESK_THROW(Traits::kSource, CMemoryException);
      // The new array is filled before the old one is freed: text may lie in it.
      unsigned int rounded = RoundUp(count + 1, step);
      Ch* array = NewArray(rounded);
      std::memcpy(array, text, static_cast<std::size_t>(count) * sizeof(Ch));
      Replace(buffer, capacity, array, rounded);
    }
    buffer[count] = 0;
  }

  /// Appends count units of text, which may be a part of the buffer.
  static void Append(Ch*& buffer, unsigned int& capacity, unsigned int step, const Ch* text,
                     unsigned int count) {
    if (count == 0) return;
    unsigned int length = Traits::Length(buffer);
    // A part of this buffer is found again after the array moves.
    bool inside = buffer && text >= buffer && text < buffer + capacity;
    std::size_t offset = inside ? static_cast<std::size_t>(text - buffer) : 0;
    if (count + 1 > 0xFFFFFFFFu - length || count == 0xFFFFFFFFu) {
      VESK_THROW(Traits::kSource, CMemoryException);
    }
    Grow(buffer, capacity, step, length + count + 1);
    if (inside) text = buffer + offset;
    std::memmove(buffer + length, text, static_cast<std::size_t>(count) * sizeof(Ch));
    buffer[length + count] = 0;
  }

  /// Appends one unit.
  static void AppendUnit(Ch*& buffer, unsigned int& capacity, unsigned int step, Ch c) {
    unsigned int length = Traits::Length(buffer);
    if (length > 0xFFFFFFFFu - 2) VESK_THROW(Traits::kSource, CMemoryException);
    Grow(buffer, capacity, step, length + 2);
    buffer[length] = c;
    buffer[length + 1] = 0;
  }

  /// Shrinks the array to the text and its terminator.
  static void TrimToSize(Ch*& buffer, unsigned int& capacity) {
    if (!buffer) return;
    unsigned int length = Traits::Length(buffer);
    if (capacity <= length + 1) return;
    Ch* array = NewArray(length + 1);
    std::memcpy(array, buffer, (static_cast<std::size_t>(length) + 1) * sizeof(Ch));
    Replace(buffer, capacity, array, length + 1);
  }

 private:
  static void Replace(Ch*& buffer, unsigned int& capacity, Ch* array, unsigned int size) {
    platform::Free(buffer);
    buffer = array;
    capacity = size;
  }
};

}  // namespace internal
}  // namespace base
}  // namespace vesk

#endif
