#include "vesk/base/String.h"

#include <cstdio>
#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/StringH.h"
#include "vesk/base/internal/StringBody.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/String";

typedef internal::CStringBody<char> Body;

// The empty-string rules shared by every ordering: an empty text is below
// every non-empty one; otherwise the bytes decide.
int OrderTexts(const char* a, std::size_t lengthA, const char* b, std::size_t lengthB) {
  if (lengthA == 0) return lengthB == 0 ? 0 : -1;
  if (lengthB == 0) return 1;
  return platform::TextCompare(a, static_cast<int>(lengthA), b, static_cast<int>(lengthB),
                               platform::kTextExactCase);
}

inline std::size_t SafeLength(const char* text) { return text ? std::strlen(text) : 0; }

}  // namespace

// --- buffer management -----------------------------------------------------

void CString::AllocBuffer(unsigned int n) { Body::Alloc(m_pchData, n); }

void CString::AllocCopy(const char* text, int count) { Body::AllocCopy(m_pchData, 0, text, count); }

void CString::AllocCopy(unsigned int minCapacity, const char* text, int count) {
  Body::AllocCopy(m_pchData, minCapacity, text, count);
}

void CString::EnsureBufferCapacity(unsigned int n) { Body::EnsureCapacity(m_pchData, n); }

void CString::EnsureCapacity(unsigned int n) { EnsureBufferCapacity(n + 1); }

void CString::CopyRefBeforeModify() { Body::CopyBeforeModify(m_pchData); }

void CString::ReleaseBuffer() { Body::Release(m_pchData); }

// --- construction and assignment -------------------------------------------

