#include "vesk/io/BufferedReader.h"

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

VESK_IMPLEMENT_CLASS(CBufferedReader, CBufferedReader, "vesk::io::CBufferedReader",
                     "vesk::io::CReader")

CBufferedReader::CBufferedReader(CReader* reader, unsigned int size)
    : m_stream(nullptr), m_buffer(nullptr), m_bufferSize(0), m_count(0), m_position(0) {
  Init(reader, size);
}

CBufferedReader::CBufferedReader(const CRef<CReader>& reader, unsigned int size)
    : m_stream(nullptr),
      m_streamRef(reader),
      m_buffer(nullptr),
      m_bufferSize(0),
      m_count(0),
      m_position(0) {
  Init(reader.Get(), size);
}

CBufferedReader::~CBufferedReader() { platform::Free(m_buffer); }

void CBufferedReader::Init(CReader* reader, unsigned int size) {
  if (!reader) VESK_THROW("vesk/io/BufferedReader", CIllegalArgumentException, "Invalid reader.");
  if (size == 0) {
    VESK_THROW("vesk/io/BufferedReader", CIllegalArgumentException, "Invalid buffer size.");
  }
  m_buffer = static_cast<unsigned short*>(platform::Alloc(size * sizeof(unsigned short)));
  if (!m_buffer) VESK_THROW("vesk/io/BufferedReader", vesk::base::CMemoryException);
  m_bufferSize = size;
  m_stream = reader;
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/BufferedReader", CIOException, "Reader closed.");
}

}  // namespace

void CBufferedReader::FillBuffer() {
  if (m_position < m_count) {
    std::memmove(m_buffer, m_buffer + m_position, (m_count - m_position) * sizeof(unsigned short));
  }
  m_count -= m_position;
  m_position = 0;
  int read = m_stream->Read(m_buffer, m_count, m_bufferSize - m_count);
  if (read > 0) m_count += static_cast<unsigned int>(read);
}

int CBufferedReader::ReadInto(unsigned short* buffer, unsigned int offset, unsigned int length,
                              bool withOffset) {
  CheckOpen(m_stream);
  if (!buffer) return length == 0 ? 0 : Skip(length);
  if (length == 0) return 0;
  if (length > m_bufferSize) {
    return withOffset ? m_stream->Read(buffer, offset, length) : m_stream->Read(buffer, length);
  }
  unsigned short* target = buffer + offset;
  unsigned int buffered = m_count - m_position;
  if (length < buffered) {
    std::memcpy(target, m_buffer + m_position, length * sizeof(unsigned short));
    m_position += length;
    return static_cast<int>(length);
  }
  // The buffered units go to the start of the target and are then
  // overwritten by the units of the fill; only the latter are counted.
  std::memcpy(target, m_buffer + m_position, buffered * sizeof(unsigned short));
  m_position = m_count;
  FillBuffer();
  unsigned int fresh = m_count - m_position;
  unsigned int copied = fresh < length ? fresh : length;
  std::memcpy(target, m_buffer + m_position, copied * sizeof(unsigned short));
  m_position += copied;
  return static_cast<int>(copied);
}

int CBufferedReader::Read(unsigned short* buffer, unsigned int offset, unsigned int length) {
  return ReadInto(buffer, offset, length, true);
}

int CBufferedReader::Read(unsigned short* buffer, unsigned int length) {
  return ReadInto(buffer, 0, length, false);
}

int CBufferedReader::Read() {
  CheckOpen(m_stream);
  if (m_position >= m_count) {
    FillBuffer();
    if (m_position >= m_count) return EOS;
  }
  return m_buffer[m_position++];
}

int CBufferedReader::Skip(unsigned int count) {
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

void CBufferedReader::Reset() {
  CheckOpen(m_stream);
  m_count = 0;
  m_position = 0;
  m_stream->Reset();
}

void CBufferedReader::Close() {
  CheckOpen(m_stream);
  CReader* reader = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  reader->Close();
}

}  // namespace io
}  // namespace vesk
