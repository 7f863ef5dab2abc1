/// \file
/// The reference-counted buffer and the editing and search algorithms that
/// CString (bytes) and CUnicodeString (16-bit units) share. Both keep a
/// pointer to the text of a pooled block that starts with the 12-byte
/// header {capacity, length, reference count}; the functions here take that
/// pointer by reference and work on it the same way for either character
/// type. What differs between the two strings (empty-string comparison
/// rules, character classes, conversions) stays in the classes.
#ifndef VESK_BASE_INTERNAL_STRINGBODY_H
#define VESK_BASE_INTERNAL_STRINGBODY_H

#include <cstddef>
#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/base/internal/StringPools.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {
namespace internal {

/// What the shared algorithms need to know of a character type.
template <typename Ch>
struct CStringTraits;

template <>
struct CStringTraits<char> {
  typedef CStringData Data;
  static constexpr const char* kSource = "vesk/base/String";
  static constexpr bool kWide = false;
  /// Largest capacity a buffer may have: its size, header included, stays
  /// within 32 bits.
  static constexpr unsigned int kMaximumUnits = 0xFFFFFFFFu - sizeof(CStringData);

  static std::size_t Length(const char* text) { return std::strlen(text); }
  static std::size_t BoundedLength(const char* text, std::size_t n) { return strnlen(text, n); }
  static const char* FindSubstring(const char* text, const char* needle, int caseType) {
    return platform::TextFindSubstring(text, needle, caseType);
  }
  static int CompareTexts(const char* a, int lengthA, const char* b, int lengthB, int caseType) {
    return platform::TextCompare(a, lengthA, b, lengthB, caseType);
  }
};

template <>
struct CStringTraits<unsigned short> {
  typedef CUnicodeStringData Data;
  static constexpr const char* kSource = "vesk/base/UnicodeString";
  static constexpr bool kWide = true;
  /// Largest unit count a buffer may have: its byte size, header included,
  /// stays within 32 bits.
  static constexpr unsigned int kMaximumUnits = (0xFFFFFFFFu - sizeof(CUnicodeStringData)) / 2;

  static std::size_t Length(const unsigned short* text) { return platform::Utf16Length(text); }
  // n is at most a count an int holds.
  static std::size_t BoundedLength(const unsigned short* text, std::size_t n) {
    return platform::Utf16LengthBounded(text, static_cast<unsigned int>(n));
  }
  static const unsigned short* FindSubstring(const unsigned short* text,
                                             const unsigned short* needle, int caseType) {
    return platform::Utf16FindSubstring(text, needle, caseType);
  }
  static int CompareTexts(const unsigned short* a, int lengthA, const unsigned short* b,
                          int lengthB, int caseType) {
    return platform::Utf16CompareTexts(a, lengthA, b, lengthB, caseType);
  }
};

/// The shared string algorithms for one character type. `text` is always a
/// string's own pointer: null for the empty string without a buffer.
template <typename Ch>
class CStringBody {
 public:
  typedef CStringTraits<Ch> Traits;
  typedef typename Traits::Data Data;

  static Data* DataOf(Ch* text) { return text ? reinterpret_cast<Data*>(text) - 1 : nullptr; }
  static unsigned int LengthOf(const Ch* text) {
    return text ? reinterpret_cast<const Data*>(text)[-1].length : 0;
  }

  /// Throws the string's CMemoryException when a buffer of need units could
  /// not be described in 32 bits.
  static void CheckUnits(unsigned long long need) {
    if (need > Traits::kMaximumUnits) VESK_THROW(Traits::kSource, CMemoryException);
  }

  // --- buffers ---------------------------------------------------------------

  /// A new buffer of the capacity class of n: length 0, reference count 1,
  /// first unit zero. Returns the address of its text.
  static Ch* NewBuffer(unsigned int n) {
    CheckUnits(n);
    unsigned int capacity = StringCapacityClass(n);
    int rank = StringPoolRank(capacity);
    void* block;
    if (rank >= 0) {
      block = TakeStringBlock(Traits::kWide, rank);
    } else {
      block = platform::Alloc(sizeof(Data) + static_cast<std::size_t>(capacity) * sizeof(Ch));
      if (!block) VESK_THROW(Traits::kSource, CMemoryException);
    }
    Data* data = static_cast<Data*>(block);
    data->capacity = capacity;
    data->length = 0;
    data->refCount = 1;
    Ch* fresh = reinterpret_cast<Ch*>(data + 1);
    fresh[0] = 0;
    return fresh;
  }

  /// Gives a buffer back to the pool of its capacity, or to the heap.
  static void FreeBuffer(Data* data) {
    int rank = StringPoolRank(data->capacity);
    if (rank >= 0) {
      GiveStringBlock(Traits::kWide, rank, data);
    } else {
      platform::Free(data);
    }
  }

