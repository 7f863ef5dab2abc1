/// \file
/// vesk::base::CIllegalArgumentException
#ifndef VESK_BASE_ILLEGALARGUMENTEXCEPTION_H
#define VESK_BASE_ILLEGALARGUMENTEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CIllegalArgumentException (base vesk::base::CException).
class VESK_API CIllegalArgumentException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CIllegalArgumentException);

  /// The message is always null.
  CIllegalArgumentException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr);
};

}  // namespace base
}  // namespace vesk

#endif
