#include "vesk/io/MemoryInputStream.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CMemoryInputStream, CMemoryInputStream, "vesk::io::CMemoryInputStream",
                     "vesk::io::CInputStream")

CMemoryInputStream::CMemoryInputStream(const char* data, unsigned int length, bool takeOwnership)
    : m_buffer(data), m_length(length), m_position(0), m_ownsBuffer(takeOwnership) {
  if (!data) {
    VESK_THROW("vesk/io/MemoryInputStream", vesk::base::CIllegalArgumentException,
               "Invalid source buffer.");
  }
}

CMemoryInputStream::~CMemoryInputStream() {
  if (m_buffer && m_ownsBuffer) platform::Free(const_cast<char*>(m_buffer));
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/MemoryInputStream", CIOException, "Stream closed.");
}

}  // namespace

unsigned int CMemoryInputStream::GetAvailable() const {
  CheckOpen(m_buffer);
  return m_length - m_position;
}

int CMemoryInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen(m_buffer);
  if (length == 0) return 0;
  // Reading into no buffer discards the bytes.
  if (!buffer) return Skip(length);
  if (m_position >= m_length) return -1;
  unsigned int remaining = m_length - m_position;
  unsigned int count = length < remaining ? length : remaining;
  std::memcpy(buffer + offset, m_buffer + m_position, count);
  m_position += count;
  return static_cast<int>(count);
}

int CMemoryInputStream::Read(char* buffer, unsigned int length) {
  return CMemoryInputStream::Read(buffer, 0, length);
}

int CMemoryInputStream::Read() {
  CheckOpen(m_buffer);
  if (m_position >= m_length) return EOS;
  return static_cast<signed char>(m_buffer[m_position++]);
}

int CMemoryInputStream::Skip(unsigned int count) {
  CheckOpen(m_buffer);
  if (count == 0) return 0;
  unsigned int remaining = m_length - m_position;
  unsigned int skipped = count < remaining ? count : remaining;
  m_position += skipped;
  return static_cast<int>(skipped);
}

void CMemoryInputStream::Reset() {
  CheckOpen(m_buffer);
  m_position = 0;
}

void CMemoryInputStream::Close() {
  CheckOpen(m_buffer);
  if (m_ownsBuffer) platform::Free(const_cast<char*>(m_buffer));
  m_buffer = nullptr;
}

}  // namespace io
}  // namespace vesk
