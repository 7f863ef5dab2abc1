#include "vesk/base/SynchronizationException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CSynchronizationException, CSynchronizationException, "vesk::base::CSynchronizationException", "vesk::base::CException")

CSynchronizationException::CSynchronizationException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace base
}  // namespace vesk
