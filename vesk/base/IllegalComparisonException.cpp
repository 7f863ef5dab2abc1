#include "vesk/base/IllegalComparisonException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CIllegalComparisonException, CIllegalComparisonException, "vesk::base::CIllegalComparisonException", "vesk::base::CException")

CIllegalComparisonException::CIllegalComparisonException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace base
}  // namespace vesk
