/// \file
/// vesk::io::CCharConversionException
#ifndef VESK_IO_CHARCONVERSIONEXCEPTION_H
#define VESK_IO_CHARCONVERSIONEXCEPTION_H

#include "vesk/io/IOException.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CCharConversionException (base vesk::io::CIOException).
class VESK_API CCharConversionException : public vesk::io::CIOException {
  VESK_DECLARE_CLASS(CCharConversionException);

  CCharConversionException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace io
}  // namespace vesk

#endif
