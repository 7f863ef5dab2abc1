#include "vesk/io/BufferedWriter.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IOException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
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
  if (!writer) VESK_THROW("vesk/io/BufferedWriter", CIllegalArgumentException, "Invalid writer.");
  if (size == 0) {
    VESK_THROW("vesk/io/BufferedWriter", CIllegalArgumentException, "Invalid buffer size.");
  }
  m_buffer = static_cast<unsigned short*>(platform::Alloc(size * sizeof(unsigned short)));
  if (!m_buffer) VESK_THROW("vesk/io/BufferedWriter", vesk::base::CMemoryException);
  m_bufferSize = size;
  m_stream = writer;
}

namespace {

// A plain function rather than a member, so that it inlines into every
// operation of this exported class.
inline void CheckOpen(const void* stream) {
  if (!stream) VESK_THROW("vesk/io/BufferedWriter", CIOException, "Writer closed.");
}

}  // namespace

void CBufferedWriter::FlushBuffer() {
  if (m_count > 0) {
    m_stream->Write(m_buffer, 0, m_count);
    m_count = 0;
  }
}

void CBufferedWriter::InternalWrite(const unsigned short* chars, unsigned int offset,
                                    unsigned int length) {
  if (length >= m_bufferSize) {
    FlushBuffer();
    m_stream->Write(chars, offset, length);
    return;
  }
  unsigned int end = offset + length;
  if (end < offset) return;  // the range wraps past 2^32
  const unsigned short* source = chars + offset;
  while (length > 0) {
    unsigned int room = m_bufferSize - m_count;
    unsigned int piece = length < room ? length : room;
    std::memcpy(m_buffer + m_count, source, piece * sizeof(unsigned short));
    m_count += piece;
    source += piece;
    length -= piece;
    if (m_count == m_bufferSize) FlushBuffer();
  }
}

void CBufferedWriter::InternalClose() {
  CWriter* writer = m_stream;
  m_stream = nullptr;  // closed even when the wrapped close fails
  writer->Close();
}

void CBufferedWriter::Write(const CUnicodeString& text, unsigned int offset, unsigned int length) {
  CheckOpen(m_stream);
  unsigned int textLength = text.GetLength();
  if (offset >= textLength) return;
  if (length > textLength - offset) length = textLength - offset;
  InternalWrite(static_cast<const unsigned short*>(text), offset, length);
}

void CBufferedWriter::Write(const CUnicodeString& text) {
  CheckOpen(m_stream);
  if (text.IsEmpty()) return;
  InternalWrite(static_cast<const unsigned short*>(text), 0, text.GetLength());
}

void CBufferedWriter::Write(const unsigned short* chars, unsigned int offset, unsigned int length) {
  CheckOpen(m_stream);
  if (!chars) return;
  InternalWrite(chars, offset, length);
}

void CBufferedWriter::Write(const unsigned short* chars, unsigned int length) {
  CheckOpen(m_stream);
  if (!chars) return;
  InternalWrite(chars, 0, length);
}

void CBufferedWriter::Write(const unsigned short* chars) {
  CheckOpen(m_stream);
  if (!chars) return;
  InternalWrite(chars, 0, platform::Utf16Length(chars));
}

void CBufferedWriter::Write(unsigned short ch) {
  CheckOpen(m_stream);
  if (m_count == m_bufferSize) FlushBuffer();
  m_buffer[m_count++] = ch;
}

void CBufferedWriter::Flush() {
  CheckOpen(m_stream);
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
