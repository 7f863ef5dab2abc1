#include "vesk/io/XMLException.h"

namespace vesk {
namespace io {

VESK_IMPLEMENT_CLASS(CXMLException, CXMLException, "vesk::io::CXMLException", "vesk::io::CIOException")

CXMLException::CXMLException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CIOException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace io
}  // namespace vesk
