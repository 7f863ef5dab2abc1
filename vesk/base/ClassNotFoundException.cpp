#include "vesk/base/ClassNotFoundException.h"

namespace vesk {
namespace base {

VESK_IMPLEMENT_CLASS(CClassNotFoundException, CClassNotFoundException, "vesk::base::CClassNotFoundException", "vesk::base::CException")

CClassNotFoundException::CClassNotFoundException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message, const char* className)
    : CException(sourceFile, sourceLine, errorDescription, message) {
  AssignOptionalText(m_className, className);
}

}  // namespace base
}  // namespace vesk
