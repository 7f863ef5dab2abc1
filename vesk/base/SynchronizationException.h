/// \file
/// vesk::base::CSynchronizationException
#ifndef VESK_BASE_SYNCHRONIZATIONEXCEPTION_H
#define VESK_BASE_SYNCHRONIZATIONEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CSynchronizationException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CSynchronizationException, vesk::base::CException, DescriptionMessage);

}  // namespace base
}  // namespace vesk

#endif
