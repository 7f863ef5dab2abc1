/// \file
/// vesk::util::CNoSuchElementException
#ifndef VESK_UTIL_NOSUCHELEMENTEXCEPTION_H
#define VESK_UTIL_NOSUCHELEMENTEXCEPTION_H

#include "vesk/base/MemoryException.h"

namespace vesk {
namespace util {

/// Exception class vesk::util::CNoSuchElementException (base vesk::base::CMemoryException).
class VESK_API CNoSuchElementException : public vesk::base::CMemoryException {
  VESK_DECLARE_CLASS(CNoSuchElementException);

  CNoSuchElementException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace util
}  // namespace vesk

#endif
