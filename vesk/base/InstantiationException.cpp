#include "vesk/base/InstantiationException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CInstantiationException, CInstantiationException, "vesk::base::CInstantiationException", "vesk::base::CException")

CInstantiationException::CInstantiationException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message, const char* className)
    : CException(sourceFile, sourceLine, errorDescription, message) {
  AssignOptionalText(m_className, className);
}

}  // namespace base
}  // namespace vesk
