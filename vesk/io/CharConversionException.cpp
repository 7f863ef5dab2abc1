#include "vesk/io/CharConversionException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CCharConversionException, CCharConversionException, "vesk::io::CCharConversionException", "vesk::io::CIOException")

CCharConversionException::CCharConversionException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CIOException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace io
}  // namespace vesk
