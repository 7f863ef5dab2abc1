#include "vesk/base/MemoryException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CMemoryException, CMemoryException, "vesk::base::CMemoryException", "vesk::base::CException")

CMemoryException::CMemoryException(const char* sourceFile, unsigned int sourceLine)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {}

}  // namespace base
}  // namespace vesk
