/// \file
/// vesk::base::CIllegalStateException
#ifndef VESK_BASE_ILLEGALSTATEEXCEPTION_H
#define VESK_BASE_ILLEGALSTATEEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CIllegalStateException (base vesk::base::CException).
class VESK_API CIllegalStateException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CIllegalStateException);

  CIllegalStateException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace base
}  // namespace vesk

#endif
