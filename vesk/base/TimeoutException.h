/// \file
/// vesk::base::CTimeoutException
#ifndef VESK_BASE_TIMEOUTEXCEPTION_H
#define VESK_BASE_TIMEOUTEXCEPTION_H

#include "vesk/base/SynchronizationException.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CTimeoutException (base vesk::base::CSynchronizationException).
VESK_DECLARE_EXCEPTION(CTimeoutException, vesk::base::CSynchronizationException, DescriptionMessage);

}  // namespace base
}  // namespace vesk

#endif
