/// \file
/// CStringH: a narrow string kept in a relocatable memory handle.
#ifndef VESK_BASE_STRINGH_H
#define VESK_BASE_STRINGH_H

#include "vesk/base/Export.h"
#include "vesk/base/String.h"

namespace vesk {
namespace base {

/// A narrow string whose text lives in a relocatable heap handle. The text
/// is unshared (every copy owns its own handle) and the handle grows to the
/// exact size asked for, without size classes. Allocation failures throw
/// CMemoryException.
class VESK_API CStringH {
 public:
  /// The empty string; no handle is allocated.
  CStringH();
  /// A copy of text; null or "" gives the empty string.
  CStringH(const char* text);
  /// A copy of the text of a string.
  CStringH(const CString& text);
  /// A copy of the text of other, in a handle of its own.
  CStringH(const CStringH& other);
  /// Frees the handle.
  ~CStringH();

  /// Replaces the text by a copy of text; null or "" empties it.
  CStringH& operator=(const char* text);
  /// Replaces the text by a copy of the string's.
  CStringH& operator=(const CString& text);
  /// Replaces the text by a copy of other's; each keeps its own handle.
  CStringH& operator=(const CStringH& other);

  /// Comparison with the rules of CString::Compare: an empty handle string
  /// is below every non-null text, "" included.
  int Compare(const char* text) const;
  /// Comparison with the rules of CString::Compare(const CString&).
  int Compare(const CString& text) const;
  /// As Compare(const CString&): two empty texts are equal, an empty one is
  /// below any other.
  int Compare(const CStringH& other) const;

  /// Length of the text in bytes.
  unsigned int GetLength() const { return m_length; }
  /// Whether the text is empty.
  bool IsEmpty() const { return m_length == 0; }
  /// Makes the text empty; the handle is kept.
  void Empty();
  /// Counts one more lock; returns the new count.
  unsigned int Lock();
  /// Counts one lock less when there is one; returns the new count.
  unsigned int Unlock();
  /// The text, or null when no handle is allocated. The pointer is valid
  /// only until the handle is resized.
  operator const char*() const { return m_hData ? *m_hData : nullptr; }

 private:
  void AllocBuffer(unsigned int n);
  void AllocCopy(const char* text);
  void AllocCopy(const char* text, unsigned int minCapacity);
  void AllocCopy(char** handle);
  void AllocCopy(char** handle, unsigned int minCapacity);
  void EnsureBufferCapacity(unsigned int n);
  void ReleaseBuffer();

  /// The relocatable handle (a pointer to the current address of the block).
  char** m_hData;
  unsigned int m_capacity;
  unsigned int m_length;
  unsigned int m_lockCount;
};

///@{
/// Equality of texts; null, "" and empty strings are all equal.
VESK_API bool operator==(const CString& a, const CStringH& b);
VESK_API bool operator==(const CStringH& a, const CString& b);
VESK_API bool operator==(const CStringH& a, const char* b);
VESK_API bool operator==(const char* a, const CStringH& b);
VESK_API bool operator==(const CStringH& a, const CStringH& b);
VESK_API bool operator!=(const CString& a, const CStringH& b);
VESK_API bool operator!=(const CStringH& a, const CString& b);
VESK_API bool operator!=(const CStringH& a, const char* b);
VESK_API bool operator!=(const char* a, const CStringH& b);
VESK_API bool operator!=(const CStringH& a, const CStringH& b);
///@}

}  // namespace base
}  // namespace vesk

#endif
