/// \file
/// vesk::util::CEmptyStackException
#ifndef VESK_UTIL_EMPTYSTACKEXCEPTION_H
#define VESK_UTIL_EMPTYSTACKEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace util {

/// Exception class vesk::util::CEmptyStackException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CEmptyStackException, vesk::base::CException, None);

}  // namespace util
}  // namespace vesk

#endif
