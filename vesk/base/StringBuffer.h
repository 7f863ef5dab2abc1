/// \file
/// CStringBuffer: a growable, unshared narrow character buffer.
#ifndef VESK_BASE_STRINGBUFFER_H
#define VESK_BASE_STRINGBUFFER_H

#include "vesk/base/Export.h"
#include "vesk/base/String.h"

namespace vesk {
namespace base {

class CUnicodeString;

/// A NUL-terminated character array that grows in steps of its growth
/// step (at least 8), for building text piece by piece. It stores no
/// length: the text ends at the first NUL. The array is null until first
/// use. Allocation failures throw CMemoryException.
class VESK_API CStringBuffer {
 public:
  /// Allocates initialCapacity bytes (rounded up to the growth step) at once
  /// and zero-fills them.
  CStringBuffer(unsigned int initialCapacity, unsigned int growthStep);
  /// An unallocated buffer with the given growth step.
  explicit CStringBuffer(unsigned int growthStep = 8);
  /// A copy of the text and the growth step of other.
  CStringBuffer(const CStringBuffer& other);
  /// Frees the array.
  ~CStringBuffer();

  /// Replaces the text by a copy of other's; the growth step stays.
  CStringBuffer& operator=(const CStringBuffer& other);
  /// Replaces the text; null gives the empty text.
  CStringBuffer& operator=(const char* text);
  /// Replaces the text by the UTF-8 form of a 16-bit text.
  CStringBuffer& operator=(const unsigned short* text);
  /// Replaces the text by a copy of the string's.
  CStringBuffer& operator=(const CString& text);
  /// Replaces the text by the UTF-8 form of a 16-bit string.
  CStringBuffer& operator=(const CUnicodeString& text);

  /// Appends one character.
  CStringBuffer& operator+=(char c);
  /// Appends a text; null appends nothing.
  CStringBuffer& operator+=(const char* text);
  /// Appends the UTF-8 form of a 16-bit text.
  CStringBuffer& operator+=(const unsigned short* text);
  /// Appends the string's text.
  CStringBuffer& operator+=(const CString& text);
  /// Appends the UTF-8 form of a 16-bit string.
  CStringBuffer& operator+=(const CUnicodeString& text);

  /// Makes room for minCapacity bytes and returns the writable array (null
  /// when nothing has been allocated yet and minCapacity is 0).
  char* GetBuffer(unsigned int minCapacity);
  /// The array (null until first use).
  operator char*() { return m_pBuffer; }
  /// Length of the text: the position of its first NUL.
  unsigned int GetSize() const;
  /// Whether the text is empty (true before first use).
  bool IsEmpty() const { return !m_pBuffer || m_pBuffer[0] == '\0'; }
  /// Writes a NUL at the start; the array is kept.
  void Empty();
  /// Grows the array to at least n bytes (rounded up to the growth step),
  /// keeping the text.
  void EnsureCapacity(unsigned int n);
  /// Shrinks the array to exactly the text and its terminator.
  void TrimToSize();

  /// Bytes allocated for the array (0 before first use).
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step capacities are rounded up to.
  unsigned int GetGrowthStep() const { return m_growBy; }

 private:
  void AllocBuffer(unsigned int n);
  unsigned int RoundUp(unsigned int n) const;
  void Append(const char* text, unsigned int count);
  void Assign(const char* text, unsigned int count);
  void AppendWide(const unsigned short* text);

  char* m_pBuffer;
  unsigned int m_capacity;
  unsigned int m_growBy;
};

}  // namespace base
}  // namespace vesk

#endif
