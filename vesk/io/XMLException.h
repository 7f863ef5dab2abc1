/// \file
/// vesk::io::CXMLException
#ifndef VESK_IO_XMLEXCEPTION_H
#define VESK_IO_XMLEXCEPTION_H

#include "vesk/io/IOException.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CXMLException (base vesk::io::CIOException).
class VESK_API CXMLException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CXMLException);

  CXMLException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace io
}  // namespace vesk

#endif
