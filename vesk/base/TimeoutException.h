/// \file
/// vesk::base::CTimeoutException
#ifndef VESK_BASE_TIMEOUTEXCEPTION_H
#define VESK_BASE_TIMEOUTEXCEPTION_H

#include "vesk/base/SynchronizationException.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CTimeoutException (base vesk::base::CSynchronizationException).
class VESK_API CTimeoutException : public vesk::base::CSynchronizationException {
  VESK_DECLARE_CLASS(CTimeoutException);

  CTimeoutException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace base
}  // namespace vesk

#endif
