#include "vesk/base/UnicodeStringBuffer.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace base {

namespace {

const char kSource[] = "vesk/base/UnicodeStringBuffer";
const unsigned int kMinimumGrowthStep = 8;
// Largest array in units whose byte size still fits 32 bits.
const unsigned int kMaximumUnits = 0x7FFFFFFFu;

unsigned short* NewArray(unsigned int units) {
  if (units > kMaximumUnits) VESK_THROW(kSource, CMemoryException);
  unsigned short* array =
      static_cast<unsigned short*>(platform::Alloc(static_cast<std::size_t>(units) * 2));
  if (!array) VESK_THROW(kSource, CMemoryException);
  return array;
}

inline unsigned int GrowthStep(unsigned int step) {
  return step > kMinimumGrowthStep ? step : kMinimumGrowthStep;
}

}  // namespace

CUnicodeStringBuffer::CUnicodeStringBuffer(unsigned int initialCapacity, unsigned int growthStep)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(GrowthStep(growthStep)) {
  if (initialCapacity > 0) {
    AllocBuffer(initialCapacity);
    std::memset(m_pBuffer, 0, static_cast<std::size_t>(m_capacity) * 2);
  }
}

CUnicodeStringBuffer::CUnicodeStringBuffer(unsigned int growthStep)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(GrowthStep(growthStep)) {}

CUnicodeStringBuffer::CUnicodeStringBuffer(const CUnicodeStringBuffer& other)
    : m_pBuffer(nullptr), m_capacity(0), m_growBy(other.m_growBy) {
  if (other.m_pBuffer) Assign(other.m_pBuffer, other.GetSize());
}

CUnicodeStringBuffer::~CUnicodeStringBuffer() { platform::Free(m_pBuffer); }

unsigned int CUnicodeStringBuffer::RoundUp(unsigned int n) const {
  // Rounds n up to a multiple of the step, computed as n + ((step - 1) * n
  // mod step) in 32-bit arithmetic (exact for the sizes in use). A result
  // that wrapped below n cannot be allocated.
  unsigned int rounded = n + ((m_growBy - 1) * n) % m_growBy;
  if (rounded < n) VESK_THROW(kSource, CMemoryException);
  return rounded;
}

void CUnicodeStringBuffer::AllocBuffer(unsigned int n) {
  unsigned int rounded = RoundUp(n);
  if (m_capacity >= rounded) return;
  unsigned short* array = NewArray(rounded);
  array[0] = 0;
  platform::Free(m_pBuffer);
  m_pBuffer = array;
  m_capacity = rounded;
}

void CUnicodeStringBuffer::EnsureCapacity(unsigned int n) {
  unsigned int rounded = RoundUp(n);
  if (m_capacity >= rounded) return;
  unsigned short* array = NewArray(rounded);
  if (m_pBuffer) {
    std::memcpy(array, m_pBuffer, (static_cast<std::size_t>(GetSize()) + 1) * 2);
  } else {
    array[0] = 0;
  }
  platform::Free(m_pBuffer);
  m_pBuffer = array;
  m_capacity = rounded;
}

void CUnicodeStringBuffer::SetCapacityIncrement(unsigned int growthStep) {
  m_growBy = GrowthStep(growthStep);
}

void CUnicodeStringBuffer::Assign(const unsigned short* text, unsigned int count) {
  if (count == 0) {
    Empty();
    return;
  }
  if (m_capacity > count) {
    std::memmove(m_pBuffer, text, static_cast<std::size_t>(count) * 2);  // may be our own text
  } else {
    if (count == 0xFFFFFFFFu) VESK_THROW(kSource, CMemoryException);
    // The new array is filled before the old one is freed: text may lie in it.
    unsigned int rounded = RoundUp(count + 1);
    unsigned short* array = NewArray(rounded);
    std::memcpy(array, text, static_cast<std::size_t>(count) * 2);
    platform::Free(m_pBuffer);
    m_pBuffer = array;
    m_capacity = rounded;
  }
  m_pBuffer[count] = 0;
}

void CUnicodeStringBuffer::Append(const unsigned short* text, unsigned int count) {
  if (count == 0) return;
  unsigned int length = GetSize();
  // A part of this buffer is found again after the array moves.
  bool inside = m_pBuffer && text >= m_pBuffer && text < m_pBuffer + m_capacity;
  std::size_t offset = inside ? static_cast<std::size_t>(text - m_pBuffer) : 0;
  if (count + 1 > 0xFFFFFFFFu - length || count == 0xFFFFFFFFu) {
    VESK_THROW(kSource, CMemoryException);
  }
  EnsureCapacity(length + count + 1);
  if (inside) text = m_pBuffer + offset;
  std::memmove(m_pBuffer + length, text, static_cast<std::size_t>(count) * 2);
  m_pBuffer[length + count] = 0;
}

void CUnicodeStringBuffer::AppendNarrow(const char* text, int bytes) {
  if (!text || bytes == 0 || !*text) return;
  std::size_t units = platform::Utf8ToUtf16(text, bytes, nullptr, 0);
  unsigned int length = GetSize();
  if (units + 1 > 0xFFFFFFFFu - length) VESK_THROW(kSource, CMemoryException);
  EnsureCapacity(static_cast<unsigned int>(length + units + 1));
  platform::Utf8ToUtf16(text, bytes, m_pBuffer + length, units);
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
  unsigned int length = GetSize();
  if (length > 0xFFFFFFFFu - 2) VESK_THROW(kSource, CMemoryException);
  EnsureCapacity(length + 2);
  m_pBuffer[length] = c;
  m_pBuffer[length + 1] = 0;
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

unsigned int CUnicodeStringBuffer::GetSize() const { return platform::Utf16Length(m_pBuffer); }

void CUnicodeStringBuffer::Empty() {
  if (m_pBuffer) m_pBuffer[0] = 0;
}

void CUnicodeStringBuffer::TrimToSize() {
  if (!m_pBuffer) return;
  unsigned int length = GetSize();
  if (m_capacity <= length + 1) return;
  unsigned short* array = NewArray(length + 1);
  std::memcpy(array, m_pBuffer, (static_cast<std::size_t>(length) + 1) * 2);
  platform::Free(m_pBuffer);
  m_pBuffer = array;
  m_capacity = length + 1;
}

}  // namespace base
}  // namespace vesk
