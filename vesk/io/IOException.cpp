#include "vesk/io/IOException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CIOException, CIOException, "vesk::io::CIOException", "vesk::base::CException")

CIOException::CIOException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace io
}  // namespace vesk
