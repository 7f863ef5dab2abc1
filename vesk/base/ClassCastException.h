/// \file
/// vesk::base::CClassCastException
#ifndef VESK_BASE_CLASSCASTEXCEPTION_H
#define VESK_BASE_CLASSCASTEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CClassCastException (base vesk::base::CException).
class VESK_API CClassCastException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CClassCastException);

  CClassCastException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace base
}  // namespace vesk

#endif
