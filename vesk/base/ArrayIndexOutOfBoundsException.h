/// \file
/// vesk::base::CArrayIndexOutOfBoundsException
#ifndef VESK_BASE_ARRAYINDEXOUTOFBOUNDSEXCEPTION_H
#define VESK_BASE_ARRAYINDEXOUTOFBOUNDSEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CArrayIndexOutOfBoundsException (base vesk::base::CException).
class VESK_API CArrayIndexOutOfBoundsException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CArrayIndexOutOfBoundsException);

  CArrayIndexOutOfBoundsException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace base
}  // namespace vesk

#endif
