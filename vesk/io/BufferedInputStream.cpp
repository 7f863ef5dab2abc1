#include "vesk/io/BufferedInputStream.h"

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
const char kSource[] = "vesk/io/BufferedInputStream";
}  // namespace

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
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid input stream.");
  }
  if (size == 0) size = 512;
  m_buffer = static_cast<char*>(platform::Alloc(size));
  if (!m_buffer) VESK_THROW(kSource, vesk::base::CMemoryException);
  m_bufferSize = size;
}

using Buffer = internal::TReadBuffer<char, CInputStream>;

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Stream closed.")

void CBufferedInputStream::FillBuffer() {
  Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Fill();
}

unsigned int CBufferedInputStream::GetAvailable() const {
  VESK_CHECK_OPEN();
  return m_stream->GetAvailable() + (m_count - m_position);
}

int CBufferedInputStream::ReadInto(char* buffer, unsigned int offset, unsigned int length,
                                   bool withOffset) {
  VESK_CHECK_OPEN();
  if (!buffer) return length == 0 ? 0 : Skip(length);
  return Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Read(buffer, offset, length,
                                                                            withOffset, false);
}

int CBufferedInputStream::Read(char* buffer, unsigned int offset, unsigned int length) {
  return ReadInto(buffer, offset, length, true);
}

int CBufferedInputStream::Read(char* buffer, unsigned int length) {
  return ReadInto(buffer, 0, length, false);
}

int CBufferedInputStream::Read() {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Read(EOS);
}

int CBufferedInputStream::Skip(unsigned int count) {
  VESK_CHECK_OPEN();
  return Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Skip(count);
}

void CBufferedInputStream::Reset() {
  VESK_CHECK_OPEN();
  Buffer{m_stream, m_buffer, m_bufferSize, m_count, m_position}.Reset();
}

void CBufferedInputStream::Close() {
  VESK_CHECK_OPEN();
  internal::CloseWrapped(m_stream);
}

}  // namespace io
}  // namespace vesk
