#include "vesk/net/SocketException.h"

namespace vesk {
namespace net {

VESK_IMPLEMENT_CLASS(CSocketException, CSocketException, "vesk::net::CSocketException", "vesk::io::CIOException")

CSocketException::CSocketException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CIOException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace net
}  // namespace vesk
