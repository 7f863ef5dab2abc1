#include "vesk/util/NoSuchElementException.h"

namespace vesk {
namespace util {

VESK_IMPLEMENT_CLASS(CNoSuchElementException, CNoSuchElementException, "vesk::util::CNoSuchElementException", "vesk::base::CMemoryException")

CNoSuchElementException::CNoSuchElementException(const char* sourceFile, unsigned int sourceLine)
    : CMemoryException(sourceFile, sourceLine) {}

}  // namespace util
}  // namespace vesk
