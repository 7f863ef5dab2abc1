#include "vesk/io/BufferedInputStream.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;

VESK_IMPLEMENT_CLASS(CBufferedInputStream, CBufferedInputStream, "vesk::io::CBufferedInputStream",
                     "vesk::io::CInputStream")

CBufferedInputStream::CBufferedInputStream(CInputStream* stream, unsigned int size)
    : m_stream(stream), m_buffer(nullptr), m_bufferSize(0), m_count(0), m_position(0) {
  CreateBuffer(size);
}

CBufferedInputStream::CBufferedInputStream(const CRef<CInputStream>& stream, unsigned int size)
    : m_stream(stream.Get()),
      m_streamRef(stream),
      m_buffer(nullptr),
      m_bufferSize(0),
      m_count(0),
      m_position(0) {
  CreateBuffer(size);
}

CBufferedInputStream::~CBufferedInputStream() { platform::Free(m_buffer); }

void CBufferedInputStream::CreateBuffer(unsigned int size) {
  if (!m_stream) {
    VESK_THROW("vesk/io/BufferedInputStream", CIllegalArgumentException, "Invalid input stream.");
  }
  if (size == 0) size = 512;
  m_buffer = static_cast<char*>(platform::Alloc(size));
  if (!m_buffer) VESK_THROW("vesk/io/BufferedInputStream", vesk::base::CMemoryException);
  m_bufferSize = size;
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/BufferedInputStream", CIOException, "Stream closed.");
}

}  // namespace

void CBufferedInputStream::FillBuffer() {
  if (m_position < m_count) {
    std::memmove(m_buffer, m_buffer + m_position, m_count - m_position);
  }
  m_count -= m_position;
  m_position = 0;
  // One read per fill; a short read is accepted.
  int read = m_stream->Read(m_buffer, m_count, m_bufferSize - m_count);
  if (read > 0) m_count += static_cast<unsigned int>(read);
}

unsigned int CBufferedInputStream::GetAvailable() const {
  CheckOpen(m_stream);
  return m_stream->GetAvailable() + (m_count - m_position);
}

int CBufferedInputStream::ReadInto(char* buffer, unsigned int offset, unsigned int length,
                                   bool withOffset) {
  CheckOpen(m_stream);
  if (!buffer) return length == 0 ? 0 : Skip(length);
  if (length == 0) return 0;
  if (length > m_bufferSize) {
    // Straight to the wrapped stream, ahead of what is still buffered.
    return withOffset ? m_stream->Read(buffer, offset, length) : m_stream->Read(buffer, length);
  }
  char* target = buffer + offset;
  unsigned int buffered = m_count - m_position;
  if (length <= buffered) {
    std::memcpy(target, m_buffer + m_position, length);
    m_position += length;
    return static_cast<int>(length);
  }
  std::memcpy(target, m_buffer + m_position, buffered);
  m_position = m_count;
  FillBuffer();
  unsigned int fresh = m_count - m_position;
  unsigned int wanted = length - buffered;
  unsigned int more = fresh < wanted ? fresh : wanted;
  std::memcpy(target + buffered, m_buffer + m_position, more);
  m_position += more;
  return static_cast<int>(buffered + more);
}

int CBufferedInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  return ReadInto(buffer, offset, length, true);
}

int CBufferedInputStream::Read(char* buffer, unsigned int length) {
  return ReadInto(buffer, 0, length, false);
}

int CBufferedInputStream::Read() {
  CheckOpen(m_stream);
  if (m_position >= m_count) {
    FillBuffer();
    if (m_position >= m_count) return EOS;
  }
  return static_cast<signed char>(m_buffer[m_position++]);
}

int CBufferedInputStream::Skip(unsigned int count) {
  CheckOpen(m_stream);
  if (count == 0) return 0;
  unsigned int buffered = m_count - m_position;
  if (count > buffered) {
    m_count = 0;
    m_position = 0;
    return m_stream->Skip(count - buffered) + static_cast<int>(buffered);
  }
  m_position += count;
  return static_cast<int>(count);
}

void CBufferedInputStream::Reset() {
  CheckOpen(m_stream);
  m_count = 0;
  m_position = 0;
  m_stream->Reset();
}

void CBufferedInputStream::Close() {
  CheckOpen(m_stream);
  CInputStream* stream = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  stream->Close();
}

}  // namespace io
}  // namespace vesk
