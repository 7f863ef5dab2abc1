#include "vesk/base/ClassCastException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CClassCastException, CClassCastException, "vesk::base::CClassCastException", "vesk::base::CException")

CClassCastException::CClassCastException(const char* sourceFile, unsigned int sourceLine)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {}

}  // namespace base
}  // namespace vesk
