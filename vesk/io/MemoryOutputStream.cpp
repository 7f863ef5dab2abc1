#include "vesk/io/MemoryOutputStream.h"

#include <cstring>

#include "vesk/base/MemoryException.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CMemoryOutputStream, CMemoryOutputStream, "vesk::io::CMemoryOutputStream",
                     "vesk::io::COutputStream")

CMemoryOutputStream::CMemoryOutputStream()
    : m_buffer(nullptr), m_size(0), m_capacity(0), m_growBy(64), m_open(true) {
  if (!EnsureBufferCapacity(256)) {
    VESK_THROW("vesk/io/MemoryOutputStream", vesk::base::CMemoryException);
  }
}

CMemoryOutputStream::CMemoryOutputStream(unsigned int initialCapacity, unsigned int growBy)
    : m_buffer(nullptr), m_size(0), m_capacity(0), m_growBy(growBy ? growBy : 64), m_open(true) {
  if (initialCapacity != 0 && !EnsureBufferCapacity(initialCapacity)) {
    VESK_THROW("vesk/io/MemoryOutputStream", vesk::base::CMemoryException);
  }
}

CMemoryOutputStream::~CMemoryOutputStream() { platform::Free(m_buffer); }

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(bool open) {
  if (!open) VESK_THROW("vesk/io/MemoryOutputStream", CIOException, "Stream closed.");
}

}  // namespace

bool CMemoryOutputStream::EnsureBufferCapacity(unsigned int needed) {
  // Rounds up to a multiple of the step in 32-bit arithmetic (exact for the
  // power-of-two steps).
  unsigned int wanted = needed + ((m_growBy - 1) * needed) % m_growBy;
  // A need so close to 4 GB that the rounding wraps cannot be met; refusing
  // it keeps a wrapped size from passing for a small one.
  if (wanted < needed) return false;
  if (m_capacity >= wanted) return true;
  char* block = static_cast<char*>(platform::Alloc(wanted));
  if (!block) return false;
  if (m_size) std::memcpy(block, m_buffer, m_size);
  platform::Free(m_buffer);
  m_buffer = block;
  m_capacity = wanted;
  return true;
}

void CMemoryOutputStream::Append(const char* bytes, unsigned int length) {
  unsigned int needed = m_size + length;
  // A total past 4 GB wraps; treat it as the full memory it is.
  if (needed < m_size || !EnsureBufferCapacity(needed)) {
    VESK_THROW("vesk/io/MemoryOutputStream", CIOException, "Memory full.");
  }
  if (length) std::memcpy(m_buffer + m_size, bytes, length);
  m_size = needed;
}

void CMemoryOutputStream::Write(char byte) {
  CheckOpen(m_open);
  if (m_size >= m_capacity) {
    if (m_size + 1 == 0 || !EnsureBufferCapacity(m_size + 1)) {
      VESK_THROW("vesk/io/MemoryOutputStream", CIOException, "Memory full.");
    }
  }
  m_buffer[m_size++] = byte;
}

void CMemoryOutputStream::Write(const char* buffer, unsigned int length) {
  CheckOpen(m_open);
  if (!buffer) return;  // a null block is never readable
  Append(buffer, length);
}

void CMemoryOutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen(m_open);
  if (!buffer) return;
  Append(buffer + offset, length);
}

void CMemoryOutputStream::Flush() { CheckOpen(m_open); }

void CMemoryOutputStream::Close() { m_open = false; }

char* CMemoryOutputStream::DetachBuffer() {
  char* block = m_buffer;
  m_buffer = nullptr;
  m_size = 0;
  m_capacity = 0;
  return block;
}

}  // namespace io
}  // namespace vesk
