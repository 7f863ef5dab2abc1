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

void CMemoryInputStream::CheckOpen() const {
  if (!m_buffer) VESK_THROW("vesk/io/MemoryInputStream", CIOException, "Stream closed.");
}

unsigned int CMemoryInputStream::GetAvailable() const {
  CheckOpen();
  return m_length - m_position;
}

int CMemoryInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen();
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
  CheckOpen();
  if (m_position >= m_length) return EOS;
  return static_cast<signed char>(m_buffer[m_position++]);
}

int CMemoryInputStream::Skip(unsigned int count) {
  CheckOpen();
  if (count == 0) return 0;
  unsigned int remaining = m_length - m_position;
  unsigned int skipped = count < remaining ? count : remaining;
  m_position += skipped;
  return static_cast<int>(skipped);
}

void CMemoryInputStream::Reset() {
  CheckOpen();
  m_position = 0;
}

void CMemoryInputStream::Close() {
  CheckOpen();
  if (m_ownsBuffer) platform::Free(const_cast<char*>(m_buffer));
  m_buffer = nullptr;
}

}  // namespace io
}  // namespace vesk
