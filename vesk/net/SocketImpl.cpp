#include "vesk/net/SocketImpl.h"

#include "vesk/net/SocketException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace net {

namespace {
// The option checks are reported from the implementation, where clients
// know them from.
const char* const kSource = "vesk/net/WinSocketImpl";
}  // namespace

VESK_IMPLEMENT_CLASS(CSocketImpl, CSocketImpl, "vesk::net::CSocketImpl", "vesk::base::CObject")

CSocketImpl::CSocketImpl() : m_port(0), m_localPort(0), m_timeout(0) {}

CSocketImpl::~CSocketImpl() {}

// Ids past the table get the type message too: the type is checked first.
void CSocketImpl::CheckBoolOption(unsigned int id) {
  switch (id) {
    case OptionMulticastLoop:
    case OptionBroadcast:
    case OptionKeepAlive:
    case OptionOOBInline:
    case OptionReuseAddress:
    case OptionTCPNoDelay:
      return;
    default:
      VESK_THROW(kSource, CSocketException, "The specified option is not a bool option.");
  }
}

void CSocketImpl::CheckIntOption(unsigned int id) {
  switch (id) {
    case OptionTypeOfService:
    case OptionLinger:
    case OptionReceiveBuffer:
    case OptionSendBuffer:
      return;
    default:
      VESK_THROW(kSource, CSocketException, "The specified option is not an int option.");
  }
}

}  // namespace net
}  // namespace vesk
