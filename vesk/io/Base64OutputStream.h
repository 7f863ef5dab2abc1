/// \file
/// CBase64OutputStream: encodes the bytes written to it as Base64 text.
#ifndef VESK_IO_BASE64OUTPUTSTREAM_H
#define VESK_IO_BASE64OUTPUTSTREAM_H

#include "vesk/base/Ref.h"
#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

/// A decorator that writes the Base64 text (standard alphabet, '=' padding)
/// of the bytes written to it, optionally broken into lines of lineLength
/// characters separated by CR LF (no line end after the last character).
/// Bytes are encoded in groups of three; Flush pads and writes a partial
/// group, Close does not (call Flush first). The CRef constructor keeps the
/// wrapped stream alive; the pointer constructor borrows it.
class VESK_API CBase64OutputStream : public COutputStream {
  VESK_DECLARE_CLASS(CBase64OutputStream);

  /// Borrows stream; a lineLength of 0 writes one unbroken line. Throws
  /// CIllegalArgumentException for null.
  CBase64OutputStream(COutputStream* stream, unsigned int lineLength);
  /// Shares stream. Throws CIllegalArgumentException for an empty handle.
  CBase64OutputStream(const vesk::base::CRef<COutputStream>& stream, unsigned int lineLength);
  /// Releases the wrapped stream without flushing held bytes.
  ~CBase64OutputStream() override;

  using COutputStream::Write;
  /// Takes the bytes as Write(char) would, one after the other: the same
  /// characters and line breaks reach the wrapped stream, in larger writes.
  /// A subclass that overrides Write(char) still receives every byte.
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  /// Takes one byte; every third completes a group of four characters.
  void Write(char byte) override;
  /// Pads and writes a partial group (later bytes start a new group), then
  /// flushes the wrapped stream.
  void Flush() override;
  /// Closes the wrapped stream; bytes of a partial group are dropped.
  void Close() override;

 private:
  CBase64OutputStream(const CBase64OutputStream&);
  CBase64OutputStream& operator=(const CBase64OutputStream&);

  /// Encodes count mod 4 bytes (3, 2 or 1; 0 writes nothing) into four
  /// characters at out + outOffset; returns 4.
  unsigned int EncodeGroup(const char* bytes, unsigned int offset, unsigned int count, char* out,
                           unsigned int outOffset);
  /// Writes encoded characters, breaking lines before a character that would
  /// overflow the current one.
  void InternalWrite(const char* chars, unsigned int offset, unsigned int length);
  /// Encodes whole groups of bytes, with the line breaks InternalWrite
  /// would put between them, into out; returns the characters stored.
  unsigned int EncodeBlock(const unsigned char* bytes, unsigned int groups, char* out);

  COutputStream* m_stream;
  vesk::base::CRef<COutputStream> m_streamRef;
  unsigned int m_lineLength;
  char m_group[3];
  unsigned int m_groupCount;
  unsigned int m_column;
};

}  // namespace io
}  // namespace vesk

#endif
