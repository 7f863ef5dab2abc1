/// \file
/// vesk::io::CIOException
#ifndef VESK_IO_IOEXCEPTION_H
#define VESK_IO_IOEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CIOException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CIOException, vesk::base::CException, DescriptionMessage);

}  // namespace io
}  // namespace vesk

#endif
