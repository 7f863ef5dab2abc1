#include "vesk/io/OutputStreamWriter.h"

#include <cstdint>
#include <typeinfo>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/IOException.h"
#include "vesk/io/WCharToCharUTF8.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace io {

using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using vesk::base::CUnicodeString;

VESK_IMPLEMENT_CLASS(COutputStreamWriter, COutputStreamWriter, "vesk::io::COutputStreamWriter",
                     "vesk::io::CWriter")

const unsigned int COutputStreamWriter::kInitialBufferSize;

COutputStreamWriter::COutputStreamWriter(const CRef<COutputStream>& out, const char* encoding,
                                         bool writeByteOrderMark)
    : m_stream(nullptr),
      m_streamRef(out),
      m_byteBuffer(nullptr),
      m_byteBufferSize(kInitialBufferSize),
      m_byteCount(0) {
  Init(out.Get(), encoding, writeByteOrderMark);
}

COutputStreamWriter::COutputStreamWriter(COutputStream* out, const char* encoding,
                                         bool writeByteOrderMark)
    : m_stream(nullptr),
      m_byteBuffer(nullptr),
      m_byteBufferSize(kInitialBufferSize),
      m_byteCount(0) {
  Init(out, encoding, writeByteOrderMark);
}

COutputStreamWriter::~COutputStreamWriter() { platform::Free(m_byteBuffer); }

void COutputStreamWriter::Init(COutputStream* out, const char* encoding, bool writeByteOrderMark) {
  if (!out) {
    // Two full stops: callers match this text as it has always read.
    VESK_THROW("vesk/io/OutputStreamWriter", CIllegalArgumentException, "Invalid output stream..");
  }
  if (!encoding || !*encoding) {
    VESK_THROW("vesk/io/OutputStreamWriter", CIllegalArgumentException, "Invalid encoding.");
  }
  m_converter = CWCharToCharConverter::GetConverter(encoding);
  m_encoding = encoding;
  if (writeByteOrderMark) {
    char mark[16];
    unsigned int size = sizeof mark;
    m_converter->GetByteOrderMark(mark, &size);
    out->Write(mark, 0, size);
  }
  m_byteBuffer = static_cast<char*>(platform::Alloc(kInitialBufferSize));
  if (!m_byteBuffer) VESK_THROW("vesk/io/OutputStreamWriter", vesk::base::CMemoryException);
  m_byteBufferSize = kInitialBufferSize;
  m_byteCount = 0;
  m_stream = out;
}

void COutputStreamWriter::CheckOpen() const {
  if (!m_stream) VESK_THROW("vesk/io/OutputStreamWriter", CIOException, "Writer closed.");
}

void COutputStreamWriter::FlushBuffer() {
  if (m_byteCount > 0) {
    m_stream->Write(m_byteBuffer, 0, m_byteCount);
    m_byteCount = 0;
  }
}

namespace {

// The bytes CWCharToCharUTF8 writes for units[0 .. length) when nothing is
// pending: a high surrogate takes the unit after it into one '?', or is kept
// pending (no bytes) when it is the last unit.
std::uint64_t Utf8BytesFromReset(const unsigned short* units, unsigned int length) {
  std::uint64_t bytes = 0;
  unsigned int k = 0;
  while (k < length) {
    // Blocks without surrogates are counted without a branch per unit.
    if (length - k >= 16) {
      unsigned int sum = 0;
      unsigned int surrogates = 0;
      for (unsigned int j = 0; j < 16; ++j) {
        unsigned int c = units[k + j];
        sum += 1 + (c >= 0x80) + (c >= 0x800);
        surrogates |= (c & 0xF800) == 0xD800;
      }
      if (!surrogates) {
        bytes += sum;
        k += 16;
        continue;
      }
    }
    unsigned int c = units[k];
    if (c >= 0xD800 && c <= 0xDBFF) {
      if (k + 1 == length) break;
      bytes += 1;
      k += 2;
    } else {
      bytes += c < 0x80 ? 1 : c < 0x800 ? 2 : 3;
      k += 1;
    }
  }
  return bytes;
}

}  // namespace