  /// Drops this string's reference to its buffer (freeing it when it was
  /// the last) and leaves the string without one.
  static void Release(Ch*& text) {
    Data* data = DataOf(text);
    if (!data) return;
    if (data->refCount >= 2) {
      --data->refCount;
    } else {
      FreeBuffer(data);
    }
    text = nullptr;
  }

  /// Takes a reference to the buffer of other when it has text (text holds
  /// no buffer). A buffer with a count of 0 is never shared.
  static void Share(Ch*& text, Ch* other) {
    Data* data = DataOf(other);
    if (data && data->length != 0 && data->refCount != 0) {
      text = other;
      ++data->refCount;
    }
  }

  /// A private buffer with room for n units; the text is kept only when the
  /// buffer it has already fits.
  static void Alloc(Ch*& text, unsigned int n) {
    Data* data = DataOf(text);
    if (data && data->capacity >= n && data->refCount < 2) return;
    Release(text);
    text = NewBuffer(n);
  }

  /// Makes text a private copy of the first count units of source (all of
  /// it for a negative count), in a buffer of at least minCapacity units.
  /// source may lie in text's own buffer.
  static void AllocCopy(Ch*& text, unsigned int minCapacity, const Ch* source, int count) {
    if (!source) {
      Alloc(text, minCapacity > 0 ? minCapacity : 1);
      DataOf(text)->length = 0;
      text[0] = 0;
      return;
    }
    std::size_t requested = count < 0 ? Traits::Length(source) : static_cast<std::size_t>(count);
    // The length is that of the copy up to its first zero unit; units after
    // one among the requested ones are never read.
    std::size_t copied = count < 0 ? requested : Traits::BoundedLength(source, requested);
    CopyUnits(text, minCapacity, source, requested, copied);
  }

  /// As AllocCopy, for a source whose first copied units hold no zero unit
  /// (the buffer has room for requested units).
  static void CopyUnits(Ch*& text, unsigned int minCapacity, const Ch* source, std::size_t requested,
                        std::size_t copied) {
    std::size_t need = requested + 1;
    if (need < minCapacity) need = minCapacity;
    CheckUnits(need);
    Data* data = DataOf(text);
    if (data && data->capacity >= need && data->refCount < 2) {
      std::memmove(text, source, copied * sizeof(Ch));
    } else {
      // The new buffer is filled before the old one is released: source may
      // point into the old one.
      Ch* fresh = NewBuffer(static_cast<unsigned int>(need));
      std::memcpy(fresh, source, copied * sizeof(Ch));
      Release(text);
      text = fresh;
    }
    text[copied] = 0;
    DataOf(text)->length = static_cast<unsigned int>(copied);
  }

  /// A private buffer with room for n units that keeps the text.
  static void EnsureCapacity(Ch*& text, unsigned int n) {
    Data* data = DataOf(text);
    if (data && data->capacity >= n && data->refCount < 2) return;
    if (!data) {
      text = NewBuffer(n);
      return;
    }
    // A private copy always has room for the current text.
    if (n < data->length + 1) n = data->length + 1;
    Ch* fresh = NewBuffer(n);
    std::memcpy(fresh, text, (static_cast<std::size_t>(data->length) + 1) * sizeof(Ch));
    DataOf(fresh)->length = data->length;
    Release(text);
    text = fresh;
  }

  /// Gives a shared buffer up for a private copy before the text changes.
  static void CopyBeforeModify(Ch*& text) {
    Data* data = DataOf(text);
    if (data && data->refCount >= 2) AllocCopy(text, 0, text, -1);
  }

  /// Empties the text: a private buffer is kept for reuse, a shared one
  /// is let go.
  static void Empty(Ch*& text) {
    Data* data = DataOf(text);
    if (!data) return;
    if (data->refCount >= 2) {
      --data->refCount;
      text = nullptr;
    } else {
      data->length = 0;
      text[0] = 0;
    }
  }

  /// Ends the text after length units; no unit left empties it.
  static void CutAt(Ch*& text, unsigned int length) {
    if (length == 0) {
      Empty(text);
      return;
    }
    text[length] = 0;
    DataOf(text)->length = length;
  }

  /// Drops the first skipped units; all of them gone empties the text.
  static void DropFront(Ch*& text, unsigned int skipped) {
    unsigned int length = LengthOf(text);
    if (skipped >= length) {
      Empty(text);
      return;
    }
    if (skipped == 0) return;
    std::memmove(text, text + skipped,
                 (static_cast<std::size_t>(length) - skipped + 1) * sizeof(Ch));
    DataOf(text)->length = length - skipped;
  }

  // --- editing ---------------------------------------------------------------

