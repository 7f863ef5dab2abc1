#include "vesk/base/StringBuffer.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/base/internal/StringBufferBody.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/StringBuffer";
typedef internal::CStringBufferBody<char> Body;

}  // namespace

CStringBuffer::CStringBuffer(unsigned int initialCapacity, unsigned int growthStep)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(Body::GrowthStep(growthStep)) {
  if (initialCapacity > 0) {
    AllocBuffer(initialCapacity);
    std::memset(m_pBuffer, 0, m_capacity);
  }
}

CStringBuffer::CStringBuffer(unsigned int growthStep)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(Body::GrowthStep(growthStep)) {}

CStringBuffer::CStringBuffer(const CStringBuffer& other)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(other.m_growBy) {
  if (other.m_pBuffer) Assign(other.m_pBuffer, other.GetSize());
}

CStringBuffer::~CStringBuffer() { platform::Free(m_pBuffer); }

unsigned int CStringBuffer::RoundUp(unsigned int n) const { return Body::RoundUp(n, m_growBy); }

void CStringBuffer::AllocBuffer(unsigned int n) {
  Body::Reserve(m_pBuffer, m_capacity, m_growBy, n);
}

void CStringBuffer::EnsureCapacity(unsigned int n) {
  Body::Grow(m_pBuffer, m_capacity, m_growBy, n);
}

void CStringBuffer::Assign(const char* text, unsigned int count) {
  Body::Assign(m_pBuffer, m_capacity, m_growBy, text, count);
}

void CStringBuffer::Append(const char* text, unsigned int count) {
  Body::Append(m_pBuffer, m_capacity, m_growBy, text, count);
}

void CStringBuffer::AppendWide(const unsigned short* text) {
  if (!text || !*text) return;
  std::size_t bytes = platform::Utf16ToNarrow(text, -1, nullptr, 0);
  unsigned int length = GetSize();
  if (bytes + 1 > 0xFFFFFFFFu - length) VESK_THROW(kSource, CMemoryException);
  EnsureCapacity(static_cast<unsigned int>(length + bytes + 1));
  platform::Utf16ToNarrow(text, -1, m_pBuffer + length, bytes);
  m_pBuffer[length + bytes] = '\0';
}

CStringBuffer& CStringBuffer::operator=(const CStringBuffer& other) {
  if (this != &other) Assign(other.m_pBuffer, other.GetSize());
  return *this;
}

CStringBuffer& CStringBuffer::operator=(const char* text) {
  Assign(text, text ? static_cast<unsigned int>(std::strlen(text)) : 0);
  return *this;
}

CStringBuffer& CStringBuffer::operator=(const unsigned short* text) {
  Empty();
  AppendWide(text);
  return *this;
}

CStringBuffer& CStringBuffer::operator=(const CString& text) {
  Assign(text, text.GetLength());
  return *this;
}

CStringBuffer& CStringBuffer::operator=(const CUnicodeString& text) {
  Empty();
  AppendWide(text);
  return *this;
}

CStringBuffer& CStringBuffer::operator+=(char c) {
  Body::AppendUnit(m_pBuffer, m_capacity, m_growBy, c);
  return *this;
}

CStringBuffer& CStringBuffer::operator+=(const char* text) {
  if (text) Append(text, static_cast<unsigned int>(std::strlen(text)));
  return *this;
}

CStringBuffer& CStringBuffer::operator+=(const unsigned short* text) {
  AppendWide(text);
  return *this;
}

CStringBuffer& CStringBuffer::operator+=(const CString& text) {
  Append(text, text.GetLength());
  return *this;
}

CStringBuffer& CStringBuffer::operator+=(const CUnicodeString& text) {
  AppendWide(text);
  return *this;
}

char* CStringBuffer::GetBuffer(unsigned int minCapacity) {
  EnsureCapacity(minCapacity);
  return m_pBuffer;
}

unsigned int CStringBuffer::GetSize() const { return Body::Traits::Length(m_pBuffer); }

void CStringBuffer::Empty() {
  if (m_pBuffer) m_pBuffer[0] = '\0';
}

void CStringBuffer::TrimToSize() { Body::TrimToSize(m_pBuffer, m_capacity); }

}  // namespace base
}  // namespace vesk
