/// \file
/// vesk::util::CEmptyQueueException
#ifndef VESK_UTIL_EMPTYQUEUEEXCEPTION_H
#define VESK_UTIL_EMPTYQUEUEEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace util {

/// Exception class vesk::util::CEmptyQueueException (base vesk::base::CException).
class VESK_API CEmptyQueueException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CEmptyQueueException);

  CEmptyQueueException(const char* sourceFile, unsigned int sourceLine);
};

}  // namespace util
}  // namespace vesk

#endif
