/// \file
/// CBufferedOutputStream: writes another output stream through a buffer.
#ifndef VESK_IO_BUFFEREDOUTPUTSTREAM_H
#define VESK_IO_BUFFEREDOUTPUTSTREAM_H

#include <cstring>

#include "vesk/base/Ref.h"
#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

/// A decorator that collects bytes and hands them on in blocks. An array
/// write of at least the buffer size flushes the buffer and goes straight
/// through. The CRef constructor keeps the wrapped stream alive; the pointer
/// constructor borrows it. Closing flushes and closes the wrapped stream;
/// destruction does neither.
class VESK_API CBufferedOutputStream : public COutputStream {
  VESK_DECLARE_CLASS(CBufferedOutputStream);

  /// Borrows stream. Throws CIllegalArgumentException for null or a size of
  /// 0, CMemoryException when the buffer cannot be allocated.
  CBufferedOutputStream(COutputStream* stream, unsigned int size);
  /// Shares stream; otherwise as above.
  CBufferedOutputStream(const vesk::base::CRef<COutputStream>& stream, unsigned int size);
  /// Frees the buffer without writing it out and without closing the wrapped
  /// stream: Flush or Close first, or buffered bytes are lost.
  ~CBufferedOutputStream() override;

  /// Nothing for a null buffer; a range whose end wraps past 2^32 writes
  /// nothing.
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  void Write(const char* buffer, unsigned int length) override;
  /// Flushes a full buffer first, so the buffer may stay full afterwards.
  void Write(char byte) override;
  /// Writes the buffer and flushes the wrapped stream.
  void Flush() override;
  /// Writes the buffer and closes the wrapped stream; the decorator is closed
  /// even when that fails. Closing again is silent.
  void Close() override;

  /// Appends length bytes when the stream is open and they fit without
  /// filling the buffer, and answers whether it did (nothing is written
  /// otherwise). Writers of small values, such as the data streams, use it
  /// to skip a virtual call per value; the bytes end up exactly where
  /// Write(buffer, length) would have put them.
  bool AppendIfRoom(const char* bytes, unsigned int length) {
    if (!m_stream || length >= m_bufferSize - m_count) return false;
    std::memcpy(m_buffer + m_count, bytes, length);
    m_count += length;
    return true;
  }

 protected:
  /// Hands the buffered bytes to the wrapped stream.
  void FlushBuffer();
  /// Write(buffer, offset, length) without the open check: buffers the bytes,
  /// handing the buffer on whenever it fills (a block of the buffer's size or
  /// more goes straight through).
  void InternalWrite(const char* buffer, unsigned int offset, unsigned int length);
  /// Marks the decorator closed and closes the wrapped stream.
  void InternalClose();

 private:
  CBufferedOutputStream(const CBufferedOutputStream&);
  CBufferedOutputStream& operator=(const CBufferedOutputStream&);

  void Init(COutputStream* stream, unsigned int size);

  COutputStream* m_stream;
  vesk::base::CRef<COutputStream> m_streamRef;
  char* m_buffer;
  unsigned int m_bufferSize;
  unsigned int m_count;
};

}  // namespace io
}  // namespace vesk

#endif
