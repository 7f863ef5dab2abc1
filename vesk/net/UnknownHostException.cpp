#include "vesk/net/UnknownHostException.h"

namespace vesk {
namespace net {

VESK_IMPLEMENT_CLASS(CUnknownHostException, CUnknownHostException, "vesk::net::CUnknownHostException", "vesk::io::CIOException")

CUnknownHostException::CUnknownHostException(const char* sourceFile, unsigned int sourceLine, const char* hostName)
    : CIOException(sourceFile, sourceLine, "Unknown host name.", nullptr) {
  AssignOptionalText(m_hostName, hostName);
}

}  // namespace net
}  // namespace vesk
