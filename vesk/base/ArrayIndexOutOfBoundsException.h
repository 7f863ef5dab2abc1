/// \file
/// vesk::base::CArrayIndexOutOfBoundsException
#ifndef VESK_BASE_ARRAYINDEXOUTOFBOUNDSEXCEPTION_H
#define VESK_BASE_ARRAYINDEXOUTOFBOUNDSEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CArrayIndexOutOfBoundsException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CArrayIndexOutOfBoundsException, vesk::base::CException, None);

}  // namespace base
}  // namespace vesk

#endif
