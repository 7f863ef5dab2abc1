/// \file
/// vesk::io::CInterruptedIOException
#ifndef VESK_IO_INTERRUPTEDIOEXCEPTION_H
#define VESK_IO_INTERRUPTEDIOEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CInterruptedIOException (base vesk::io::CIOException).
VESK_DECLARE_EXCEPTION(CInterruptedIOException, vesk::io::CIOException, DescriptionMessage);

}  // namespace io
}  // namespace vesk

#endif
