/// \file
/// CString: the library's value type for narrow (8-bit, UTF-8) text.
#ifndef VESK_BASE_STRING_H
#define VESK_BASE_STRING_H

#include <cstdarg>

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

class CStringH;

/// The header that precedes the characters of every CString buffer, in the
/// same block. The text follows it directly and is always NUL-terminated.
struct CStringData {
  /// Bytes available for characters, terminator included.
  unsigned int capacity;
  /// Characters (bytes) in the text, terminator excluded.
  unsigned int length;
  /// Number of CString objects sharing the buffer.
  unsigned int refCount;
};

/// A copy-on-write narrow string. Copies share one reference-counted buffer
/// until one of them is modified. Buffers of up to 1024 bytes come from the
/// library's string pools, longer ones from the heap.
///
/// The empty string is either a null pointer or a buffer of length 0; both
/// behave alike everywhere. Indexes and lengths are byte counts; searches
/// return -1 when nothing is found, and out-of-range indexes never throw.
/// Reference counts are plain integers: a string and its copies belong to
/// one thread at a time. Allocation failures throw CMemoryException.
class VESK_API CString {
 public:
  /// The empty string (allocates nothing).
  CString() : m_pchData(nullptr) {}
  /// A copy of a NUL-terminated text; null or "" gives the empty string.
  CString(const char* text);
  /// A copy of count bytes of text; a NUL among them ends the string there.
  CString(const char* text, unsigned int count);
  /// The UTF-8 form of a zero-terminated 16-bit text (unpaired surrogates
  /// become '?'); null gives the empty string.
  CString(const unsigned short* text);
  /// The UTF-8 form of at most count units of a 16-bit text.
  CString(const unsigned short* text, unsigned int count);
  /// Shares the buffer of other (nothing is copied).
  CString(const CString& other) : m_pchData(nullptr) { Share(other); }
  /// A copy of the text of a handle string.
  CString(const CStringH& other);
  /// Releases this string's share of the buffer; the last one frees it.
  ~CString() {
    if (m_pchData) ReleaseBuffer();
  }

  /// Shares the buffer of other; self-assignment does nothing.
  CString& operator=(const CString& other);
  /// Copies a NUL-terminated text; null gives the empty string.
  CString& operator=(const char* text);
  /// Converts a zero-terminated 16-bit text to UTF-8.
  CString& operator=(const unsigned short* text);
  /// Copies the text of a handle string.
  CString& operator=(const CStringH& other);
  /// Appends other.
  CString& operator+=(const CString& other);
  /// Appends a NUL-terminated text; null appends nothing.
  CString& operator+=(const char* text);
  /// Replaces the text by count bytes of text (up to a NUL among them).
  void Set(const char* text, unsigned int count);

  /// Length in bytes, terminator excluded.
  unsigned int GetLength() const { return m_pchData ? GetData()->length : 0; }
  /// Whether the string has no characters.
  bool IsEmpty() const { return !m_pchData || GetData()->length == 0; }
  /// The byte at index, or 0 when index is not below the length.
  char GetAt(unsigned int index) const;
  /// Overwrites the byte at index; ignored when index is not below the length.
  void SetAt(unsigned int index, char c);
  /// The text; the empty string gives "" (never null). Valid until the
  /// string is modified or destroyed.
  operator const char*() const { return m_pchData ? m_pchData : ""; }

  /// Case-sensitive comparison; negative, 0 or positive. An empty string
  /// compares below every non-null text, "" included; only null equals it.
  /// A non-empty string compares above null and "".
  int Compare(const char* text) const;
  /// Case-sensitive comparison; the empty string is below every other.
  int Compare(const CString& other) const;
  /// As Compare(const char*), ignoring case (simple Unicode case mapping).
  int CompareIgnoreCase(const char* text) const;
  /// As Compare(const CString&), ignoring case.
  int CompareIgnoreCase(const CString& other) const;

