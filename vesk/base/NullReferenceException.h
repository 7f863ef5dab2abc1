/// \file
/// vesk::base::CNullReferenceException
#ifndef VESK_BASE_NULLREFERENCEEXCEPTION_H
#define VESK_BASE_NULLREFERENCEEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CNullReferenceException (base vesk::base::CException).
class VESK_API CNullReferenceException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CNullReferenceException);

  CNullReferenceException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace base
}  // namespace vesk

#endif
