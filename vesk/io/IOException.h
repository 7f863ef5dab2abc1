/// \file
/// vesk::io::CIOException
#ifndef VESK_IO_IOEXCEPTION_H
#define VESK_IO_IOEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CIOException (base vesk::base::CException).
class VESK_API CIOException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CIOException);

  CIOException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace io
}  // namespace vesk

#endif
