/// \file
/// vesk::base::CIllegalStateException
#ifndef VESK_BASE_ILLEGALSTATEEXCEPTION_H
#define VESK_BASE_ILLEGALSTATEEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CIllegalStateException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CIllegalStateException, vesk::base::CException, DescriptionMessage);

}  // namespace base
}  // namespace vesk

#endif