  /// Appends count units of source, which may be a part of text itself.
  static void Append(Ch*& text, const Ch* source, unsigned int count) {
    if (count == 0) return;
    unsigned int length = LengthOf(text);
    // Appending a part of this string: find it again after a reallocation.
    bool inside = text && source >= text && source <= text + length;
    std::size_t offset = inside ? static_cast<std::size_t>(source - text) : 0;
    CheckUnits(static_cast<unsigned long long>(length) + count + 1);
    EnsureCapacity(text, length + count + 1);
    if (inside) source = text + offset;
    std::memmove(text + length, source, static_cast<std::size_t>(count) * sizeof(Ch));
    text[length + count] = 0;
    DataOf(text)->length = length + count;
  }

  /// Inserts one unit before index (at the end when index is past it);
  /// returns the new length.
  static int InsertUnit(Ch*& text, unsigned int index, Ch c) {
    unsigned int length = LengthOf(text);
    if (index > length) index = length;
    CheckUnits(length + 2ull);
    EnsureCapacity(text, length + 2);
    std::memmove(text + index + 1, text + index,
                 (static_cast<std::size_t>(length) - index + 1) * sizeof(Ch));
    text[index] = c;
    DataOf(text)->length = length + 1;
    return static_cast<int>(length + 1);
  }

  /// Inserts a terminated text before index; returns the new length.
  static int Insert(Ch*& text, unsigned int index, const Ch* source) {
    unsigned int length = LengthOf(text);
    if (!source || !*source) return static_cast<int>(length);
    CHeld copy;
    Data* data = DataOf(text);
    if (data && source >= text && source < text + data->capacity) source = copy.Of(source);
    std::size_t n = Traits::Length(source);
    CheckUnits(length + n + 1);
    if (index > length) index = length;
    EnsureCapacity(text, static_cast<unsigned int>(length + n + 1));
    std::memmove(text + index + n, text + index,
                 (static_cast<std::size_t>(length) - index + 1) * sizeof(Ch));
    std::memcpy(text + index, source, n * sizeof(Ch));
    DataOf(text)->length = static_cast<unsigned int>(length + n);
    return static_cast<int>(length + n);
  }

  /// Deletes up to count units from index; returns the length before the
  /// deletion, as callers of Delete expect.
  static int Delete(Ch*& text, unsigned int index, unsigned int count) {
    unsigned int length = LengthOf(text);
    if (count == 0 || index >= length) return static_cast<int>(length);
    if (count > length - index) count = length - index;
    CopyBeforeModify(text);
    std::memmove(text + index, text + index + count,
                 (static_cast<std::size_t>(length) - index - count + 1) * sizeof(Ch));
    DataOf(text)->length = length - count;
    return static_cast<int>(length);
  }

  /// Replaces every occurrence of oldText, left to right and without
  /// overlap, by newText (null: nothing); returns how many were replaced.
  static int Replace(Ch*& text, const Ch* oldText, const Ch* newText) {
    if (LengthOf(text) == 0 || !oldText || !*oldText) return 0;
    if (!newText) newText = kNoText;
    // Arguments that live in this buffer would change under the rewrite.
    CHeld oldCopy, newCopy;
    const Ch* end = text + DataOf(text)->capacity;
    if (oldText >= text && oldText < end) oldText = oldCopy.Of(oldText);
    if (newText >= text && newText < end) newText = newCopy.Of(newText);
    std::size_t oldLength = Traits::Length(oldText);
    std::size_t newLength = Traits::Length(newText);
    int count = 0;
    for (const Ch* p = Traits::FindSubstring(text, oldText, platform::kTextExactCase); p;
         p = Traits::FindSubstring(p + oldLength, oldText, platform::kTextExactCase)) {
      ++count;
    }
    if (count == 0) return 0;
    unsigned long long finalLength = LengthOf(text) +
                                     static_cast<unsigned long long>(count) * newLength -
                                     static_cast<unsigned long long>(count) * oldLength;
    CheckUnits(finalLength + 1);
    EnsureCapacity(text, static_cast<unsigned int>(finalLength + 1));
    std::size_t length = LengthOf(text);
    Ch* p = text;
    for (int i = 0; i < count; ++i) {
      p = const_cast<Ch*>(Traits::FindSubstring(p, oldText, platform::kTextExactCase));
      if (!p) break;
      std::size_t position = static_cast<std::size_t>(p - text);
      std::memmove(p + newLength, p + oldLength, (length - position - oldLength + 1) * sizeof(Ch));
      std::memcpy(p, newText, newLength * sizeof(Ch));
      length = length + newLength - oldLength;
      p += newLength;
    }
    DataOf(text)->length = static_cast<unsigned int>(length);
    return count;
  }

