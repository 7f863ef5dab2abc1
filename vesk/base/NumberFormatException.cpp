#include "vesk/base/NumberFormatException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CNumberFormatException, CNumberFormatException, "vesk::base::CNumberFormatException", "vesk::base::CException")

CNumberFormatException::CNumberFormatException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace base
}  // namespace vesk
