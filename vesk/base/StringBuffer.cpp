#include "vesk/base/StringBuffer.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/StringBuffer";
const unsigned int kMinimumGrowthStep = 8;

char* NewArray(unsigned int n) {
  char* array = static_cast<char*>(platform::Alloc(n));
  if (!array) VESK_THROW(kSource, CMemoryException);
  return array;
}

}  // namespace

CStringBuffer::CStringBuffer(unsigned int initialCapacity, unsigned int growthStep)
    : m_pBuffer(nullptr),
      m_capacity(0),
      m_growBy(growthStep > kMinimumGrowthStep ? growthStep : kMinimumGrowthStep) {
  if (initialCapacity > 0) {
    AllocBuffer(initialCapacity);
    std::memset(m_pBuffer, 0, m_capacity);
  }
}

CStringBuffer::CStringBuffer(unsigned int growthStep)
    : m_pBuffer(nullptr),
      m_capacity(0),
      m_growBy(growthStep > kMinimumGrowthStep ? growthStep : kMinimumGrowthStep) {}

CStringBuffer::CStringBuffer(const CStringBuffer& other)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(other.m_growBy) {
  if (other.m_pBuffer) Assign(other.m_pBuffer, other.GetSize());
}

CStringBuffer::~CStringBuffer() { platform::Free(m_pBuffer); }

unsigned int CStringBuffer::RoundUp(unsigned int n) const {
  // Rounds up to a multiple of the step in 32-bit arithmetic (exact for the
  // sizes in use; never below n).
  unsigned int rounded = n + ((m_growBy - 1) * n) % m_growBy;
  if (rounded < n) VESK_THROW(kSource, CMemoryException);
  return rounded;
}

void CStringBuffer::AllocBuffer(unsigned int n) {
  unsigned int rounded = RoundUp(n);
  if (m_capacity >= rounded) return;
  char* array = NewArray(rounded);
  array[0] = '\0';
  platform::Free(m_pBuffer);
  m_pBuffer = array;
  m_capacity = rounded;
}

void CStringBuffer::EnsureCapacity(unsigned int n) {
  unsigned int rounded = RoundUp(n);
  if (m_capacity >= rounded) return;
  char* array = NewArray(rounded);
  if (m_pBuffer) {
    std::memcpy(array, m_pBuffer, std::strlen(m_pBuffer) + 1);
  } else {
    array[0] = '\0';
  }
  platform::Free(m_pBuffer);
  m_pBuffer = array;
  m_capacity = rounded;
}

void CStringBuffer::Assign(const char* text, unsigned int count) {
  if (count == 0) {
    Empty();
    return;
  }
  if (m_capacity > count) {
    std::memmove(m_pBuffer, text, count);  // text may be this buffer's own
  } else {
    unsigned int rounded = RoundUp(count + 1);
    char* array = NewArray(rounded);
    std::memcpy(array, text, count);
    platform::Free(m_pBuffer);
    m_pBuffer = array;
    m_capacity = rounded;
  }
  m_pBuffer[count] = '\0';
}

void CStringBuffer::Append(const char* text, unsigned int count) {
  if (count == 0) return;
  unsigned int length = GetSize();
  // A part of this buffer is found again after the array moves.
  bool inside = m_pBuffer && text >= m_pBuffer && text < m_pBuffer + m_capacity;
  std::size_t offset = inside ? static_cast<std::size_t>(text - m_pBuffer) : 0;
  if (count + 1 > 0xFFFFFFFFu - length) VESK_THROW(kSource, CMemoryException);
  EnsureCapacity(length + count + 1);
  if (inside) text = m_pBuffer + offset;
  std::memmove(m_pBuffer + length, text, count);
  m_pBuffer[length + count] = '\0';
}

void CStringBuffer::AppendWide(const unsigned short* text) {
  if (!text || !*text) return;
  std::size_t bytes = platform::Utf16ToUtf8(text, -1, nullptr, 0);
  unsigned int length = GetSize();
  if (bytes + 1 > 0xFFFFFFFFu - length) VESK_THROW(kSource, CMemoryException);
  EnsureCapacity(static_cast<unsigned int>(length + bytes + 1));
  platform::Utf16ToUtf8(text, -1, m_pBuffer + length, bytes);
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
  unsigned int length = GetSize();
  EnsureCapacity(length + 2);
  m_pBuffer[length] = c;
  m_pBuffer[length + 1] = '\0';
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

unsigned int CStringBuffer::GetSize() const {
  return m_pBuffer ? static_cast<unsigned int>(std::strlen(m_pBuffer)) : 0;
}

void CStringBuffer::Empty() {
  if (m_pBuffer) m_pBuffer[0] = '\0';
}

void CStringBuffer::TrimToSize() {
  if (!m_pBuffer) return;
  unsigned int length = GetSize();
  if (m_capacity <= length + 1) return;
  char* array = NewArray(length + 1);
  std::memcpy(array, m_pBuffer, length + 1);
  platform::Free(m_pBuffer);
  m_pBuffer = array;
  m_capacity = length + 1;
}

}  // namespace base
}  // namespace vesk
