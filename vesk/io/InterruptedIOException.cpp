#include "vesk/io/InterruptedIOException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CInterruptedIOException, CInterruptedIOException, "vesk::io::CInterruptedIOException", "vesk::io::CIOException")

CInterruptedIOException::CInterruptedIOException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CIOException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace io
}  // namespace vesk