  /// Fills text from a formatter called as format(scratch, size), which
  /// returns the units it would write or a negative value when it failed.
  /// Returns false (text unchanged) when the formatter failed.
  template <typename Formatter>
  static bool Format(Ch*& text, Formatter format) {
    std::size_t size = 1024;
    for (;;) {
      Ch* scratch = static_cast<Ch*>(platform::Alloc(size * sizeof(Ch)));
      if (!scratch) VESK_THROW(Traits::kSource, CMemoryException);
      int written = format(scratch, size);
      if (written < 0) {
        platform::Free(scratch);
        return false;
      }
      std::size_t result = static_cast<std::size_t>(written);
      if (result != size - 1 && result < size) {
        try {
          AllocCopy(text, 0, scratch, written);
        } catch (...) {
          platform::Free(scratch);
          throw;
        }
        platform::Free(scratch);
        return true;
      }
      platform::Free(scratch);
      // A result of exactly size - 1 units is formatted again in a block
      // 1024 units larger. A longer one would be cut short: the block grows
      // in the same 1024-unit steps straight to the first size that holds it.
      if (result == size - 1) {
        size += 1024;
      } else {
        size = (result + 2 + 1023) / 1024 * 1024;
      }
    }
  }

  // --- search ----------------------------------------------------------------

  /// First occurrence of needle at or after start; -1 when none, when start
  /// is past the text or the needle is empty.
  static int Find(const Ch* text, const Ch* needle, unsigned int start, int caseType) {
    if (start >= LengthOf(text) || !needle || !*needle) return -1;
    const Ch* p = Traits::FindSubstring(text + start, needle, caseType);
    return p ? static_cast<int>(p - text) : -1;
  }

  /// Last occurrence of needle after start, found by the probing below.
  static int ReverseFind(const Ch* text, const Ch* needle, unsigned int start, int caseType) {
    unsigned int length = LengthOf(text);
    if (length == 0 || !needle || !*needle) return -1;
    long long m = static_cast<long long>(Traits::Length(needle));
    // The probe steps back by the length of the needle, not by one, and a
    // probe at or before start ends the search: callers rely on both.
    for (long long p = static_cast<long long>(length) - m; p > static_cast<long long>(start);
         p -= m) {
      const Ch* hit = Traits::FindSubstring(text + p, needle, caseType);
      if (hit) return static_cast<int>(hit - text);
    }
    return -1;
  }

  /// Whether the text starts (atEnd false) or ends (atEnd true) with a
  /// non-empty needle.
  static bool HasAffix(const Ch* text, const Ch* needle, bool atEnd, int caseType) {
    if (!needle || !*needle) return false;
    std::size_t m = Traits::Length(needle);
    unsigned int length = LengthOf(text);
    if (m > length) return false;
    const Ch* at = atEnd ? text + length - m : text;
    return Traits::CompareTexts(at, static_cast<int>(m), needle, static_cast<int>(m), caseType) ==
           0;
  }

  // --- extraction ------------------------------------------------------------

  /// Makes target a copy of the units [begin, end) of text, end cut to the
  /// length; nothing when the range is empty or begins past the text.
  static void CopyRange(Ch*& target, const Ch* text, unsigned int begin, unsigned int end) {
    unsigned int length = LengthOf(text);
    if (begin >= length || begin >= end) return;
    if (end > length) end = length;
    AllocCopy(target, 0, text + begin, static_cast<int>(end - begin));
  }

 private:
  static constexpr Ch kNoText[1] = {0};

  // A private copy of an argument that lies in the buffer being rewritten,
  // released when the operation ends (also by an exception).
  class CHeld {
   public:
    CHeld() : m_text(nullptr) {}
    ~CHeld() { Release(m_text); }
    CHeld(const CHeld&) = delete;
    CHeld& operator=(const CHeld&) = delete;
    const Ch* Of(const Ch* source) {
      if (!*source) return kNoText;
      AllocCopy(m_text, 0, source, -1);
      return m_text;
    }

   private:
    Ch* m_text;
  };
};

/// The extractions written once over the public interface of either string
/// (S is CString or CUnicodeString).
template <typename S>
struct CStringExtraction {
  /// count units from start (SubString cuts the range to the text).
  static S Mid(const S& s, unsigned int start, int count) {
    return s.SubString(start, start + static_cast<unsigned int>(count));
  }
  /// The first n units; the whole string, shared, when n reaches its length.
  static S Left(const S& s, unsigned int n) {
    if (n < s.GetLength()) return s.SubString(0, n);
    return s;
  }
  /// The n units that end one before the last: existing callers depend on
  /// it. The whole string, shared, when n reaches its length.
  static S Right(const S& s, unsigned int n) {
    unsigned int length = s.GetLength();
    if (n >= length) return s;
    return s.Mid(length - n - 1, static_cast<int>(n));
  }
};

}  // namespace internal
}  // namespace base
}  // namespace vesk

#endif
