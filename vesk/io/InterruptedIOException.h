/// \file
/// vesk::io::CInterruptedIOException
#ifndef VESK_IO_INTERRUPTEDIOEXCEPTION_H
#define VESK_IO_INTERRUPTEDIOEXCEPTION_H

#include "vesk/io/IOException.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CInterruptedIOException (base vesk::io::CIOException).
class VESK_API CInterruptedIOException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CInterruptedIOException);

  CInterruptedIOException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace io
}  // namespace vesk

#endif
