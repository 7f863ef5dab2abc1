/// \file
/// vesk::io::CUnsupportedEncodingException
#ifndef VESK_IO_UNSUPPORTEDENCODINGEXCEPTION_H
#define VESK_IO_UNSUPPORTEDENCODINGEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/String.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CUnsupportedEncodingException (base vesk::io::CIOException).
class VESK_API CUnsupportedEncodingException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CUnsupportedEncodingException);

  /// Records the throw site and a copy of the encoding name (null or ""
  /// leaves it empty); description and message are null.
  CUnsupportedEncodingException(const char* sourceFile, unsigned int sourceLine, const char* encoding);
  /// The encoding name that was asked for (empty when none).
  const vesk::base::CString& GetEncoding() const { return m_encoding; }

 private:
  vesk::base::CString m_encoding;
};

}  // namespace io
}  // namespace vesk

#endif
