/// \file
/// vesk::base::CIllegalComparisonException
#ifndef VESK_BASE_ILLEGALCOMPARISONEXCEPTION_H
#define VESK_BASE_ILLEGALCOMPARISONEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CIllegalComparisonException (base vesk::base::CException).
class VESK_API CIllegalComparisonException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CIllegalComparisonException);

  CIllegalComparisonException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace base
}  // namespace vesk

#endif
