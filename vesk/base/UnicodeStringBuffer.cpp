#include "vesk/base/UnicodeStringBuffer.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/internal/StringBufferBody.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/UnicodeStringBuffer";
typedef internal::CStringBufferBody<unsigned short> Body;

}  // namespace

CUnicodeStringBuffer::CUnicodeStringBuffer(unsigned int initialCapacity, unsigned int growthStep)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(Body::GrowthStep(growthStep)) {
  if (initialCapacity > 0) {
    AllocBuffer(initialCapacity);
    std::memset(m_pBuffer, 0, static_cast<std::size_t>(m_capacity) * 2);
  }
}

CUnicodeStringBuffer::CUnicodeStringBuffer(unsigned int growthStep)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(Body::GrowthStep(growthStep)) {}

CUnicodeStringBuffer::CUnicodeStringBuffer(const CUnicodeStringBuffer& other)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(other.m_growBy) {
  if (other.m_pBuffer) Assign(other.m_pBuffer, other.GetSize());
}

CUnicodeStringBuffer::~CUnicodeStringBuffer() { platform::Free(m_pBuffer); }

unsigned int CUnicodeStringBuffer::RoundUp(unsigned int n) const {
  return Body::RoundUp(n, m_growBy);
}

void CUnicodeStringBuffer::AllocBuffer(unsigned int n) {
  Body::Reserve(m_pBuffer, m_capacity, m_growBy, n);
}

void CUnicodeStringBuffer::EnsureCapacity(unsigned int n) {
  Body::Grow(m_pBuffer, m_capacity, m_growBy, n);
}

void CUnicodeStringBuffer::SetCapacityIncrement(unsigned int growthStep) {
  m_growBy = Body::GrowthStep(growthStep);
}

void CUnicodeStringBuffer::Assign(const unsigned short* text, unsigned int count) {
  Body::Assign(m_pBuffer, m_capacity, m_growBy, text, count);
}

void CUnicodeStringBuffer::Append(const unsigned short* text, unsigned int count) {
  Body::Append(m_pBuffer, m_capacity, m_growBy, text, count);
}

void CUnicodeStringBuffer::AppendNarrow(const char* text, int bytes) {
  if (!text || bytes == 0 || !*text) return;
  std::size_t units = platform::NarrowToUtf16(text, bytes, nullptr, 0);
  unsigned int length = GetSize();
  if (units + 1 > 0xFFFFFFFFu - length) VESK_THROW(kSource, CMemoryException);
  EnsureCapacity(static_cast<unsigned int>(length + units + 1));
  platform::NarrowToUtf16(text, bytes, m_pBuffer + length, units);
  m_pBuffer[length + units] = 0;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator=(const CUnicodeStringBuffer& other) {
  if (this != &other) Assign(other.m_pBuffer, other.GetSize());
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator=(const char* text) {
  Empty();
  AppendNarrow(text, -1);
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator=(const unsigned short* text) {
  Assign(text, platform::Utf16Length(text));
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator=(const CString& text) {
  Empty();
  AppendNarrow(text, static_cast<int>(text.GetLength()));
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator=(const CUnicodeString& text) {
  Assign(text, text.GetLength());
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator+=(unsigned short c) {
  Body::AppendUnit(m_pBuffer, m_capacity, m_growBy, c);
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator+=(const char* text) {
  AppendNarrow(text, -1);
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator+=(const unsigned short* text) {
  Append(text, platform::Utf16Length(text));
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator+=(const CString& text) {
  AppendNarrow(text, static_cast<int>(text.GetLength()));
  return *this;
}

CUnicodeStringBuffer& CUnicodeStringBuffer::operator+=(const CUnicodeString& text) {
  Append(text, text.GetLength());
  return *this;
}

unsigned short* CUnicodeStringBuffer::GetBuffer(unsigned int minCapacity) {
  EnsureCapacity(minCapacity);
  return m_pBuffer;
}

unsigned int CUnicodeStringBuffer::GetSize() const { return Body::Traits::Length(m_pBuffer); }

void CUnicodeStringBuffer::Empty() {
  if (m_pBuffer) m_pBuffer[0] = 0;
}

void CUnicodeStringBuffer::TrimToSize() { Body::TrimToSize(m_pBuffer, m_capacity); }

}  // namespace base
}  // namespace vesk
