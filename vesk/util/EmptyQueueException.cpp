#include "vesk/util/EmptyQueueException.h"

namespace vesk {
namespace util {

VESK_IMPLEMENT_CLASS(CEmptyQueueException, CEmptyQueueException, "vesk::util::CEmptyQueueException", "vesk::base::CException")

CEmptyQueueException::CEmptyQueueException(const char* sourceFile, unsigned int sourceLine)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {}

}  // namespace util
}  // namespace vesk
