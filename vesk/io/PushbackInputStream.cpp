#include "vesk/io/PushbackInputStream.h"

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
const char kSource[] = "vesk/io/PushbackInputStream";
}  // namespace

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
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid input stream.");
  }
  if (size == 0) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid pushback buffer size.");
  }
  m_buffer = static_cast<char*>(platform::Alloc(size));
  if (!m_buffer) VESK_THROW(kSource, vesk::base::CMemoryException);
  m_bufferSize = size;
  m_position = size;
  m_stream = stream;
}

using Buffer = internal::TPushbackBuffer<char, CInputStream>;

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Stream closed.")

unsigned int CPushbackInputStream::GetAvailable() const {
  VESK_CHECK_OPEN();
  return m_stream->GetAvailable() + (m_bufferSize - m_position);
}

int CPushbackInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  if (!buffer) return length == 0 ? 0 : Skip(length);
  return Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Read(buffer, offset, length);
}

int CPushbackInputStream::Read(char* buffer, unsigned int length) {
  return CPushbackInputStream::Read(buffer, 0, length);
}

int CPushbackInputStream::Read() {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Read();
}

int CPushbackInputStream::Skip(unsigned int count) {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Skip(count);
}

void CPushbackInputStream::Reset() {
  VESK_CHECK_OPEN();
  Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Reset();
}

void CPushbackInputStream::Close() {
  VESK_CHECK_OPEN();
  internal::CloseWrapped(m_stream);
}

void CPushbackInputStream::Unread(char byte) {
  if (m_position == 0) VESK_THROW(kSource, CIOException, "Pushback buffer is full.");
  m_buffer[--m_position] = byte;
}

void CPushbackInputStream::Unread(const char* buffer, unsigned int length) {
  Unread(buffer, 0, length);
}

void CPushbackInputStream::Unread(const char* buffer, unsigned int offset, unsigned int length) {
  if (length > m_position) VESK_THROW(kSource, CIOException, "Pushback buffer is full.");
  Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Unread(buffer, offset, length);
}

}  // namespace io
}  // namespace vesk
