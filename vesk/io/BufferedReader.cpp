#include "vesk/io/BufferedReader.h"

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
const char kSource[] = "vesk/io/BufferedReader";
}  // namespace

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
  if (!reader) VESK_THROW(kSource, CIllegalArgumentException, "Invalid reader.");
  if (size == 0) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid buffer size.");
  }
  m_buffer = static_cast<unsigned short*>(platform::Alloc(size * sizeof(unsigned short)));
  if (!m_buffer) VESK_THROW(kSource, vesk::base::CMemoryException);
  m_bufferSize = size;
  m_stream = reader;
}

using Buffer = internal::TReadBuffer<unsigned short, CReader>;

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Reader closed.")

void CBufferedReader::FillBuffer() {
  Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Fill();
}

// A read the buffered units cannot serve strictly hands out the units of the
// next fill only, written over the start of the target.
int CBufferedReader::ReadInto(unsigned short* buffer, unsigned int offset, unsigned int length,
                              bool withOffset) {
  VESK_CHECK_OPEN();
  if (!buffer) return length == 0 ? 0 : Skip(length);
  return Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Read(buffer, offset, length,
                                                                            withOffset, true);
}

int CBufferedReader::Read(unsigned short* buffer, unsigned int offset, unsigned int length) {
  return ReadInto(buffer, offset, length, true);
}

int CBufferedReader::Read(unsigned short* buffer, unsigned int length) {
  return ReadInto(buffer, 0, length, false);
}

int CBufferedReader::Read() {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Read(EOS);
}

int CBufferedReader::Skip(unsigned int count) {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Skip(count);
}

void CBufferedReader::Reset() {
  VESK_CHECK_OPEN();
  Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Reset();
}

void CBufferedReader::Close() {
  VESK_CHECK_OPEN();
  internal::CloseWrapped(m_stream);
}

}  // namespace io
}  // namespace vesk