CString::CString(const char* text) : m_pchData(nullptr) {
  if (!text || !*text) return;
  // A fresh string has no buffer to reuse: the copy goes straight into a new
  // one (what AllocCopy would do, without its reuse tests).
  std::size_t length = std::strlen(text);
  if (length >= 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  char* fresh = Body::NewBuffer(static_cast<unsigned int>(length + 1));
  std::memcpy(fresh, text, length + 1);
  reinterpret_cast<CStringData*>(fresh)[-1].length = static_cast<unsigned int>(length);
  m_pchData = fresh;
}

CString::CString(const char* text, unsigned int count) : m_pchData(nullptr) {
  if (text && count > 0) AllocCopy(text, static_cast<int>(count));
}

CString::CString(const unsigned short* text) : m_pchData(nullptr) {
  if (text && *text) AssignWide(text, static_cast<unsigned int>(-1));
}

CString::CString(const unsigned short* text, unsigned int count) : m_pchData(nullptr) {
  if (text && count > 0) AssignWide(text, count);
}

CString::CString(const CStringH& other) : m_pchData(nullptr) {
  const char* text = other;
  if (text && *text) AllocCopy(text, -1);
}

CString& CString::operator=(const CString& other) {
  if (this == &other || m_pchData == other.m_pchData) return *this;
  ReleaseBuffer();
  Share(other);
  return *this;
}

CString& CString::operator=(const char* text) {
  if (!text || !*text) {
    Empty();
  } else {
    AllocCopy(text, -1);
  }
  return *this;
}

CString& CString::operator=(const unsigned short* text) {
  AssignWide(text, static_cast<unsigned int>(-1));
  return *this;
}

CString& CString::operator=(const CStringH& other) {
  return *this = static_cast<const char*>(other);
}

void CString::AssignWide(const unsigned short* text, unsigned int count) {
  unsigned int units = platform::Utf16LengthBounded(text, count);
  if (units == 0) {
    Empty();
    return;
  }
  // Sized by the converted length, so that no character is cut.
  std::size_t bytes = platform::Utf16ToNarrow(text, static_cast<int>(units), nullptr, 0);
  if (bytes >= 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  AllocBuffer(static_cast<unsigned int>(bytes + 1));
  platform::Utf16ToNarrow(text, static_cast<int>(units), m_pchData, bytes);
  m_pchData[bytes] = '\0';
  GetData()->length = static_cast<unsigned int>(bytes);
}

void CString::Append(const char* text, unsigned int count) { Body::Append(m_pchData, text, count); }

CString& CString::operator+=(const CString& other) {
  Append(other.m_pchData, other.GetLength());
  return *this;
}

CString& CString::operator+=(const char* text) {
  if (text) Append(text, static_cast<unsigned int>(std::strlen(text)));
  return *this;
}

void CString::Set(const char* text, unsigned int count) {
  AllocCopy(text, static_cast<int>(count));
}

// --- access ----------------------------------------------------------------

char CString::GetAt(unsigned int index) const {
  return index < GetLength() ? m_pchData[index] : '\0';
}

void CString::SetAt(unsigned int index, char c) {
  if (index >= GetLength()) return;
  CopyRefBeforeModify();
  m_pchData[index] = c;
}

// --- comparison ------------------------------------------------------------

int CString::CompareText(const char* text, int caseType) const {
  // An empty string is below "" too: only null equals it.
  if (IsEmpty()) return text ? -1 : 0;
  if (!text || !*text) return 1;
  return platform::TextCompare(m_pchData, static_cast<int>(GetLength()), text, -1, caseType);
}

int CString::Compare(const char* text) const { return CompareText(text, platform::kTextExactCase); }

int CString::CompareIgnoreCase(const char* text) const {
  return CompareText(text, platform::kTextIgnoreCase);
}

int CString::Compare(const CString& other) const {
  return OrderTexts(m_pchData, GetLength(), other.m_pchData, other.GetLength());
}

int CString::CompareIgnoreCase(const CString& other) const {
  if (IsEmpty()) return other.IsEmpty() ? 0 : -1;
  if (other.IsEmpty()) return 1;
  return platform::TextCompare(m_pchData, static_cast<int>(GetLength()), other.m_pchData,
                               static_cast<int>(other.GetLength()), platform::kTextIgnoreCase);
}

// --- search ----------------------------------------------------------------

int CString::Find(char c, unsigned int start) const {
  if (start >= GetLength()) return -1;
  const char* p = platform::TextFindChar(m_pchData + start, c);
  return p ? static_cast<int>(p - m_pchData) : -1;
}

int CString::FindText(const char* text, unsigned int start, int caseType) const {
  return Body::Find(m_pchData, text, start, caseType);
}

int CString::Find(const char* text, unsigned int start) const {
  return FindText(text, start, platform::kTextExactCase);
}

int CString::Find(const CString& text, unsigned int start) const {
  return FindText(text.m_pchData, start, platform::kTextExactCase);
}

int CString::FindIgnoreCase(const char* text, unsigned int start) const {
  return FindText(text, start, platform::kTextIgnoreCase);
}

int CString::FindIgnoreCase(const CString& text, unsigned int start) const {
  return FindText(text.m_pchData, start, platform::kTextIgnoreCase);
}

int CString::ReverseFind(char c, unsigned int start) const {
  if (start >= GetLength()) return -1;
  const char* p = platform::TextFindCharRight(m_pchData + start, c);
  return p ? static_cast<int>(p - m_pchData) : -1;
}

int CString::ReverseFindText(const char* text, unsigned int start, int caseType) const {
  return Body::ReverseFind(m_pchData, text, start, caseType);
}

int CString::ReverseFind(const char* text, unsigned int start) const {
  return ReverseFindText(text, start, platform::kTextExactCase);
}

int CString::ReverseFind(const CString& text, unsigned int start) const {
  return ReverseFindText(text.m_pchData, start, platform::kTextExactCase);
}

int CString::ReverseFindIgnoreCase(const char* text, unsigned int start) const {
  return ReverseFindText(text, start, platform::kTextIgnoreCase);
}

int CString::ReverseFindIgnoreCase(const CString& text, unsigned int start) const {
  return ReverseFindText(text.m_pchData, start, platform::kTextIgnoreCase);
}

bool CString::StartsWithText(const char* text, int caseType) const {
  return Body::HasAffix(m_pchData, text, false, caseType);
}

bool CString::EndsWithText(const char* text, int caseType) const {
  return Body::HasAffix(m_pchData, text, true, caseType);
}

bool CString::StartsWith(const char* text) const {
  return StartsWithText(text, platform::kTextExactCase);
}
bool CString::StartsWith(const CString& text) const {
  return StartsWithText(text.m_pchData, platform::kTextExactCase);
}
bool CString::EndsWith(const char* text) const {
  return EndsWithText(text, platform::kTextExactCase);
}
bool CString::EndsWith(const CString& text) const {
  return EndsWithText(text.m_pchData, platform::kTextExactCase);
}
bool CString::StartsWithIgnoreCase(const char* text) const {
  return StartsWithText(text, platform::kTextIgnoreCase);
}
bool CString::StartsWithIgnoreCase(const CString& text) const {
  return StartsWithText(text.m_pchData, platform::kTextIgnoreCase);
}
bool CString::EndsWithIgnoreCase(const char* text) const {
  return EndsWithText(text, platform::kTextIgnoreCase);
}
bool CString::EndsWithIgnoreCase(const CString& text) const {
  return EndsWithText(text.m_pchData, platform::kTextIgnoreCase);
}

// --- extraction ------------------------------------------------------------

CString CString::SubString(unsigned int begin) const { return SubString(begin, GetLength()); }

CString CString::SubString(unsigned int begin, unsigned int end) const {
  CString result;
  Body::CopyRange(result.m_pchData, m_pchData, begin, end);
  return result;
}

CString CString::Mid(unsigned int start) const { return SubString(start); }

CString CString::Mid(unsigned int start, int count) const {
  return internal::CStringExtraction<CString>::Mid(*this, start, count);
}

CString CString::Left(unsigned int n) const {
  return internal::CStringExtraction<CString>::Left(*this, n);
}

CString CString::Right(unsigned int n) const {
  return internal::CStringExtraction<CString>::Right(*this, n);
}

// --- editing ---------------------------------------------------------------

void CString::Empty() { Body::Empty(m_pchData); }

void CString::MakeUpper() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  platform::TextMapCase(m_pchData, GetLength(), true);
}

void CString::MakeLower() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  platform::TextMapCase(m_pchData, GetLength(), false);
}

