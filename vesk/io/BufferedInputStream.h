/// \file
/// CBufferedInputStream: reads another input stream through a buffer.
#ifndef VESK_IO_BUFFEREDINPUTSTREAM_H
#define VESK_IO_BUFFEREDINPUTSTREAM_H

#include "vesk/base/Ref.h"
#include "vesk/io/InputStream.h"

namespace vesk {
namespace io {

/// A decorator that fills a buffer with one read of the wrapped stream at a
/// time. An array read longer than the buffer goes straight to the wrapped
/// stream, ahead of bytes still buffered (those come later). The CRef
/// constructor keeps the wrapped stream alive; the pointer constructor
/// borrows it. Closing closes the wrapped stream; destruction does not.
class VESK_API CBufferedInputStream : public CInputStream {
  VESK_DECLARE_CLASS(CBufferedInputStream);

  /// Borrows stream; a size of 0 means 512 bytes. Throws
  /// CIllegalArgumentException for null, CMemoryException when the buffer
  /// cannot be allocated.
  CBufferedInputStream(CInputStream* stream, unsigned int size = 512);
  /// Shares stream; otherwise as above.
  CBufferedInputStream(const vesk::base::CRef<CInputStream>& stream, unsigned int size = 512);
  /// Frees the buffer; does not close the wrapped stream.
  ~CBufferedInputStream() override;

  /// The wrapped stream's count plus the bytes buffered.
  unsigned int GetAvailable() const override;
  /// Buffered bytes first, topped up by one fill; 0 (not -1) when the fill
  /// brings nothing after buffered bytes were exhausted. A null buffer
  /// skips length bytes instead.
  int Read(char* buffer, unsigned int offset, unsigned int length) override;
  int Read(char* buffer, unsigned int length) override;
  /// One byte, sign-extended, or EOS.
  int Read() override;
  /// Returns the buffered bytes dropped plus what the wrapped Skip returns.
  int Skip(unsigned int count) override;
  /// Drops the buffer and resets the wrapped stream.
  void Reset() override;
  /// Closes the wrapped stream; the decorator is closed even when that
  /// fails. Closing twice throws.
  void Close() override;

 private:
  CBufferedInputStream(const CBufferedInputStream&);
  CBufferedInputStream& operator=(const CBufferedInputStream&);

  void CreateBuffer(unsigned int size);
  void FillBuffer();
  /// The array read; withOffset tells which read of the wrapped stream
  /// serves a request longer than the buffer.
  int ReadInto(char* buffer, unsigned int offset, unsigned int length, bool withOffset);

  CInputStream* m_stream;
  vesk::base::CRef<CInputStream> m_streamRef;
  char* m_buffer;
  unsigned int m_bufferSize;
  unsigned int m_count;
  unsigned int m_position;
};

}  // namespace io
}  // namespace vesk

#endif
