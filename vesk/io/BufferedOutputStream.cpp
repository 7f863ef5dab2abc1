#include "vesk/io/BufferedOutputStream.h"

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

VESK_IMPLEMENT_CLASS(CBufferedOutputStream, CBufferedOutputStream,
                     "vesk::io::CBufferedOutputStream", "vesk::io::COutputStream")

CBufferedOutputStream::CBufferedOutputStream(COutputStream* stream, unsigned int size)
    : m_stream(nullptr), m_buffer(nullptr), m_bufferSize(0), m_count(0) {
  Init(stream, size);
}

CBufferedOutputStream::CBufferedOutputStream(const CRef<COutputStream>& stream, unsigned int size)
    : m_stream(nullptr), m_streamRef(stream), m_buffer(nullptr), m_bufferSize(0), m_count(0) {
  Init(stream.Get(), size);
}

CBufferedOutputStream::~CBufferedOutputStream() { platform::Free(m_buffer); }

void CBufferedOutputStream::Init(COutputStream* stream, unsigned int size) {
  if (!stream) {
    VESK_THROW("vesk/io/BufferedOutputStream", CIllegalArgumentException, "Invalid output stream.");
  }
  // The message's spelling is part of what callers have matched on.
  if (size == 0) {
    VESK_THROW("vesk/io/BufferedOutputStream", CIllegalArgumentException, "Invaid buffer size.");
  }
  m_buffer = static_cast<char*>(platform::Alloc(size));
  if (!m_buffer) VESK_THROW("vesk/io/BufferedOutputStream", vesk::base::CMemoryException);
  m_bufferSize = size;
  m_stream = stream;
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/BufferedOutputStream", CIOException, "Stream closed.");
}

// Copies the small values data streams write (2, 4 and 8 bytes) with one
// move each; a library memcpy call would cost more than the copy.
inline void CopySmall(char* to, const char* from, unsigned int length) {
  switch (length) {
    case 2:
      std::memcpy(to, from, 2);
      break;
    case 4:
      std::memcpy(to, from, 4);
      break;
    case 8:
      std::memcpy(to, from, 8);
      break;
    default:
      std::memcpy(to, from, length);
  }
}

}  // namespace

void CBufferedOutputStream::FlushBuffer() {
  if (m_count > 0) {
    m_stream->Write(m_buffer, 0, m_count);
    m_count = 0;
  }
}

void CBufferedOutputStream::InternalWrite(const char* buffer, unsigned int offset,
                                          unsigned int length) {
  if (length >= m_bufferSize) {
    FlushBuffer();
    m_stream->Write(buffer, offset, length);
    return;
  }
  unsigned int end = offset + length;
  if (end < offset) return;  // the range wraps past 2^32
  const char* source = buffer + offset;
  while (length > 0) {
    unsigned int room = m_bufferSize - m_count;
    unsigned int piece = length < room ? length : room;
    std::memcpy(m_buffer + m_count, source, piece);
    m_count += piece;
    source += piece;
    length -= piece;
    if (m_count == m_bufferSize) FlushBuffer();
  }
}

void CBufferedOutputStream::InternalClose() {
  COutputStream* stream = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  stream->Close();
}

void CBufferedOutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen(m_stream);
  if (!buffer) return;
  InternalWrite(buffer, offset, length);
}

void CBufferedOutputStream::Write(const char* buffer, unsigned int length) {
  CheckOpen(m_stream);
  if (!buffer) return;
  // A value that fits without filling the buffer is copied in place.
  if (length < m_bufferSize - m_count) {
    CopySmall(m_buffer + m_count, buffer, length);
    m_count += length;
    return;
  }
  InternalWrite(buffer, 0, length);
}

void CBufferedOutputStream::Write(char byte) {
  CheckOpen(m_stream);
  if (m_count == m_bufferSize) FlushBuffer();
  m_buffer[m_count++] = byte;
}

void CBufferedOutputStream::Flush() {
  CheckOpen(m_stream);
  FlushBuffer();
  m_stream->Flush();
}

void CBufferedOutputStream::Close() {
  if (!m_stream) return;
  FlushBuffer();
  InternalClose();
}

}  // namespace io
}  // namespace vesk