void CString::MakeReverse() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  platform::TextReverse(m_pchData, GetLength());
}

void CString::TrimLeft() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  const char* p = platform::TextSkipSpace(m_pchData);
  Body::DropFront(m_pchData, *p ? static_cast<unsigned int>(p - m_pchData) : GetLength());
}

void CString::TrimRight() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  const char* p = platform::TextTrailingSpace(m_pchData);
  Body::CutAt(m_pchData, static_cast<unsigned int>(p - m_pchData));
}

void CString::TrimLeftSet(const char* set, unsigned int setLength) {
  if (IsEmpty() || setLength == 0) return;
  CopyRefBeforeModify();
  const char* p = platform::TextSkipSet(m_pchData, set, setLength);
  Body::DropFront(m_pchData, *p ? static_cast<unsigned int>(p - m_pchData) : GetLength());
}

void CString::TrimRightSet(const char* set, unsigned int setLength) {
  if (IsEmpty() || setLength == 0) return;
  CopyRefBeforeModify();
  const char* p = platform::TextTrailingSet(m_pchData, set, setLength);
  Body::CutAt(m_pchData, static_cast<unsigned int>(p - m_pchData));
}

void CString::TrimLeft(char c) {
  if (c != '\0') TrimLeftSet(&c, 1);
}

void CString::TrimLeft(const char* set) {
  if (set) TrimLeftSet(set, static_cast<unsigned int>(std::strlen(set)));
}

void CString::TrimLeft(const CString& set) { TrimLeftSet(set.m_pchData, set.GetLength()); }

void CString::TrimRight(char c) {
  if (c != '\0') TrimRightSet(&c, 1);
}

void CString::TrimRight(const char* set) {
  if (set) TrimRightSet(set, static_cast<unsigned int>(std::strlen(set)));
}

void CString::TrimRight(const CString& set) { TrimRightSet(set.m_pchData, set.GetLength()); }

int CString::Replace(char a, char b) {
  if (a == b || IsEmpty()) return 0;
  CopyRefBeforeModify();
  int count = 0;
  for (char* p = const_cast<char*>(platform::TextFindChar(m_pchData, a)); p;
       p = const_cast<char*>(platform::TextFindChar(p + 1, a))) {
    *p = b;
    ++count;
  }
  return count;
}

