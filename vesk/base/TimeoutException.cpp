#include "vesk/base/TimeoutException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CTimeoutException, CTimeoutException, "vesk::base::CTimeoutException", "vesk::base::CSynchronizationException")

CTimeoutException::CTimeoutException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CSynchronizationException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace base
}  // namespace vesk
