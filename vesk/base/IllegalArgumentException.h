/// \file
/// vesk::base::CIllegalArgumentException
#ifndef VESK_BASE_ILLEGALARGUMENTEXCEPTION_H
#define VESK_BASE_ILLEGALARGUMENTEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CIllegalArgumentException (base vesk::base::CException).
/// The message is always null.
VESK_DECLARE_EXCEPTION(CIllegalArgumentException, vesk::base::CException, Description);

}  // namespace base
}  // namespace vesk

#endif
