#include "vesk/base/ArrayIndexOutOfBoundsException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CArrayIndexOutOfBoundsException, CArrayIndexOutOfBoundsException, "vesk::base::CArrayIndexOutOfBoundsException", "vesk::base::CException")

CArrayIndexOutOfBoundsException::CArrayIndexOutOfBoundsException(const char* sourceFile, unsigned int sourceLine)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {}

}  // namespace base
}  // namespace vesk
