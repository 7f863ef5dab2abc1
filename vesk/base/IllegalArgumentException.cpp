#include "vesk/base/IllegalArgumentException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CIllegalArgumentException, CIllegalArgumentException, "vesk::base::CIllegalArgumentException", "vesk::base::CException")

CIllegalArgumentException::CIllegalArgumentException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription)
    : CException(sourceFile, sourceLine, errorDescription, nullptr) {}

}  // namespace base
}  // namespace vesk
