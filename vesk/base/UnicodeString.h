/// \file
/// CUnicodeString: the library's value type for 16-bit (UTF-16) text.
#ifndef VESK_BASE_UNICODESTRING_H
#define VESK_BASE_UNICODESTRING_H

#include <cstdarg>

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

namespace internal {
struct CUnicodeStringAccess;
}

class CString;

/// The header that precedes the units of every CUnicodeString buffer, in
/// the same block. The text follows it directly and is always terminated by
/// a zero unit.
struct CUnicodeStringData {
  /// Units available, terminator included.
  unsigned int capacity;
  /// Units in the text, terminator excluded.
  unsigned int length;
  /// Number of CUnicodeString objects sharing the buffer.
  unsigned int refCount;
};

/// A copy-on-write string of UTF-16 code units. Copies share one
/// reference-counted buffer until one of them is modified. Buffers of up to
/// 1024 units come from the library's 16-bit string pools, longer ones from
/// the heap.
///
/// Most operations take either 16-bit text (`const unsigned short*`, zero
/// terminated) or narrow text (`const char*`, UTF-8). Narrow arguments are
/// converted first; a byte that does not form a whole character converts to
/// '?', so a `char` argument above 0x7F stands for '?'.
///
/// The empty string is either a null pointer or a buffer of length 0; both
/// behave alike everywhere. Indexes and lengths count 16-bit units;
/// searches return -1 when nothing is found, and out-of-range indexes never
/// throw. Reference counts are plain integers: a string and its copies
/// belong to one thread at a time. Allocation failures throw
/// CMemoryException.
class VESK_API CUnicodeString {
 public:
  /// The empty string (allocates nothing).
  CUnicodeString() : m_pszData(nullptr) {}
  /// The 16-bit form of a NUL-terminated narrow text; null or "" gives the
  /// empty string.
  CUnicodeString(const char* text);
  /// The 16-bit form of count bytes of narrow text (up to a NUL among them).
  CUnicodeString(const char* text, unsigned int count);
  /// A copy of a zero-terminated 16-bit text; null gives the empty string.
  CUnicodeString(const unsigned short* text);
  /// A copy of count units of text; a zero unit among them ends the string.
  CUnicodeString(const unsigned short* text, unsigned int count);
  /// Shares the buffer of other (nothing is copied).
  CUnicodeString(const CUnicodeString& other);
  /// Releases this string's share of the buffer; the last one frees it.
  ~CUnicodeString();

  /// Shares the buffer of other; self-assignment does nothing.
  CUnicodeString& operator=(const CUnicodeString& other);
  /// Converts a narrow text; null or "" gives the empty string.
  CUnicodeString& operator=(const char* text);
  /// Copies a zero-terminated 16-bit text; null gives the empty string.
  CUnicodeString& operator=(const unsigned short* text);
  /// Appends other.
  CUnicodeString& operator+=(const CUnicodeString& other);
  /// Appends a narrow text, converted; null appends nothing.
  CUnicodeString& operator+=(const char* text);
  /// Appends a zero-terminated 16-bit text; null appends nothing.
  CUnicodeString& operator+=(const unsigned short* text);
  /// Replaces the text by count units of text (up to a zero unit among them).
  void Set(const unsigned short* text, unsigned int count);

  /// Length in units, terminator excluded.
  unsigned int GetLength() const { return m_pszData ? GetData()->length : 0; }
  /// Whether the string has no units.
  bool IsEmpty() const { return !m_pszData || GetData()->length == 0; }
  /// The unit at index, or 0 when index is not below the length.
  unsigned short GetAt(unsigned int index) const;
  /// GetAt(index).
  unsigned short operator[](unsigned int index) const { return GetAt(index); }
  /// Overwrites the unit at index; ignored when index is not below the length.
  void SetAt(unsigned int index, unsigned short c);
  /// The text; the empty string gives an empty text (never null). Valid
  /// until the string is modified or destroyed.
  operator const unsigned short*() const;
  /// Copies the text into target, at most size - 1 units followed by a zero
  /// unit; nothing when target is null or size is 0.
  void CopyTo(unsigned short* target, unsigned int size) const;
  /// Makes room for n units plus the terminator (and makes the buffer
  /// private).
  void EnsureCapacity(unsigned int n);

