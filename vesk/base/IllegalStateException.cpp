#include "vesk/base/IllegalStateException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CIllegalStateException, CIllegalStateException, "vesk::base::CIllegalStateException", "vesk::base::CException")

CIllegalStateException::CIllegalStateException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace base
}  // namespace vesk