int CString::Replace(const char* oldText, const char* newText) {
  return Body::Replace(m_pchData, oldText, newText);
}

int CString::Remove(char c) {
  if (IsEmpty() || c == '\0') return 0;
  CopyRefBeforeModify();
  char* read = m_pchData;
  char* write = m_pchData;
  int removed = 0;
  while (*read) {
    unsigned int k = platform::TextCharLength(read);
    if (k == 1 && *read == c) {
      ++removed;
    } else {
      if (write != read) std::memmove(write, read, k);
      write += k;
    }
    read += k;
  }
  *write = '\0';
  GetData()->length = static_cast<unsigned int>(write - m_pchData);
  return removed;
}

int CString::Insert(unsigned int index, char c) { return Body::InsertUnit(m_pchData, index, c); }

int CString::Insert(unsigned int index, const char* text) {
  return Body::Insert(m_pchData, index, text);
}

int CString::Delete(unsigned int index, unsigned int count) {
  return Body::Delete(m_pchData, index, count);
}

// --- formatting ------------------------------------------------------------

void CString::Format(const char* format, ...) {
  va_list args;
  va_start(args, format);
  try {
    FormatV(format, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
}

void CString::FormatV(const char* format, va_list args) {
  if (!format) {
    Empty();
    return;
  }
  bool formatted = Body::Format(m_pchData, [&](char* scratch, std::size_t size) {
    va_list copy;
    va_copy(copy, args);
    int written = std::vsnprintf(scratch, size, format, copy);
    va_end(copy);
    return written;
  });
  if (!formatted) Empty();  // an encoding error: the result is empty
}

// --- free operators --------------------------------------------------------

bool operator==(const CString& a, const CString& b) {
  unsigned int length = a.GetLength();
  if (length != b.GetLength()) return false;
  return length == 0 ||
         std::memcmp(static_cast<const char*>(a), static_cast<const char*>(b), length) == 0;
}

bool operator==(const CString& a, const char* b) {
  return std::strcmp(static_cast<const char*>(a), b ? b : "") == 0;
}

bool operator==(const char* a, const CString& b) { return b == a; }
bool operator!=(const CString& a, const CString& b) { return !(a == b); }
bool operator!=(const CString& a, const char* b) { return !(a == b); }
bool operator!=(const char* a, const CString& b) { return !(b == a); }

bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
bool operator<(const CString& a, const char* b) {
  return OrderTexts(a, a.GetLength(), b, SafeLength(b)) < 0;
}
bool operator<(const char* a, const CString& b) {
  return OrderTexts(a, SafeLength(a), b, b.GetLength()) < 0;
}
bool operator<=(const CString& a, const CString& b) { return a.Compare(b) <= 0; }
bool operator<=(const CString& a, const char* b) {
  return OrderTexts(a, a.GetLength(), b, SafeLength(b)) <= 0;
}
bool operator<=(const char* a, const CString& b) {
  return OrderTexts(a, SafeLength(a), b, b.GetLength()) <= 0;
}
bool operator>(const CString& a, const CString& b) { return a.Compare(b) > 0; }
bool operator>(const CString& a, const char* b) {
  return OrderTexts(a, a.GetLength(), b, SafeLength(b)) > 0;
}
bool operator>(const char* a, const CString& b) {
  return OrderTexts(a, SafeLength(a), b, b.GetLength()) > 0;
}
bool operator>=(const CString& a, const CString& b) { return a.Compare(b) >= 0; }
bool operator>=(const CString& a, const char* b) {
  return OrderTexts(a, a.GetLength(), b, SafeLength(b)) >= 0;
}
bool operator>=(const char* a, const CString& b) {
  return OrderTexts(a, SafeLength(a), b, b.GetLength()) >= 0;
}

CString operator+(const CString& a, const CString& b) {
  CString result(a);
  result += b;
  return result;
}

CString operator+(const CString& a, const char* b) {
  CString result(a);
  result += b;
  return result;
}

CString operator+(const char* a, const CString& b) {
  CString result(a);
  result += b;
  return result;
}

}  // namespace base
}  // namespace vesk
