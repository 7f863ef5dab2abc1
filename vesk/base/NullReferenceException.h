/// \file
/// vesk::base::CNullReferenceException
#ifndef VESK_BASE_NULLREFERENCEEXCEPTION_H
#define VESK_BASE_NULLREFERENCEEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CNullReferenceException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CNullReferenceException, vesk::base::CException, None);

}  // namespace base
}  // namespace vesk

#endif
