#include "vesk/io/BufferedOutputStream.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/io/IOException.h"
#include "vesk/io/internal/StreamState.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;

namespace {
const char kSource[] = "vesk/io/BufferedOutputStream";
}  // namespace

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
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid output stream.");
  }
  // The message's spelling is part of what callers have matched on.
  if (size == 0) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invaid buffer size.");
  }
  m_buffer = static_cast<char*>(platform::Alloc(size));
  if (!m_buffer) VESK_THROW(kSource, vesk::base::CMemoryException);
  m_bufferSize = size;
  m_stream = stream;
}

namespace {

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

using Buffer = internal::TWriteBuffer<char, COutputStream>;

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Stream closed.")

void CBufferedOutputStream::FlushBuffer() {
  Buffer{m_stream, m_buffer, m_bufferSize, m_count}.Flush();
}

void CBufferedOutputStream::InternalWrite(const char* buffer, unsigned int offset,
                                          unsigned int length) {
  Buffer{m_stream, m_buffer, m_bufferSize, m_count}.Write(buffer, offset, length);
}

void CBufferedOutputStream::InternalClose() { internal::CloseWrapped(m_stream); }

void CBufferedOutputStream::Write(const char* buffer, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  if (!buffer) return;
  InternalWrite(buffer, offset, length);
}

void CBufferedOutputStream::Write(const char* buffer, unsigned int length) {
  VESK_CHECK_OPEN();
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
  VESK_CHECK_OPEN();
  Buffer{m_stream, m_buffer, m_bufferSize, m_count}.Put(byte);
}

void CBufferedOutputStream::Flush() {
  VESK_CHECK_OPEN();
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
