/// \file
/// CUnicodeStringBuffer: a growable, unshared 16-bit character buffer.
#ifndef VESK_BASE_UNICODESTRINGBUFFER_H
#define VESK_BASE_UNICODESTRINGBUFFER_H

#include "vesk/base/Export.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace base {

/// A zero-terminated array of UTF-16 units that grows in steps of its
/// growth step (at least 8 units), for building 16-bit text piece by piece.
/// It stores no length: the text ends at the first zero unit. The array is
/// null until first use. Narrow (UTF-8) operands are converted, a byte that
/// does not form a character becoming '?'. Allocation failures throw
/// CMemoryException.
class VESK_API CUnicodeStringBuffer {
 public:
  /// Allocates initialCapacity units (rounded up to the growth step) at
  /// once and zero-fills them.
  CUnicodeStringBuffer(unsigned int initialCapacity, unsigned int growthStep);
  /// An unallocated buffer with the given growth step.
  explicit CUnicodeStringBuffer(unsigned int growthStep = 8);
  /// A copy of the text and the growth step of other.
  CUnicodeStringBuffer(const CUnicodeStringBuffer& other);
  /// Frees the array.
  ~CUnicodeStringBuffer();

  /// Replaces the text by a copy of other's; the growth step stays.
  CUnicodeStringBuffer& operator=(const CUnicodeStringBuffer& other);
  /// Replaces the text by the 16-bit form of a narrow text; null gives the
  /// empty text.
  CUnicodeStringBuffer& operator=(const char* text);
  /// Replaces the text; null gives the empty text.
  CUnicodeStringBuffer& operator=(const unsigned short* text);
  /// Replaces the text by the 16-bit form of the string.
  CUnicodeStringBuffer& operator=(const CString& text);
  /// Replaces the text by a copy of the string's.
  CUnicodeStringBuffer& operator=(const CUnicodeString& text);

  /// Appends one unit.
  CUnicodeStringBuffer& operator+=(unsigned short c);
  /// Appends the 16-bit form of a narrow text; null appends nothing.
  CUnicodeStringBuffer& operator+=(const char* text);
  /// Appends a text; null appends nothing.
  CUnicodeStringBuffer& operator+=(const unsigned short* text);
  /// Appends the 16-bit form of the string.
  CUnicodeStringBuffer& operator+=(const CString& text);
  /// Appends the string's text.
  CUnicodeStringBuffer& operator+=(const CUnicodeString& text);

  /// Makes room for minCapacity units and returns the writable array (null
  /// when nothing has been allocated yet and minCapacity is 0).
  unsigned short* GetBuffer(unsigned int minCapacity);
  /// The array (null until first use).
  operator unsigned short*() { return m_pBuffer; }
  /// The array (null until first use).
  operator const unsigned short*() const { return m_pBuffer; }
  /// Length of the text in units: the position of its first zero unit.
  unsigned int GetSize() const;
  /// Whether the text is empty (true before first use).
  bool IsEmpty() const { return !m_pBuffer || m_pBuffer[0] == 0; }
  /// Writes a zero unit at the start; the array is kept.
  void Empty();
  /// Grows the array to at least n units (rounded up to the growth step),
  /// keeping the text.
  void EnsureCapacity(unsigned int n);
  /// Shrinks the array to exactly the text and its terminator.
  void TrimToSize();
  /// Changes the growth step (at least 8) used by later growth.
  void SetCapacityIncrement(unsigned int growthStep);

  /// Units allocated, terminator included.
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step capacities are rounded up to.
  unsigned int GetGrowthStep() const { return m_growBy; }

 private:
  void AllocBuffer(unsigned int n);
  unsigned int RoundUp(unsigned int n) const;
  void Assign(const unsigned short* text, unsigned int count);
  void Append(const unsigned short* text, unsigned int count);
  void AppendNarrow(const char* text, int bytes);

  unsigned short* m_pBuffer;
  unsigned int m_capacity;
  unsigned int m_growBy;
};

}  // namespace base
}  // namespace vesk

#endif
