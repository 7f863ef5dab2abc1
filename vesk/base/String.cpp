#include "vesk/base/String.h"

#include <cstdio>
#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/StringH.h"
#include "vesk/base/internal/StringPools.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/String";

// A new buffer of the capacity class of n: length 0, reference count 1,
// first byte NUL. Returns the address of its text.
char* NewBuffer(unsigned int n) {
  unsigned int capacity = internal::StringCapacityClass(n);
  int rank = internal::StringPoolRank(capacity);
  void* block;
  if (rank >= 0) {
    block = internal::TakeStringBlock(false, rank);
  } else {
    block = platform::Alloc(sizeof(CStringData) + static_cast<std::size_t>(capacity));
    if (!block) VESK_THROW(kSource, CMemoryException);
  }
  CStringData* data = static_cast<CStringData*>(block);
  data->capacity = capacity;
  data->length = 0;
  data->refCount = 1;
  char* text = reinterpret_cast<char*>(data + 1);
  text[0] = '\0';
  return text;
}

// Gives a buffer back to the pool of its capacity, or to the heap.
void FreeBuffer(CStringData* data) {
  int rank = internal::StringPoolRank(data->capacity);
  if (rank >= 0) {
    internal::GiveStringBlock(false, rank, data);
  } else {
    platform::Free(data);
  }
}

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

void CString::AllocBuffer(unsigned int n) {
  CStringData* data = GetData();
  if (data && data->capacity >= n && data->refCount < 2) return;
  ReleaseBuffer();
  m_pchData = NewBuffer(n);
}

void CString::AllocCopy(const char* text, int count) { AllocCopy(0, text, count); }

