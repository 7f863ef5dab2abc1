#include "vesk/io/PushbackReader.h"

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
const char kSource[] = "vesk/io/PushbackReader";
}  // namespace

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
  if (!reader) VESK_THROW(kSource, CIllegalArgumentException, "Invalid reader.");
  if (size == 0) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid pushback buffer size.");
  }
  m_buffer = static_cast<unsigned short*>(platform::Alloc(size * sizeof(unsigned short)));
  if (!m_buffer) VESK_THROW(kSource, vesk::base::CMemoryException);
  m_bufferSize = size;
  m_position = size;
  m_stream = reader;
}

using Buffer = internal::TPushbackBuffer<unsigned short, CReader>;

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Reader closed.")

int CPushbackReader::Read(unsigned short* buffer, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  if (!buffer) return length == 0 ? 0 : Skip(length);
  return Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Read(buffer, offset, length);
}

int CPushbackReader::Read(unsigned short* buffer, unsigned int length) {
  return CPushbackReader::Read(buffer, 0, length);
}

int CPushbackReader::Read() {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Read();
}

int CPushbackReader::Skip(unsigned int count) {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Skip(count);
}

void CPushbackReader::Reset() {
  VESK_CHECK_OPEN();
  Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Reset();
}

void CPushbackReader::Close() {
  VESK_CHECK_OPEN();
  internal::CloseWrapped(m_stream);
}

void CPushbackReader::Unread(unsigned short ch) {
  if (m_position == 0) VESK_THROW(kSource, CIOException, "Pushback buffer is full.");
  m_buffer[--m_position] = ch;
}

void CPushbackReader::Unread(const unsigned short* chars, unsigned int length) {
  Unread(chars, 0, length);
}

void CPushbackReader::Unread(const unsigned short* chars, unsigned int offset,
                             unsigned int length) {
  if (length > m_position) VESK_THROW(kSource, CIOException, "Pushback buffer is full.");
  Buffer{m_stream, m_buffer, m_bufferSize, m_position}.Unread(chars, offset, length);
}

}  // namespace io
}  // namespace vesk
