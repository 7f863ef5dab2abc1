/// \file
/// vesk::base::CSynchronizationException
#ifndef VESK_BASE_SYNCHRONIZATIONEXCEPTION_H
#define VESK_BASE_SYNCHRONIZATIONEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CSynchronizationException (base vesk::base::CException).
class VESK_API CSynchronizationException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CSynchronizationException);

  CSynchronizationException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace base
}  // namespace vesk

#endif
