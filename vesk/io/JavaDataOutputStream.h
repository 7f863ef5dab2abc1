/// \file
/// CJavaDataOutputStream: a data output stream whose strings carry a 16-bit
/// byte count.
#ifndef VESK_IO_JAVADATAOUTPUTSTREAM_H
#define VESK_IO_JAVADATAOUTPUTSTREAM_H

#include "vesk/io/DataOutputStream.h"

namespace vesk {
namespace io {

/// Writes strings as a 2-byte big-endian byte count and UTF-8, readable by
/// the JDK's DataInputStream.readUTF for text without U+0000 and within the
/// Basic Multilingual Plane (the JDK writes U+0000 as C0 80 and other
/// planes as two 3-byte surrogates; this stream writes standard UTF-8).
/// Everything else is written as by CDataOutputStream.
class VESK_API CJavaDataOutputStream : public CDataOutputStream {
  VESK_DECLARE_CLASS(CJavaDataOutputStream);

  ///@{
  /// Same contract as CDataOutputStream's constructors.
  explicit CJavaDataOutputStream(const vesk::base::CRef<COutputStream>& stream);
  explicit CJavaDataOutputStream(COutputStream* stream);
  ///@}
  /// As CDataOutputStream's: neither flushes nor closes.
  ~CJavaDataOutputStream() override;

  /// Throws CIOException "The specified string is too long." before writing
  /// anything when the UTF-8 form exceeds 65535 bytes.
  void WriteString(const vesk::base::CUnicodeString& text) override;
  /// Null gives the empty string: the count 0 is written.
  void WriteString(const unsigned short* text) override;
};

}  // namespace io
}  // namespace vesk

#endif
