/// \file
/// CDataInputStream: reads typed values from any byte input stream.
#ifndef VESK_IO_DATAINPUTSTREAM_H
#define VESK_IO_DATAINPUTSTREAM_H

#include "vesk/base/Ref.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/ISerializable.h"
#include "vesk/io/InputStream.h"

namespace vesk {
namespace io {

/// Reads what CDataOutputStream writes: integers big-endian, float and
/// double in host (little-endian) byte order, strings as a 4-byte
/// big-endian byte count and UTF-8.
///
/// Numbers are read with one Read of their size and the count is not
/// checked: at the end of the data no exception is raised. ReadBool,
/// ReadByte and ReadSByte use Read(), so at the end they give false and
/// 0xFF. Callers that need to see the end check GetAvailable or frame
/// their data.
class VESK_API CDataInputStream : public CInputStream {
  VESK_DECLARE_CLASS(CDataInputStream);

  /// Shares ownership of stream. Throws CIllegalArgumentException
  /// "Invalid input stream." for an empty handle.
  explicit CDataInputStream(const vesk::base::CRef<CInputStream>& stream);
  /// Borrows stream; the caller keeps it alive. Throws
  /// CIllegalArgumentException "Invalid intput stream." for null.
  explicit CDataInputStream(CInputStream* stream);
  /// Releases the shared handle; does not close the wrapped stream.
  ~CDataInputStream() override;

  // Forwarded to the wrapped stream; CIOException "Stream closed." once
  // this stream is closed.
  unsigned int GetAvailable() const override;
  int Read(char* buffer, unsigned int offset, unsigned int length) override;
  int Read(char* buffer, unsigned int length) override;
  int Read() override;
  int Skip(unsigned int count) override;
  void Reset() override;
  /// Closes the wrapped stream; this stream is closed afterwards even when
  /// that throws. Closing again does nothing.
  void Close() override;

  /// True only for the byte 1.
  virtual bool ReadBool();
  /// One signed byte.
  virtual char ReadByte();
  /// One unsigned byte.
  virtual unsigned char ReadSByte();
  /// A big-endian 16-bit integer.
  virtual short ReadInt16();
  /// A big-endian 32-bit integer.
  virtual int ReadInt32();
  /// A big-endian unsigned 16-bit integer.
  virtual unsigned short ReadUInt16();
  /// A big-endian unsigned 32-bit integer.
  virtual unsigned int ReadUInt32();
  /// A 4-byte float in host byte order.
  virtual float ReadFloat();
  /// An 8-byte double in host byte order.
  virtual double ReadDouble();
  /// A 4-byte big-endian byte count, then that many bytes of UTF-8. A zero
  /// byte in the data ends the string there.
  virtual vesk::base::CUnicodeString ReadString();
  /// Lets obj read its state: obj.ReadFrom(*this).
  virtual void ReadObject(ISerializable& obj);

  ///@{
  /// Reads value with the Read function of its type (ReadBool, ReadByte,
  /// ReadSByte for unsigned char, ReadInt16, ReadInt32, ReadUInt16,
  /// ReadUInt32, ReadFloat, ReadDouble, ReadString, ReadObject) and returns
  /// the stream for chaining.
  CDataInputStream& operator>>(bool& value);
  CDataInputStream& operator>>(char& value);
  CDataInputStream& operator>>(unsigned char& value);
  CDataInputStream& operator>>(short& value);
  CDataInputStream& operator>>(int& value);
  CDataInputStream& operator>>(unsigned short& value);
  CDataInputStream& operator>>(unsigned int& value);
  CDataInputStream& operator>>(float& value);
  CDataInputStream& operator>>(double& value);
  CDataInputStream& operator>>(vesk::base::CUnicodeString& value);
  CDataInputStream& operator>>(ISerializable& value);
  ///@}

 protected:
  /// Reads count bytes of UTF-8 and converts them; shared by both string
  /// forms once the count is known.
  vesk::base::CUnicodeString ReadUTF8(unsigned int count);
  /// Fills value with size bytes through one Read (zeroed first).
  void ReadRaw(void* value, unsigned int size);

  /// Keeps a shared wrapped stream alive; empty when it is borrowed.
  vesk::base::CRef<CInputStream> m_streamRef;
  /// The wrapped stream; null once closed.
  CInputStream* m_stream;

 private:
  CDataInputStream(const CDataInputStream&) = delete;
  CDataInputStream& operator=(const CDataInputStream&) = delete;
};

}  // namespace io
}  // namespace vesk

#endif
