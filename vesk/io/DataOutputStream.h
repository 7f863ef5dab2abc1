/// \file
/// CDataOutputStream: writes typed values to any byte output stream.
#ifndef VESK_IO_DATAOUTPUTSTREAM_H
#define VESK_IO_DATAOUTPUTSTREAM_H

#include <cstring>

#include "vesk/base/Ref.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/ISerializable.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/OutputStream.h"

namespace vesk {
namespace io {

/// Writes typed values, each with one Write on the wrapped stream:
/// bool as 0x01 / 0x00, integers big-endian, float and double in host
/// (little-endian) byte order, unswapped, so that existing files stay
/// readable; strings as a 4-byte big-endian UTF-8 byte count and the bytes.
class VESK_API CDataOutputStream : public COutputStream {
  VESK_DECLARE_CLASS(CDataOutputStream);

  /// Shares ownership of stream. Throws CIllegalArgumentException
  /// "Invalid output stream." for an empty handle.
  explicit CDataOutputStream(const vesk::base::CRef<COutputStream>& stream);
  /// Borrows stream; the caller keeps it alive. Same exception for null.
  explicit CDataOutputStream(COutputStream* stream);
  /// Releases the shared handle; neither flushes nor closes.
  ~CDataOutputStream() override;

  // Forwarded to the wrapped stream; CIOException "Stream closed." once
  // this stream is closed.
  void Write(const char* buffer, unsigned int offset, unsigned int length) override;
  void Write(const char* buffer, unsigned int length) override;
  void Write(char byte) override;
  void Flush() override;
  /// Closes the wrapped stream; this stream is closed afterwards even when
  /// that throws. Closing again does nothing.
  void Close() override;

  /// The byte 0x01 for true, 0x00 for false.
  virtual void WriteBool(bool value);
  /// One byte.
  virtual void WriteByte(char value);
  /// One byte.
  virtual void WriteUByte(unsigned char value);
  // Integers are big-endian. Defined here so that a call on a stream whose
  // type the compiler knows appends in place without a call into the library.
  /// Two bytes, big-endian.
  virtual void WriteInt16(short value) { WriteBig16(static_cast<unsigned short>(value)); }
  /// Four bytes, big-endian.
  virtual void WriteInt32(int value) { WriteBig32(static_cast<unsigned int>(value)); }
  /// Two bytes, big-endian.
  virtual void WriteUInt16(unsigned short value) { WriteBig16(value); }
  /// Four bytes, big-endian.
  virtual void WriteUInt32(unsigned int value) { WriteBig32(value); }
  /// The 4 bytes of the float in host byte order.
  virtual void WriteFloat(float value);
  /// The 8 bytes of the double in host byte order.
  virtual void WriteDouble(double value);
  /// The UTF-8 byte count (4 bytes, big-endian), then the bytes; the empty
  /// string writes the four zero bytes.
  virtual void WriteString(const vesk::base::CUnicodeString& text);
  /// A null or empty text writes nothing at all, not even a count, so a
  /// reader expecting a string there gets out of step. Existing data has
  /// this shape; write an empty CUnicodeString to get the count 0.
  virtual void WriteString(const unsigned short* text);
  /// Lets obj write its state: obj.WriteTo(*this).
  virtual void WriteObject(const ISerializable& obj);

  ///@{
  /// Writes value with the Write function of its type (WriteBool, WriteByte,
  /// WriteUByte, WriteInt16, WriteInt32, WriteUInt16, WriteUInt32,
  /// WriteFloat, WriteDouble, WriteString, WriteObject) and returns the
  /// stream for chaining.
  CDataOutputStream& operator<<(bool value);
  CDataOutputStream& operator<<(char value);
  CDataOutputStream& operator<<(unsigned char value);
  CDataOutputStream& operator<<(short value);
  CDataOutputStream& operator<<(int value);
  CDataOutputStream& operator<<(unsigned short value);
  CDataOutputStream& operator<<(unsigned int value);
  CDataOutputStream& operator<<(float value);
  CDataOutputStream& operator<<(double value);
  CDataOutputStream& operator<<(const unsigned short* text);
  CDataOutputStream& operator<<(const vesk::base::CUnicodeString& text);
  CDataOutputStream& operator<<(const ISerializable& obj);
  ///@}

 protected:
  /// Keeps a shared wrapped stream alive; empty when it is borrowed.
  vesk::base::CRef<COutputStream> m_streamRef;
  /// The wrapped stream; null once closed.
  COutputStream* m_stream;
  /// The wrapped stream when it is exactly a CBufferedOutputStream (not a
  /// subclass that could override its writes), else null: small values are
  /// then appended to its buffer directly.
  CBufferedOutputStream* m_buffered;

  /// Writes the bytes of one value to the wrapped stream.
  void WriteValueBytes(const char* bytes, unsigned int length) {
    if (m_buffered && m_buffered->AppendIfRoom(bytes, length)) return;
    m_stream->Write(bytes, length);
  }
  /// Checks that the stream is open (CIOException "Stream closed."), then
  /// WriteValueBytes.
  void WriteCheckedValueBytes(const char* bytes, unsigned int length);
  ///@{
  /// A 16- or 32-bit value, big-endian. m_buffered is null once closed, so
  /// the in-place append needs no check of its own.
  /// The bytes are made in a register and stored at once (a value stored
  /// in pieces and read back whole would stall the store buffer).
  void WriteBig16(unsigned int v) {
    const unsigned short big = ToBigEndian16(static_cast<unsigned short>(v));
    char b[2];
    std::memcpy(b, &big, 2);
    if (m_buffered && m_buffered->AppendIfRoom(b, 2)) return;
    WriteCheckedValueBytes(b, 2);
  }
  void WriteBig32(unsigned int v) {
    const unsigned int big = ToBigEndian32(v);
    char b[4];
    std::memcpy(b, &big, 4);
    if (m_buffered && m_buffered->AppendIfRoom(b, 4)) return;
    WriteCheckedValueBytes(b, 4);
  }
  ///@}
  ///@{
  /// v with its bytes in big-endian order in memory.
  static unsigned short ToBigEndian16(unsigned short v) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return v;
#else
    return static_cast<unsigned short>((v >> 8) | (v << 8));
#endif
  }
  static unsigned int ToBigEndian32(unsigned int v) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    return v;
#else
    return (v >> 24) | ((v >> 8) & 0xFF00u) | ((v << 8) & 0xFF0000u) | (v << 24);
#endif
  }
  ///@}

 private:
  CDataOutputStream(const CDataOutputStream&) = delete;
  CDataOutputStream& operator=(const CDataOutputStream&) = delete;
};

}  // namespace io
}  // namespace vesk

#endif
