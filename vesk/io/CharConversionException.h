/// \file
/// vesk::io::CCharConversionException
#ifndef VESK_IO_CHARCONVERSIONEXCEPTION_H
#define VESK_IO_CHARCONVERSIONEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CCharConversionException (base vesk::io::CIOException).
VESK_DECLARE_EXCEPTION(CCharConversionException, vesk::io::CIOException, DescriptionMessage);

}  // namespace io
}  // namespace vesk

#endif
