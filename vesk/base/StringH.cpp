#include "vesk/base/StringH.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Text.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/StringH";

bool SameText(const char* a, const char* b) { return std::strcmp(a ? a : "", b ? b : "") == 0; }

int CompareNonEmpty(const char* a, unsigned int lengthA, const char* b, unsigned int lengthB) {
  if (lengthA == 0) return lengthB == 0 ? 0 : -1;
  if (lengthB == 0) return 1;
  return platform::TextCompare(a, static_cast<int>(lengthA), b, static_cast<int>(lengthB),
                               platform::kTextExactCase);
}

}  // namespace

CStringH::CStringH() : m_hData(nullptr), m_capacity(0), m_length(0), m_lockCount(0) {}

CStringH::CStringH(const char* text) : CStringH() { AllocCopy(text); }

CStringH::CStringH(const CString& text) : CStringH() { AllocCopy(text); }

CStringH::CStringH(const CStringH& other) : CStringH() { AllocCopy(other.m_hData); }

CStringH::~CStringH() { ReleaseBuffer(); }

void CStringH::AllocBuffer(unsigned int n) { EnsureBufferCapacity(n); }

void CStringH::EnsureBufferCapacity(unsigned int n) {
  if (m_capacity >= n && m_hData) return;
  if (m_hData) {
    if (!platform::ReallocHandle(m_hData, n)) VESK_THROW(kSource, CMemoryException);
  } else {
    m_hData = platform::AllocHandle(n);
    if (!m_hData) VESK_THROW(kSource, CMemoryException);
  }
  m_capacity = n;
}

void CStringH::AllocCopy(const char* text) { AllocCopy(text, 0); }

void CStringH::AllocCopy(const char* text, unsigned int minCapacity) {
  if (!text || !*text) {
    if (minCapacity > 0) EnsureBufferCapacity(minCapacity);
    Empty();
    return;
  }
  std::size_t n = std::strlen(text);
  if (n >= 0xFFFFFFFFu) VESK_THROW(kSource, CMemoryException);
  // The text may be this string's own: find it again after a resize.
  bool inside = m_hData && text >= *m_hData && text < *m_hData + m_capacity;
  std::size_t offset = inside ? static_cast<std::size_t>(text - *m_hData) : 0;
  unsigned int need = static_cast<unsigned int>(n + 1);
  EnsureBufferCapacity(need > minCapacity ? need : minCapacity);
  if (inside) text = *m_hData + offset;
  std::memmove(*m_hData, text, n + 1);
  m_length = static_cast<unsigned int>(n);
}

void CStringH::AllocCopy(char** handle) { AllocCopy(handle, 0); }

void CStringH::AllocCopy(char** handle, unsigned int minCapacity) {
  if (handle == m_hData && handle) {
    if (minCapacity > 0) EnsureBufferCapacity(minCapacity);
    return;
  }
  AllocCopy(handle ? *handle : nullptr, minCapacity);
}

void CStringH::ReleaseBuffer() {
  platform::FreeHandle(m_hData);
  m_hData = nullptr;
  m_capacity = 0;
  m_length = 0;
}

CStringH& CStringH::operator=(const char* text) {
  AllocCopy(text);
  return *this;
}

CStringH& CStringH::operator=(const CString& text) {
  AllocCopy(text);
  return *this;
}

CStringH& CStringH::operator=(const CStringH& other) {
  if (this != &other) AllocCopy(other.m_hData);
  return *this;
}

int CStringH::Compare(const char* text) const {
  if (IsEmpty()) return text ? -1 : 0;
  if (!text || !*text) return 1;
  return platform::TextCompare(*m_hData, static_cast<int>(m_length), text, -1,
                               platform::kTextExactCase);
}

int CStringH::Compare(const CString& text) const {
  return CompareNonEmpty(*this, m_length, text, text.GetLength());
}

int CStringH::Compare(const CStringH& other) const {
  return CompareNonEmpty(*this, m_length, other, other.m_length);
}

void CStringH::Empty() {
  if (m_hData) **m_hData = '\0';
  m_length = 0;
}

unsigned int CStringH::Lock() { return ++m_lockCount; }

unsigned int CStringH::Unlock() {
  if (m_lockCount > 0) --m_lockCount;
  return m_lockCount;
}

bool operator==(const CString& a, const CStringH& b) { return SameText(a, b); }
bool operator==(const CStringH& a, const CString& b) { return SameText(a, b); }
bool operator==(const CStringH& a, const char* b) { return SameText(a, b); }
bool operator==(const char* a, const CStringH& b) { return SameText(a, b); }
bool operator==(const CStringH& a, const CStringH& b) { return SameText(a, b); }
bool operator!=(const CString& a, const CStringH& b) { return !SameText(a, b); }
bool operator!=(const CStringH& a, const CString& b) { return !SameText(a, b); }
bool operator!=(const CStringH& a, const char* b) { return !SameText(a, b); }
bool operator!=(const char* a, const CStringH& b) { return !SameText(a, b); }
bool operator!=(const CStringH& a, const CStringH& b) { return !SameText(a, b); }

}  // namespace base
}  // namespace vesk
