/// \file
/// vesk::base::CMemoryException
#ifndef VESK_BASE_MEMORYEXCEPTION_H
#define VESK_BASE_MEMORYEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CMemoryException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CMemoryException, vesk::base::CException, None);

}  // namespace base
}  // namespace vesk

#endif
