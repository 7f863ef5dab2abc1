/// \file
/// CBufferedWriter: writes another writer through a buffer.
#ifndef VESK_IO_BUFFEREDWRITER_H
#define VESK_IO_BUFFEREDWRITER_H

#include "vesk/base/Ref.h"
#include "vesk/io/Writer.h"

namespace vesk {
namespace io {

/// A decorator that collects 16-bit units and hands them on in blocks. An
/// array write of at least the buffer size flushes the buffer and goes
/// straight through. The CRef constructor keeps the wrapped writer alive;
/// the pointer constructor borrows it. Closing flushes and closes the
/// wrapped writer; destruction does neither.
class VESK_API CBufferedWriter : public CWriter {
  VESK_DECLARE_CLASS(CBufferedWriter);

  /// Borrows writer. Throws CIllegalArgumentException for null or a size of
  /// 0, CMemoryException when the buffer cannot be allocated.
  CBufferedWriter(CWriter* writer, unsigned int size);
  /// Shares writer; otherwise as above.
  CBufferedWriter(const vesk::base::CRef<CWriter>& writer, unsigned int size);
  /// Frees the buffer without writing it out and without closing the wrapped
  /// writer: Flush or Close first, or buffered units are lost.
  ~CBufferedWriter() override;

  void Write(const vesk::base::CUnicodeString& text, unsigned int offset,
             unsigned int length) override;
  void Write(const vesk::base::CUnicodeString& text) override;
  /// Nothing for null; a range whose end wraps past 2^32 writes nothing.
  void Write(const unsigned short* chars, unsigned int offset, unsigned int length) override;
  void Write(const unsigned short* chars, unsigned int length) override;
  void Write(const unsigned short* chars) override;
  /// Flushes a full buffer first, so the buffer may stay full afterwards.
  void Write(unsigned short ch) override;
  /// Writes the buffer and flushes the wrapped writer.
  void Flush() override;
  /// Writes the buffer and closes the wrapped writer; the decorator is
  /// closed even when that fails. Closing again is silent.
  void Close() override;

 protected:
  /// Hands the buffered units to the wrapped writer.
  void FlushBuffer();
  /// Write(chars, offset, length) without the open check: buffers the units,
  /// handing the buffer on whenever it fills (a block of the buffer's size or
  /// more goes straight through).
  void InternalWrite(const unsigned short* chars, unsigned int offset, unsigned int length);
  /// Marks the decorator closed and closes the wrapped writer.
  void InternalClose();

 private:
  CBufferedWriter(const CBufferedWriter&);
  CBufferedWriter& operator=(const CBufferedWriter&);

  void Init(CWriter* writer, unsigned int size);

  CWriter* m_stream;
  vesk::base::CRef<CWriter> m_streamRef;
  unsigned short* m_buffer;
  unsigned int m_bufferSize;
  unsigned int m_count;
};

}  // namespace io
}  // namespace vesk

#endif
