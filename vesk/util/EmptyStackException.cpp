#include "vesk/util/EmptyStackException.h"

namespace vesk {
namespace util {

VESK_IMPLEMENT_CLASS(CEmptyStackException, CEmptyStackException, "vesk::util::CEmptyStackException", "vesk::base::CException")

CEmptyStackException::CEmptyStackException(const char* sourceFile, unsigned int sourceLine)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {}

}  // namespace util
}  // namespace vesk
