/// \file
/// vesk::io::CXMLException
#ifndef VESK_IO_XMLEXCEPTION_H
#define VESK_IO_XMLEXCEPTION_H

#include "vesk/io/IOException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace io {

/// Exception class vesk::io::CXMLException (base vesk::io::CIOException).
VESK_DECLARE_EXCEPTION(CXMLException, vesk::io::CIOException, DescriptionMessage);

}  // namespace io
}  // namespace vesk

#endif
