/// \file
/// CPushbackInputStream: an input stream to which bytes can be given back.
#ifndef VESK_IO_PUSHBACKINPUTSTREAM_H
#define VESK_IO_PUSHBACKINPUTSTREAM_H

#include "vesk/base/Ref.h"
#include "vesk/io/InputStream.h"

namespace vesk {
namespace io {

/// A decorator with a pushback buffer: bytes given back with Unread are read
/// again before the wrapped stream is read, the last one given back first.
/// The CRef constructor keeps the wrapped stream alive; the pointer
/// constructor borrows it.
class VESK_API CPushbackInputStream : public CInputStream {
  VESK_DECLARE_CLASS(CPushbackInputStream);

  /// Borrows stream; size is the room for bytes given back. Throws
  /// CIllegalArgumentException for null or a size of 0, CMemoryException
  /// when the buffer cannot be allocated.
  CPushbackInputStream(CInputStream* stream, unsigned int size);
  /// Shares stream; otherwise as above.
  CPushbackInputStream(const vesk::base::CRef<CInputStream>& stream, unsigned int size);
  /// Frees the pushback buffer; does not close the wrapped stream.
  ~CPushbackInputStream() override;

  /// The wrapped stream's count plus the bytes given back.
  unsigned int GetAvailable() const override;
  /// Bytes given back first, then the wrapped stream; when that is at its
  /// end the result is the number given back minus one.
  int Read(char* buffer, unsigned int offset, unsigned int length) override;
  int Read(char* buffer, unsigned int length) override;
  /// One byte, sign-extended, or EOS.
  int Read() override;
  int Skip(unsigned int count) override;
  /// Drops the bytes given back and resets the wrapped stream.
  void Reset() override;
  /// Closes the wrapped stream; the decorator is closed even when that
  /// fails. Closing twice throws.
  void Close() override;

  /// Gives one byte back. CIOException "Pushback buffer is full." when there
  /// is no room. Works on a closed stream too.
  void Unread(char byte);
  /// Gives bytes back so that buffer[0] is read first. CIOException when
  /// length exceeds the room left; a null buffer gives nothing back.
  void Unread(const char* buffer, unsigned int length);
  /// Gives back length bytes from buffer + offset, so that buffer[offset] is
  /// read first. CIOException "Pushback buffer is full." when length exceeds
  /// the room left.
  void Unread(const char* buffer, unsigned int offset, unsigned int length);

 private:
  CPushbackInputStream(const CPushbackInputStream&);
  CPushbackInputStream& operator=(const CPushbackInputStream&);

  void Init(CInputStream* stream, unsigned int size);

  CInputStream* m_stream;
  vesk::base::CRef<CInputStream> m_streamRef;
  char* m_buffer;
  unsigned int m_bufferSize;
  unsigned int m_position;
};

}  // namespace io
}  // namespace vesk

#endif
