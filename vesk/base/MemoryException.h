/// \file
/// vesk::base::CMemoryException
#ifndef VESK_BASE_MEMORYEXCEPTION_H
#define VESK_BASE_MEMORYEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace base {

/// Exception class vesk::base::CMemoryException (base vesk::base::CException).
class VESK_API CMemoryException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CMemoryException);

  CMemoryException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace base
}  // namespace vesk

#endif