  /// Index of the first c at or after start; -1 when there is none.
  int Find(char c, unsigned int start = 0) const;
  ///@{
  /// Index of the first occurrence of text at or after start; -1 for a
  /// null or empty text or when there is none.
  int Find(const char* text, unsigned int start = 0) const;
  int Find(const CString& text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// As Find, ignoring case.
  int FindIgnoreCase(const char* text, unsigned int start = 0) const;
  int FindIgnoreCase(const CString& text, unsigned int start = 0) const;
  ///@}
  /// Index of the last c in the range from start to the end (start is a
  /// lower bound); -1 when there is none.
  int ReverseFind(char c, unsigned int start = 0) const;
  ///@{
  /// Searches backwards for text in steps of its length: probes at
  /// length - m, length - 2m, ... (m the length of text), searching forwards
  /// from each probe, and gives up at the first probe at or before start. A
  /// match that begins exactly at start is never reported.
  int ReverseFind(const char* text, unsigned int start = 0) const;
  int ReverseFind(const CString& text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// As ReverseFind, ignoring case.
  int ReverseFindIgnoreCase(const char* text, unsigned int start = 0) const;
  int ReverseFindIgnoreCase(const CString& text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// Whether the string begins with text; false for null or "" and when
  /// text is longer than the string.
  bool StartsWith(const char* text) const;
  bool StartsWith(const CString& text) const;
  ///@}
  ///@{
  /// Whether the string ends with text; same rules as StartsWith.
  bool EndsWith(const char* text) const;
  bool EndsWith(const CString& text) const;
  ///@}
  ///@{
  /// As StartsWith, ignoring case.
  bool StartsWithIgnoreCase(const char* text) const;
  bool StartsWithIgnoreCase(const CString& text) const;
  ///@}
  ///@{
  /// As EndsWith, ignoring case.
  bool EndsWithIgnoreCase(const char* text) const;
  bool EndsWithIgnoreCase(const CString& text) const;
  ///@}

  /// The bytes from begin to the end; empty when begin is not below the length.
  CString SubString(unsigned int begin) const;
  /// The bytes from begin up to min(end, length); empty when begin is not
  /// below the length or not below end.
  CString SubString(unsigned int begin, unsigned int end) const;
  /// SubString(start).
  CString Mid(unsigned int start) const;
  /// SubString(start, start + count), in unsigned 32-bit arithmetic.
  CString Mid(unsigned int start, int count) const;
  /// The first n bytes; the whole string (shared) when n is not below the length.
  CString Left(unsigned int n) const;
  /// The whole string (shared) when n is not below the length; otherwise
  /// Mid(length - n - 1, n): the n bytes that end one before the last byte.
  /// Existing callers depend on that offset.
  CString Right(unsigned int n) const;

  /// Makes the string empty. An owned buffer is kept for reuse; a shared
  /// one is only released.
  void Empty();
  /// Maps every character to upper case where that keeps its UTF-8 length.
  void MakeUpper();
  /// Maps every character to lower case where that keeps its UTF-8 length.
  void MakeLower();
  /// Reverses the order of the characters (multi-byte characters stay whole).
  void MakeReverse();
  /// Removes leading white space.
  void TrimLeft();
  /// Removes leading occurrences of c.
  void TrimLeft(char c);
  ///@{
  /// Removes leading characters that occur in set.
  void TrimLeft(const char* set);
  void TrimLeft(const CString& set);
  ///@}
  /// Removes trailing white space.
  void TrimRight();
  /// Removes trailing occurrences of c.
  void TrimRight(char c);
  ///@{
  /// Removes trailing characters that occur in set.
  void TrimRight(const char* set);
  void TrimRight(const CString& set);
  ///@}
  /// Replaces every a by b; returns the number of replacements.
  int Replace(char a, char b);
  /// Replaces every non-overlapping occurrence of oldText by newText (null
  /// counts as ""); returns the number of replacements.
  int Replace(const char* oldText, const char* newText);
  /// Removes every c; returns how many were removed.
  int Remove(char c);
  /// Inserts c before index (an index beyond the end appends); returns the
  /// new length.
  int Insert(unsigned int index, char c);
  /// Inserts text before index (an index beyond the end appends); returns
  /// the new length.
  int Insert(unsigned int index, const char* text);
  /// Removes count bytes at index and returns the length held before the
  /// deletion; when count is 0 or index is not below the length nothing
  /// changes and the length is returned. A count running past the end is
  /// clamped to it.
  int Delete(unsigned int index, unsigned int count = 1);

  /// Replaces the text by the printf-style formatting of the arguments.
  void Format(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  /// Replaces the text by the printf-style formatting of args.
  void FormatV(const char* format, va_list args);

  /// Makes room for n characters plus the terminator (and makes the buffer
  /// private).
  void EnsureCapacity(unsigned int n);

 private:
  CStringData* GetData() const {
    return m_pchData ? reinterpret_cast<CStringData*>(m_pchData) - 1 : nullptr;
  }
  void AllocBuffer(unsigned int n);
  void AllocCopy(const char* text, int count);
  void AllocCopy(unsigned int minCapacity, const char* text, int count);
  void EnsureBufferCapacity(unsigned int n);
  void CopyRefBeforeModify();
  void ReleaseBuffer();

  // Takes a reference to the buffer of other when it has text (this string
  // holds no buffer). A buffer with a count of 0 is never shared.
  void Share(const CString& other) {
    CStringData* data = other.GetData();
    if (data && data->length != 0 && data->refCount != 0) {
      m_pchData = other.m_pchData;
      ++data->refCount;
    }
  }
  void AssignWide(const unsigned short* text, unsigned int count);
  void Append(const char* text, unsigned int count);
  int CompareText(const char* text, int caseType) const;
  int FindText(const char* text, unsigned int start, int caseType) const;
  int ReverseFindText(const char* text, unsigned int start, int caseType) const;
  bool StartsWithText(const char* text, int caseType) const;
  bool EndsWithText(const char* text, int caseType) const;
  void TrimLeftSet(const char* set, unsigned int setLength);
  void TrimRightSet(const char* set, unsigned int setLength);

  char* m_pchData;
};

///@{
/// Equality: two empty strings are equal, an empty and a non-empty one are
/// not; otherwise the bytes decide. Null and "" count as empty.
VESK_API bool operator==(const CString& a, const CString& b);
VESK_API bool operator==(const CString& a, const char* b);
VESK_API bool operator==(const char* a, const CString& b);
VESK_API bool operator!=(const CString& a, const CString& b);
VESK_API bool operator!=(const CString& a, const char* b);
VESK_API bool operator!=(const char* a, const CString& b);
///@}
///@{
/// Ordering: the empty string is below every non-empty one; otherwise the
/// case-sensitive text comparison decides.
VESK_API bool operator<(const CString& a, const CString& b);
VESK_API bool operator<(const CString& a, const char* b);
VESK_API bool operator<(const char* a, const CString& b);
VESK_API bool operator<=(const CString& a, const CString& b);
VESK_API bool operator<=(const CString& a, const char* b);
VESK_API bool operator<=(const char* a, const CString& b);
VESK_API bool operator>(const CString& a, const CString& b);
VESK_API bool operator>(const CString& a, const char* b);
VESK_API bool operator>(const char* a, const CString& b);
VESK_API bool operator>=(const CString& a, const CString& b);
VESK_API bool operator>=(const CString& a, const char* b);
VESK_API bool operator>=(const char* a, const CString& b);
///@}

///@{
/// Concatenation into a new string.
VESK_API CString operator+(const CString& a, const CString& b);
VESK_API CString operator+(const CString& a, const char* b);
VESK_API CString operator+(const char* a, const CString& b);
///@}

}  // namespace base
}  // namespace vesk

#endif
