/// \file
/// vesk::base::CClassCastException
#ifndef VESK_BASE_CLASSCASTEXCEPTION_H
#define VESK_BASE_CLASSCASTEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CClassCastException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CClassCastException, vesk::base::CException, None);

}  // namespace base
}  // namespace vesk

#endif
