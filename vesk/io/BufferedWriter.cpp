#include "vesk/io/BufferedWriter.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IOException.h"
#include "vesk/io/internal/StreamState.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;

namespace {
const char kSource[] = "vesk/io/BufferedWriter";
}  // namespace
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(CBufferedWriter, CBufferedWriter, "vesk::io::CBufferedWriter",
                     "vesk::io::CWriter")

CBufferedWriter::CBufferedWriter(CWriter* writer, unsigned int size)
    : m_stream(nullptr), m_buffer(nullptr), m_bufferSize(0), m_count(0) {
  Init(writer, size);
}

CBufferedWriter::CBufferedWriter(const CRef<CWriter>& writer, unsigned int size)
    : m_stream(nullptr), m_streamRef(writer), m_buffer(nullptr), m_bufferSize(0), m_count(0) {
  Init(writer.Get(), size);
}

CBufferedWriter::~CBufferedWriter() { platform::Free(m_buffer); }

void CBufferedWriter::Init(CWriter* writer, unsigned int size) {
  if (!writer) VESK_THROW(kSource, CIllegalArgumentException, "Invalid writer.");
  if (size == 0) {
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid buffer size.");
  }
  m_buffer = static_cast<unsigned short*>(platform::Alloc(size * sizeof(unsigned short)));
  if (!m_buffer) VESK_THROW(kSource, vesk::base::CMemoryException);
  m_bufferSize = size;
  m_stream = writer;
}

using Buffer = internal::TWriteBuffer<unsigned short, CWriter>;

#define VESK_CHECK_OPEN() VESK_IO_CHECK_OPEN(m_stream, kSource, "Writer closed.")

void CBufferedWriter::FlushBuffer() { Buffer{m_stream, m_buffer, m_bufferSize, m_count}.Flush(); }

void CBufferedWriter::InternalWrite(const unsigned short* chars, unsigned int offset,
                                    unsigned int length) {
  Buffer{m_stream, m_buffer, m_bufferSize, m_count}.Write(chars, offset, length);
}

void CBufferedWriter::InternalClose() { internal::CloseWrapped(m_stream); }

void CBufferedWriter::Write(const CUnicodeString& text, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  unsigned int textLength = text.GetLength();
  if (offset >= textLength) return;
  if (length > textLength - offset) length = textLength - offset;
  InternalWrite(static_cast<const unsigned short*>(text), offset, length);
}

void CBufferedWriter::Write(const CUnicodeString& text) {
  VESK_CHECK_OPEN();
  if (text.IsEmpty()) return;
  InternalWrite(static_cast<const unsigned short*>(text), 0, text.GetLength());
}

void CBufferedWriter::Write(const unsigned short* chars, unsigned int offset, unsigned int length) {
  VESK_CHECK_OPEN();
  if (!chars) return;
  InternalWrite(chars, offset, length);
}

void CBufferedWriter::Write(const unsigned short* chars, unsigned int length) {
  VESK_CHECK_OPEN();
  if (!chars) return;
  InternalWrite(chars, 0, length);
}

void CBufferedWriter::Write(const unsigned short* chars) {
  VESK_CHECK_OPEN();
  if (!chars) return;
  InternalWrite(chars, 0, platform::Utf16Length(chars));
}

void CBufferedWriter::Write(unsigned short ch) {
  VESK_CHECK_OPEN();
  Buffer{m_stream, m_buffer, m_bufferSize, m_count}.Put(ch);
}

void CBufferedWriter::Flush() {
  VESK_CHECK_OPEN();
  FlushBuffer();
  m_stream->Flush();
}

void CBufferedWriter::Close() {
  if (!m_stream) return;
  FlushBuffer();
  InternalClose();
}

}  // namespace io
}  // namespace vesk
