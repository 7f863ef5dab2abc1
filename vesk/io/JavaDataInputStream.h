/// \file
/// CJavaDataInputStream: a data input stream whose strings carry a 16-bit
/// byte count.
#ifndef VESK_IO_JAVADATAINPUTSTREAM_H
#define VESK_IO_JAVADATAINPUTSTREAM_H

#include "vesk/io/DataInputStream.h"

namespace vesk {
namespace io {

/// Reads strings as a 2-byte big-endian byte count and UTF-8, the form the
/// JDK's DataOutputStream.writeUTF writes for text without U+0000 and
/// within the Basic Multilingual Plane. Everything else is read as by
/// CDataInputStream.
class VESK_API CJavaDataInputStream : public CDataInputStream {
  VESK_DECLARE_CLASS(CJavaDataInputStream);

  ///@{
  /// Same contract as CDataInputStream's constructors.
  explicit CJavaDataInputStream(const vesk::base::CRef<CInputStream>& stream);
  explicit CJavaDataInputStream(CInputStream* stream);
  ///@}
  /// As CDataInputStream's: does not close the wrapped stream.
  ~CJavaDataInputStream() override;

  vesk::base::CUnicodeString ReadString() override;
};

}  // namespace io
}  // namespace vesk

#endif
