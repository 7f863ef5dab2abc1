/// \file
/// CWinSocketImpl: an IPv4 TCP socket on Windows Sockets 2, with the
/// socket's input and output streams. Not installed.
#ifndef VESK_NET_WIN_INTERNAL_WINSOCKETIMPL_H
#define VESK_NET_WIN_INTERNAL_WINSOCKETIMPL_H

#include "vesk/net/internal/StreamSocketImpl.h"

namespace vesk {
namespace net {

/// The SOCKET is not inherited by child processes; waits use select; Close
/// wakes the calls blocked on the socket and closes it once they have left.
/// Windows Sockets are started when the library is loaded and ended when it
/// is unloaded.
class VESK_API CWinSocketImpl : public internal::CStreamSocketImpl {
  VESK_DECLARE_CLASS(CWinSocketImpl);

  CWinSocketImpl();
};

}  // namespace net
}  // namespace vesk

#endif
