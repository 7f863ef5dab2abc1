/// \file
/// CPosixSocketImpl: an IPv4 TCP socket of the POSIX host, with the socket's
/// input and output streams. Not installed.
#ifndef VESK_NET_POSIX_POSIXSOCKETIMPL_H
#define VESK_NET_POSIX_POSIXSOCKETIMPL_H

#include "vesk/net/internal/StreamSocketImpl.h"

namespace vesk {
namespace net {
namespace posix {

/// The descriptor is created close-on-exec; sends never raise SIGPIPE; waits
/// use poll, so descriptors beyond FD_SETSIZE work.
class VESK_API CPosixSocketImpl : public internal::CStreamSocketImpl {
  VESK_DECLARE_CLASS(CPosixSocketImpl);

  CPosixSocketImpl();
};

}  // namespace posix
}  // namespace net
}  // namespace vesk

#endif
