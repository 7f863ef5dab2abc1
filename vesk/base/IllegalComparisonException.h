/// \file
/// vesk::base::CIllegalComparisonException
#ifndef VESK_BASE_ILLEGALCOMPARISONEXCEPTION_H
#define VESK_BASE_ILLEGALCOMPARISONEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CIllegalComparisonException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CIllegalComparisonException, vesk::base::CException, DescriptionMessage);

}  // namespace base
}  // namespace vesk

#endif
