/// \file
/// COutputStreamWriter: a writer that encodes its characters into a byte
/// output stream.
#ifndef VESK_IO_OUTPUTSTREAMWRITER_H
#define VESK_IO_OUTPUTSTREAMWRITER_H

#include "vesk/base/Ref.h"
#include "vesk/base/String.h"
#include "vesk/io/OutputStream.h"
#include "vesk/io/WCharToCharConverter.h"
#include "vesk/io/Writer.h"

namespace vesk {
namespace io {

/// Encodes 16-bit units with the converter of a named encoding into a byte
/// buffer and hands the bytes to an output stream. The buffer starts at 8196
/// bytes; the text of one write call is always converted in one piece, and
/// the buffer doubles until it holds it. The CRef constructor keeps the
/// stream alive; the pointer constructor borrows it. Closing flushes and
/// closes the stream; destruction does neither.
class VESK_API COutputStreamWriter : public CWriter {
  VESK_DECLARE_CLASS(COutputStreamWriter);

  /// The size of a new writer's byte buffer.
  static const unsigned int kInitialBufferSize = 8196;

  /// Shares out. Throws CIllegalArgumentException "Invalid output stream.."
  /// for a null stream or "Invalid encoding." for a null or empty name,
  /// CUnsupportedEncodingException for an unknown one, and CMemoryException
  /// when the buffer cannot be allocated. With writeByteOrderMark the
  /// encoding's byte-order mark goes to the stream at once, unbuffered.
  COutputStreamWriter(const vesk::base::CRef<COutputStream>& out, const char* encoding,
                      bool writeByteOrderMark);
  /// Borrows out; otherwise as above.
  COutputStreamWriter(COutputStream* out, const char* encoding, bool writeByteOrderMark);
  /// Frees the byte buffer without writing it out and without closing the
  /// wrapped stream: Flush or Close first.
  ~COutputStreamWriter() override;

  void Write(const vesk::base::CUnicodeString& text, unsigned int offset,
             unsigned int length) override;
  void Write(const vesk::base::CUnicodeString& text) override;
  /// Nothing for null; a range whose end wraps past 2^32 writes nothing.
  void Write(const unsigned short* chars, unsigned int offset, unsigned int length) override;
  void Write(const unsigned short* chars, unsigned int length) override;
  void Write(const unsigned short* chars) override;
  void Write(unsigned short ch) override;
  /// Writes the buffered bytes and flushes the stream.
  void Flush() override;
  /// Writes the buffered bytes and closes the stream; the writer is closed
  /// even when that fails. Closing again is silent.
  void Close() override;

  /// The encoding name the writer was built with.
  const vesk::base::CString& GetEncoding() const { return m_encoding; }

 private:
  COutputStreamWriter(const COutputStreamWriter&);
  COutputStreamWriter& operator=(const COutputStreamWriter&);

  void Init(COutputStream* out, const char* encoding, bool writeByteOrderMark);
  void CheckOpen() const;
  void FlushBuffer();
  void InternalWrite(const unsigned short* chars, unsigned int offset, unsigned int length);
  void InternalClose();

  COutputStream* m_stream;
  vesk::base::CRef<COutputStream> m_streamRef;
  vesk::base::CString m_encoding;
  vesk::base::CRef<CWCharToCharConverter> m_converter;
  char* m_byteBuffer;
  unsigned int m_byteBufferSize;
  unsigned int m_byteCount;
};

}  // namespace io
}  // namespace vesk

#endif
