/// \file
/// vesk::util::CNoSuchElementException
#ifndef VESK_UTIL_NOSUCHELEMENTEXCEPTION_H
#define VESK_UTIL_NOSUCHELEMENTEXCEPTION_H

#include "vesk/base/MemoryException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace util {

/// Exception class vesk::util::CNoSuchElementException (base vesk::base::CMemoryException).
VESK_DECLARE_EXCEPTION(CNoSuchElementException, vesk::base::CMemoryException, None);

}  // namespace util
}  // namespace vesk

#endif
