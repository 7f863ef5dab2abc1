/// \file
/// vesk::base::CNumberFormatException
#ifndef VESK_BASE_NUMBERFORMATEXCEPTION_H
#define VESK_BASE_NUMBERFORMATEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CNumberFormatException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CNumberFormatException, vesk::base::CException, DescriptionMessage);

}  // namespace base
}  // namespace vesk

#endif