  ///@{
  /// Unit-by-unit comparison; negative, 0 or positive. An empty string
  /// equals null and "" and is below every text with a character; a
  /// non-empty string is above null and "".
  int Compare(const unsigned short* text) const;
  int Compare(const char* text) const;
  ///@}
  ///@{
  /// As Compare, ignoring case (simple Unicode case mapping).
  int CompareIgnoreCase(const unsigned short* text) const;
  int CompareIgnoreCase(const char* text) const;
  ///@}

  ///@{
  /// Index of the first unit c at or after start; -1 when there is none.
  int Find(unsigned short c, unsigned int start = 0) const;
  int Find(char c, unsigned int start = 0) const;
  ///@}
  ///@{
  /// Index of the first occurrence of text at or after start; -1 for a
  /// null or empty text or when there is none.
  int Find(const unsigned short* text, unsigned int start = 0) const;
  int Find(const char* text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// As Find, ignoring case.
  int FindIgnoreCase(const unsigned short* text, unsigned int start = 0) const;
  int FindIgnoreCase(const char* text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// Index of the last unit c in the range from start to the end (start is
  /// a lower bound); -1 when there is none.
  int ReverseFind(unsigned short c, unsigned int start = 0) const;
  int ReverseFind(char c, unsigned int start = 0) const;
  ///@}
  ///@{
  /// Searches backwards for text in steps of its length: probes at
  /// length - m, length - 2m, ... (m the length of text), searching forwards
  /// from each probe, and gives up at the first probe at or before start. A
  /// match that begins exactly at start is never reported.
  int ReverseFind(const unsigned short* text, unsigned int start = 0) const;
  int ReverseFind(const char* text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// As ReverseFind, ignoring case.
  int ReverseFindIgnoreCase(const unsigned short* text, unsigned int start = 0) const;
  int ReverseFindIgnoreCase(const char* text, unsigned int start = 0) const;
  ///@}
  ///@{
  /// Whether the string begins with text; false for null or "" and when
  /// text is longer than the string.
  bool StartsWith(const unsigned short* text) const;
  bool StartsWith(const char* text) const;
  ///@}
  ///@{
  /// Whether the string ends with text; same rules as StartsWith.
  bool EndsWith(const unsigned short* text) const;
  bool EndsWith(const char* text) const;
  ///@}
  ///@{
  /// As StartsWith, ignoring case.
  bool StartsWithIgnoreCase(const unsigned short* text) const;
  bool StartsWithIgnoreCase(const char* text) const;
  ///@}
  ///@{
  /// As EndsWith, ignoring case.
  bool EndsWithIgnoreCase(const unsigned short* text) const;
  bool EndsWithIgnoreCase(const char* text) const;
  ///@}

  /// The units from begin to the end; empty when begin is not below the length.
  CUnicodeString SubString(unsigned int begin) const;
  /// The units from begin up to min(end, length); empty when begin is not
  /// below the length or not below end.
  CUnicodeString SubString(unsigned int begin, unsigned int end) const;
  /// SubString(start).
  CUnicodeString Mid(unsigned int start) const;
  /// SubString(start, start + count), in unsigned 32-bit arithmetic.
  CUnicodeString Mid(unsigned int start, int count) const;
  /// The first n units; the whole string (shared) when n is not below the length.
  CUnicodeString Left(unsigned int n) const;
  /// The whole string (shared) when n is not below the length; otherwise
  /// Mid(length - n - 1, n): the n units that end one before the last unit.
  /// Existing callers depend on that offset.
  CUnicodeString Right(unsigned int n) const;

  /// Makes the string empty. An owned buffer is kept for reuse; a shared
  /// one is only released.
  void Empty();
  /// Maps every character to upper case (simple mapping per code point;
  /// a mapping that would change the number of units is not applied).
  void MakeUpper();
  /// Maps every character to lower case, as MakeUpper.
  void MakeLower();
  /// Reverses the order of the characters; a surrogate pair stays whole.
  void MakeReverse();
  /// Removes leading white space.
  void TrimLeft();
  ///@{
  /// Removes leading occurrences of c.
  void TrimLeft(unsigned short c);
  void TrimLeft(char c);
  ///@}
  ///@{
  /// Removes leading units that occur in set.
  void TrimLeft(const unsigned short* set);
  void TrimLeft(const char* set);
  ///@}
  /// Removes trailing white space.
  void TrimRight();
  ///@{
  /// Removes trailing occurrences of c.
  void TrimRight(unsigned short c);
  void TrimRight(char c);
  ///@}
  ///@{
  /// Removes trailing units that occur in set.
  void TrimRight(const unsigned short* set);
  void TrimRight(const char* set);
  ///@}
  ///@{
  /// Replaces every a by b; returns the number of replacements.
  int Replace(unsigned short a, unsigned short b);
  int Replace(char a, char b);
  ///@}
  ///@{
  /// Replaces every non-overlapping occurrence of oldText by newText (null
  /// counts as ""); returns the number of replacements.
  int Replace(const unsigned short* oldText, const unsigned short* newText);
  int Replace(const char* oldText, const char* newText);
  ///@}
  ///@{
  /// Removes every c; returns how many were removed.
  int Remove(unsigned short c);
  int Remove(char c);
  ///@}
  ///@{
  /// Inserts c before index (an index beyond the end appends); returns the
  /// new length.
  int Insert(unsigned int index, unsigned short c);
  int Insert(unsigned int index, char c);
  ///@}
  ///@{
  /// Inserts text before index (an index beyond the end appends); returns
  /// the new length.
  int Insert(unsigned int index, const unsigned short* text);
  int Insert(unsigned int index, const char* text);
  ///@}
  /// Removes count units at index and returns the length held before the
  /// deletion; when count is 0 or index is not below the length nothing
  /// changes and the length is returned. A count running past the end is
  /// clamped to it.
  int Delete(unsigned int index, unsigned int count = 1);

  /// Writes the UTF-8 form of the string into buffer and returns the number
  /// of bytes, terminator excluded. With size -1 nothing is written and the
  /// room needed (terminator included) is returned; when size is smaller
  /// than that room, nothing is written and -1 is returned. An empty string
  /// returns 0 and writes nothing, not even a terminator. A high surrogate
  /// that does not begin a pair is written as '?' and takes the unit after
  /// it along; a lone low surrogate keeps its three-byte form.
  int ToUTF8(char* buffer, int size) const;
  /// The UTF-8 form of the string, by the rules of ToUTF8(char*, int).
  CString ToUTF8() const;
  /// Replaces the text by the decoding of length bytes of UTF-8 (a negative
  /// length: up to the NUL). Decoding stops without an error at the first
  /// malformed lead byte, bad continuation byte, sequence cut off by the end,
  /// overlong form, value beyond U+10FFFF or NUL; what was decoded before it
  /// is kept. Three-byte forms of surrogates decode to the surrogate unit,
  /// so the output of ToUTF8 for a lone low surrogate reads back.
  void FromUTF8(const char* text, int length = -1);

  /// Replaces the text by the printf-style formatting of the arguments.
  /// In the format, %s takes 16-bit text and %hs narrow text.
  void Format(const unsigned short* format, ...);
  /// Replaces the text by the printf-style formatting of args.
  void FormatV(const unsigned short* format, va_list args);

 private:
  /// The library's own code copies text of known length through it.
  friend struct internal::CUnicodeStringAccess;

  CUnicodeStringData* GetData() const {
    return m_pszData ? reinterpret_cast<CUnicodeStringData*>(m_pszData) - 1 : nullptr;
  }
  void AllocBuffer(unsigned int n);
  void AllocCopy(const unsigned short* text, int count);
  void AllocCopy(unsigned int minCapacity, const unsigned short* text, int count);
  void EnsureBufferCapacity(unsigned int n);
  void CopyRefBeforeModify();
  void ReleaseBuffer();

  void AssignNarrow(const char* text, unsigned int count);
  void Append(const unsigned short* text, unsigned int count);
  int CompareText(const unsigned short* text, int caseType) const;
  int FindText(const unsigned short* text, unsigned int start, int caseType) const;
  int ReverseFindText(const unsigned short* text, unsigned int start, int caseType) const;
  bool StartsWithText(const unsigned short* text, int caseType) const;
  bool EndsWithText(const unsigned short* text, int caseType) const;
  void TrimLeftSet(const unsigned short* set, unsigned int setLength);
  void TrimRightSet(const unsigned short* set, unsigned int setLength);

  unsigned short* m_pszData;
};

///@{
/// Equality: two empty strings are equal, an empty and a non-empty one are
/// not; otherwise the units decide. Null and "" count as empty.
VESK_API bool operator==(const CUnicodeString& a, const CUnicodeString& b);
VESK_API bool operator==(const CUnicodeString& a, const unsigned short* b);
VESK_API bool operator==(const unsigned short* a, const CUnicodeString& b);
VESK_API bool operator==(const CUnicodeString& a, const char* b);
VESK_API bool operator==(const char* a, const CUnicodeString& b);
VESK_API bool operator!=(const CUnicodeString& a, const CUnicodeString& b);
VESK_API bool operator!=(const CUnicodeString& a, const unsigned short* b);
VESK_API bool operator!=(const unsigned short* a, const CUnicodeString& b);
VESK_API bool operator!=(const CUnicodeString& a, const char* b);
VESK_API bool operator!=(const char* a, const CUnicodeString& b);
///@}
///@{
/// Ordering: the empty string is below every non-empty one; otherwise the
/// unit-by-unit comparison decides.
VESK_API bool operator<(const CUnicodeString& a, const CUnicodeString& b);
VESK_API bool operator<(const CUnicodeString& a, const unsigned short* b);
VESK_API bool operator<(const unsigned short* a, const CUnicodeString& b);
VESK_API bool operator<(const CUnicodeString& a, const char* b);
VESK_API bool operator<(const char* a, const CUnicodeString& b);
VESK_API bool operator<=(const CUnicodeString& a, const CUnicodeString& b);
VESK_API bool operator<=(const CUnicodeString& a, const unsigned short* b);
VESK_API bool operator<=(const unsigned short* a, const CUnicodeString& b);
VESK_API bool operator<=(const CUnicodeString& a, const char* b);
VESK_API bool operator<=(const char* a, const CUnicodeString& b);
VESK_API bool operator>(const CUnicodeString& a, const CUnicodeString& b);
VESK_API bool operator>(const CUnicodeString& a, const unsigned short* b);
VESK_API bool operator>(const unsigned short* a, const CUnicodeString& b);
VESK_API bool operator>(const CUnicodeString& a, const char* b);
VESK_API bool operator>(const char* a, const CUnicodeString& b);
VESK_API bool operator>=(const CUnicodeString& a, const CUnicodeString& b);
VESK_API bool operator>=(const CUnicodeString& a, const unsigned short* b);
VESK_API bool operator>=(const unsigned short* a, const CUnicodeString& b);
VESK_API bool operator>=(const CUnicodeString& a, const char* b);
VESK_API bool operator>=(const char* a, const CUnicodeString& b);
///@}

///@{
/// Concatenation into a new string.
VESK_API CUnicodeString operator+(const CUnicodeString& a, const CUnicodeString& b);
VESK_API CUnicodeString operator+(const CUnicodeString& a, const unsigned short* b);
VESK_API CUnicodeString operator+(const unsigned short* a, const CUnicodeString& b);
VESK_API CUnicodeString operator+(const CUnicodeString& a, const char* b);
VESK_API CUnicodeString operator+(const char* a, const CUnicodeString& b);
///@}

}  // namespace base
}  // namespace vesk

#endif
