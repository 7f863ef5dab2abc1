/// \file
/// vesk::base::CNumberFormatException
#ifndef VESK_BASE_NUMBERFORMATEXCEPTION_H
#define VESK_BASE_NUMBERFORMATEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CNumberFormatException (base vesk::base::CException).
class VESK_API CNumberFormatException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CNumberFormatException);

  CNumberFormatException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace base
}  // namespace vesk

#endif
