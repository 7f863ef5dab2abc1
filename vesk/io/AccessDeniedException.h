/// \file
/// vesk::io::CAccessDeniedException
#ifndef VESK_IO_ACCESSDENIEDEXCEPTION_H
#define VESK_IO_ACCESSDENIEDEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CAccessDeniedException (base vesk::io::CIOException).
VESK_DECLARE_EXCEPTION(CAccessDeniedException, vesk::io::CIOException, DescriptionMessage);

}  // namespace io
}  // namespace vesk

#endif