void COutputStreamWriter::InternalWrite(const unsigned short* chars, unsigned int offset,
                                        unsigned int length) {
  CheckOpen();
  unsigned int end = offset + length;
  if (end < offset) return;  // the range wraps past 2^32
  unsigned int i = offset;
  bool writtenOut = false;
  while (i < end) {
    int converted = m_converter->Convert(chars, i, end - i, m_byteBuffer, m_byteCount,
                                         m_byteBufferSize - m_byteCount);
    bool forceWriteOut = false;
    if (converted >= 0) {
      // A result of 0 is a lone high surrogate kept pending for the next
      // call: the input is consumed, and retrying could never make room.
      m_byteCount += static_cast<unsigned int>(converted);
      i = end;
    } else {
      m_converter->Reset();
      if (writtenOut) {
        // The buffer is empty here (it was just written out): replace it by
        // one of twice the size. The old block is kept when that fails.
        unsigned int newSize = m_byteBufferSize * 2;
        // Every doubling that cannot take the text would only fail again:
        // with the library's own UTF-8 converter the text is measured once
        // and the buffer goes straight to the first doubling that takes it
        // (the same size the doublings would reach, without re-encoding a
        // large text at each of them).
        if (typeid(*m_converter) == typeid(CWCharToCharUTF8)) {
          std::uint64_t need = Utf8BytesFromReset(chars + i, end - i);
          while (newSize > m_byteBufferSize && newSize < need && newSize * 2 > newSize) {
            newSize *= 2;
          }
        }
        char* bigger =
            newSize > m_byteBufferSize ? static_cast<char*>(platform::Alloc(newSize)) : nullptr;
        if (!bigger) VESK_THROW("vesk/io/OutputStreamWriter", CIOException, "Memory full.");
        platform::Free(m_byteBuffer);
        m_byteBuffer = bigger;
        m_byteBufferSize = newSize;
      } else {
        forceWriteOut = true;
      }
    }
    if (m_byteCount >= m_byteBufferSize || forceWriteOut) {
      m_stream->Write(m_byteBuffer, 0, m_byteCount);
      m_byteCount = 0;
      writtenOut = true;
    }
  }
}

void COutputStreamWriter::InternalClose() {
  COutputStream* stream = m_stream;
  m_stream = nullptr;  // closed even when the stream's close fails
  stream->Close();
}

void COutputStreamWriter::Write(const CUnicodeString& text, unsigned int offset,
                                unsigned int length) {
  CheckOpen();
  unsigned int textLength = text.GetLength();
  if (offset >= textLength) return;
  if (length > textLength - offset) length = textLength - offset;
  InternalWrite(static_cast<const unsigned short*>(text), offset, length);
}

void COutputStreamWriter::Write(const CUnicodeString& text) {
  CheckOpen();
  if (text.IsEmpty()) return;
  InternalWrite(static_cast<const unsigned short*>(text), 0, text.GetLength());
}

void COutputStreamWriter::Write(const unsigned short* chars, unsigned int offset,
                                unsigned int length) {
  CheckOpen();
  if (!chars) return;
  InternalWrite(chars, offset, length);
}

void COutputStreamWriter::Write(const unsigned short* chars, unsigned int length) {
  CheckOpen();
  if (!chars) return;
  InternalWrite(chars, 0, length);
}

void COutputStreamWriter::Write(const unsigned short* chars) {
  CheckOpen();
  if (!chars) return;
  InternalWrite(chars, 0, platform::Utf16Length(chars));
}

void COutputStreamWriter::Write(unsigned short ch) { InternalWrite(&ch, 0, 1); }

void COutputStreamWriter::Flush() {
  CheckOpen();
  FlushBuffer();
  m_stream->Flush();
}

void COutputStreamWriter::Close() {
  if (!m_stream) return;
  FlushBuffer();
  InternalClose();
}

}  // namespace io
}  // namespace vesk
