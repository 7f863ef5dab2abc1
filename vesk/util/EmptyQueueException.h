/// \file
/// vesk::util::CEmptyQueueException
#ifndef VESK_UTIL_EMPTYQUEUEEXCEPTION_H
#define VESK_UTIL_EMPTYQUEUEEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace util {

/// Exception class vesk::util::CEmptyQueueException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CEmptyQueueException, vesk::base::CException, None);

}  // namespace util
}  // namespace vesk

#endif
