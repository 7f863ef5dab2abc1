/// \file
/// vesk::util::CEmptyStackException
#ifndef VESK_UTIL_EMPTYSTACKEXCEPTION_H
#define VESK_UTIL_EMPTYSTACKEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace util {

/// Exception class vesk::util::CEmptyStackException (base vesk::base::CException).
class VESK_API CEmptyStackException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CEmptyStackException);

  CEmptyStackException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace util
}  // namespace vesk

#endif
