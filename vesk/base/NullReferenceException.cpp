#include "vesk/base/NullReferenceException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CNullReferenceException, CNullReferenceException, "vesk::base::CNullReferenceException", "vesk::base::CException")

CNullReferenceException::CNullReferenceException(const char* sourceFile, unsigned int sourceLine)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {}

}  // namespace base
}  // namespace vesk