void CString::AllocCopy(unsigned int minCapacity, const char* text, int count) {
  if (!text) {
    AllocBuffer(minCapacity > 0 ? minCapacity : 1);
    GetData()->length = 0;
    m_pchData[0] = '\0';
    return;
  }
  std::size_t requested = count < 0 ? std::strlen(text) : static_cast<std::size_t>(count);
  // The length is that of the copy up to its first NUL; bytes after a NUL
  // among the requested ones are never read.
  std::size_t copied = count < 0 ? requested : strnlen(text, requested);
  std::size_t need = requested + 1;
  if (need < minCapacity) need = minCapacity;
  if (need > 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  CStringData* data = GetData();
  if (data && data->capacity >= need && data->refCount < 2) {
    std::memmove(m_pchData, text, copied);  // text may lie in this buffer
  } else {
    // The new buffer is filled before the old one is released: text may
    // point into the old one.
    char* fresh = NewBuffer(static_cast<unsigned int>(need));
    std::memcpy(fresh, text, copied);
    ReleaseBuffer();
    m_pchData = fresh;
  }
  m_pchData[copied] = '\0';
  GetData()->length = static_cast<unsigned int>(copied);
}

void CString::EnsureBufferCapacity(unsigned int n) {
  CStringData* data = GetData();
  if (data && data->capacity >= n && data->refCount < 2) return;
  if (!data) {
    m_pchData = NewBuffer(n);
    return;
  }
  // A private copy always has room for the current text.
  if (n < data->length + 1) n = data->length + 1;
  char* fresh = NewBuffer(n);
  std::memcpy(fresh, m_pchData, data->length + 1);
  reinterpret_cast<CStringData*>(fresh)[-1].length = data->length;
  ReleaseBuffer();
  m_pchData = fresh;
}

void CString::EnsureCapacity(unsigned int n) { EnsureBufferCapacity(n + 1); }

void CString::CopyRefBeforeModify() {
  CStringData* data = GetData();
  if (data && data->refCount >= 2) AllocCopy(m_pchData, -1);
}

void CString::ReleaseBuffer() {
  CStringData* data = GetData();
  if (!data) return;
  if (data->refCount >= 2) {
    --data->refCount;
  } else {
    FreeBuffer(data);
  }
  m_pchData = nullptr;
}

// --- construction and assignment -------------------------------------------

CString::CString(const char* text) : m_pchData(nullptr) {
  if (!text || !*text) return;
  // A fresh string has no buffer to reuse: the copy goes straight into a new
  // one (what AllocCopy would do, without its reuse tests).
  std::size_t length = std::strlen(text);
  if (length >= 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  char* fresh = NewBuffer(static_cast<unsigned int>(length + 1));
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
  std::size_t bytes = platform::Utf16ToUtf8(text, static_cast<int>(units), nullptr, 0);
  if (bytes >= 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  AllocBuffer(static_cast<unsigned int>(bytes + 1));
  platform::Utf16ToUtf8(text, static_cast<int>(units), m_pchData, bytes);
  m_pchData[bytes] = '\0';
  GetData()->length = static_cast<unsigned int>(bytes);
}

void CString::Append(const char* text, unsigned int count) {
  if (count == 0) return;
  unsigned int length = GetLength();
  CStringData* data = GetData();
  // Appending a part of this string: find it again after a reallocation.
  bool inside = data && text >= m_pchData && text <= m_pchData + data->length;
  std::size_t offset = inside ? static_cast<std::size_t>(text - m_pchData) : 0;
  if (static_cast<unsigned long long>(length) + count + 1 > 0xFFFFFFFFu - sizeof(CStringData))
    VESK_THROW(kSource, CMemoryException);
  EnsureBufferCapacity(length + count + 1);
  if (inside) text = m_pchData + offset;
  std::memmove(m_pchData + length, text, count);
  m_pchData[length + count] = '\0';
  GetData()->length = length + count;
}

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
  if (start >= GetLength() || !text || !*text) return -1;
  const char* p = platform::TextFindSubstring(m_pchData + start, text, caseType);
  return p ? static_cast<int>(p - m_pchData) : -1;
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
  if (IsEmpty() || !text || !*text) return -1;
  long long m = static_cast<long long>(std::strlen(text));
  // The probe steps back by the length of the needle, not by one, and a
  // probe at or before start ends the search: callers rely on both.
  for (long long p = static_cast<long long>(GetLength()) - m; p > static_cast<long long>(start);
       p -= m) {
    const char* hit = platform::TextFindSubstring(m_pchData + p, text, caseType);
    if (hit) return static_cast<int>(hit - m_pchData);
  }
  return -1;
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
  if (!text || !*text) return false;
  std::size_t m = std::strlen(text);
  if (m > GetLength()) return false;
  return platform::TextCompare(m_pchData, static_cast<int>(m), text, static_cast<int>(m),
                               caseType) == 0;
}

bool CString::EndsWithText(const char* text, int caseType) const {
  if (!text || !*text) return false;
  std::size_t m = std::strlen(text);
  if (m > GetLength()) return false;
  return platform::TextCompare(m_pchData + GetLength() - m, static_cast<int>(m), text,
                               static_cast<int>(m), caseType) == 0;
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
  unsigned int length = GetLength();
  if (begin >= length || begin >= end) return result;
  if (end > length) end = length;
  result.AllocCopy(m_pchData + begin, static_cast<int>(end - begin));
  return result;
}

CString CString::Mid(unsigned int start) const { return SubString(start); }

CString CString::Mid(unsigned int start, int count) const {
  return SubString(start, start + static_cast<unsigned int>(count));
}

CString CString::Left(unsigned int n) const {
  if (n < GetLength()) return SubString(0, n);
  return *this;
}

CString CString::Right(unsigned int n) const {
  unsigned int length = GetLength();
  if (n >= length) return *this;
  // The n bytes that end one before the last: existing callers depend on it.
  return Mid(length - n - 1, static_cast<int>(n));
}

// --- editing ---------------------------------------------------------------

void CString::Empty() {
  CStringData* data = GetData();
  if (!data) return;
  if (data->refCount >= 2) {
    --data->refCount;
    m_pchData = nullptr;
  } else {
    data->length = 0;
    m_pchData[0] = '\0';
  }
}

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
  if (!*p) {
    Empty();
    return;
  }
  unsigned int skipped = static_cast<unsigned int>(p - m_pchData);
  if (skipped == 0) return;
  unsigned int length = GetLength();
  std::memmove(m_pchData, p, length - skipped + 1);
  GetData()->length = length - skipped;
}

void CString::TrimRight() {
  if (IsEmpty()) return;
  CopyRefBeforeModify();
  char* p = const_cast<char*>(platform::TextTrailingSpace(m_pchData));
  if (p == m_pchData) {
    Empty();
    return;
  }
  *p = '\0';
  GetData()->length = static_cast<unsigned int>(p - m_pchData);
}

void CString::TrimLeftSet(const char* set, unsigned int setLength) {
  if (IsEmpty() || setLength == 0) return;
  CopyRefBeforeModify();
  const char* p = platform::TextSkipSet(m_pchData, set, setLength);
  if (!*p) {
    Empty();
    return;
  }
  unsigned int skipped = static_cast<unsigned int>(p - m_pchData);
  if (skipped == 0) return;
  unsigned int length = GetLength();
  std::memmove(m_pchData, p, length - skipped + 1);
  GetData()->length = length - skipped;
}

void CString::TrimRightSet(const char* set, unsigned int setLength) {
  if (IsEmpty() || setLength == 0) return;
  CopyRefBeforeModify();
  char* p = const_cast<char*>(platform::TextTrailingSet(m_pchData, set, setLength));
  if (p == m_pchData) {
    Empty();
    return;
  }
  *p = '\0';
  GetData()->length = static_cast<unsigned int>(p - m_pchData);
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
  if (IsEmpty() || !oldText || !*oldText) return 0;
  if (!newText) newText = "";
  // Arguments that live in this buffer would change under the rewrite.
  CString oldCopy, newCopy;
  const char* end = m_pchData + GetData()->capacity;
  if (oldText >= m_pchData && oldText < end) {
    oldCopy = CString(oldText);
    oldText = oldCopy;
  }
  if (newText >= m_pchData && newText < end) {
    newCopy = CString(newText);
    newText = newCopy;
  }
  std::size_t oldLength = std::strlen(oldText);
  std::size_t newLength = std::strlen(newText);
  int count = 0;
  for (const char* p = platform::TextFindSubstring(m_pchData, oldText, platform::kTextExactCase); p;
       p = platform::TextFindSubstring(p + oldLength, oldText, platform::kTextExactCase)) {
    ++count;
  }
  if (count == 0) return 0;
  unsigned long long finalLength = GetLength() +
                                   static_cast<unsigned long long>(count) * newLength -
                                   static_cast<unsigned long long>(count) * oldLength;
  if (finalLength + 1 > 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  EnsureBufferCapacity(static_cast<unsigned int>(finalLength + 1));
  std::size_t length = GetLength();
  char* p = m_pchData;
  for (int i = 0; i < count; ++i) {
    p = const_cast<char*>(platform::TextFindSubstring(p, oldText, platform::kTextExactCase));
    if (!p) break;
    std::size_t position = static_cast<std::size_t>(p - m_pchData);
    std::memmove(p + newLength, p + oldLength, length - position - oldLength + 1);
    std::memcpy(p, newText, newLength);
    length = length + newLength - oldLength;
    p += newLength;
  }
  GetData()->length = static_cast<unsigned int>(length);
  return count;
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

int CString::Insert(unsigned int index, char c) {
  unsigned int length = GetLength();
  if (index > length) index = length;
  EnsureBufferCapacity(length + 2);
  std::memmove(m_pchData + index + 1, m_pchData + index, length - index + 1);
  m_pchData[index] = c;
  GetData()->length = length + 1;
  return static_cast<int>(length + 1);
}

int CString::Insert(unsigned int index, const char* text) {
  unsigned int length = GetLength();
  if (!text || !*text) return static_cast<int>(length);
  CString copy;
  CStringData* data = GetData();
  if (data && text >= m_pchData && text < m_pchData + data->capacity) {
    copy = CString(text);
    text = copy;
  }
  std::size_t n = std::strlen(text);
  if (length + n + 1 > 0xFFFFFFFFu - sizeof(CStringData)) VESK_THROW(kSource, CMemoryException);
  if (index > length) index = length;
  EnsureBufferCapacity(static_cast<unsigned int>(length + n + 1));
  std::memmove(m_pchData + index + n, m_pchData + index, length - index + 1);
  std::memcpy(m_pchData + index, text, n);
  GetData()->length = static_cast<unsigned int>(length + n);
  return static_cast<int>(length + n);
}

int CString::Delete(unsigned int index, unsigned int count) {
  unsigned int length = GetLength();
  if (count == 0 || index >= length) return static_cast<int>(length);
  if (count > length - index) count = length - index;
  CopyRefBeforeModify();
  std::memmove(m_pchData + index, m_pchData + index + count, length - index - count + 1);
  GetData()->length = length - count;
  // The length before the deletion, as callers of this method expect.
  return static_cast<int>(length);
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
  std::size_t size = 1024;
  for (;;) {
    char* scratch = static_cast<char*>(platform::Alloc(size));
    if (!scratch) VESK_THROW(kSource, CMemoryException);
    va_list copy;
    va_copy(copy, args);
    int written = std::vsnprintf(scratch, size, format, copy);
    va_end(copy);
    if (written < 0) {
      platform::Free(scratch);
      Empty();
      return;
    }
    std::size_t result = static_cast<std::size_t>(written);
    if (result != size - 1 && result < size) {
      try {
        AllocCopy(scratch, written);
      } catch (...) {
        platform::Free(scratch);
        throw;
      }
      platform::Free(scratch);
      return;
    }
    platform::Free(scratch);
    // A result of exactly size - 1 characters is formatted again in a block
    // 1024 bytes larger. A longer one would be cut short: the block grows
    // in the same 1024-byte steps straight to the first size that holds it.
    if (result == size - 1) {
      size += 1024;
    } else {
      size = (result + 2 + 1023) / 1024 * 1024;
    }
  }
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
