#include "vesk/io/AccessDeniedException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CAccessDeniedException, CAccessDeniedException, "vesk::io::CAccessDeniedException", "vesk::io::CIOException")

CAccessDeniedException::CAccessDeniedException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CIOException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace io
}  // namespace vesk
