/// \file
/// Socket error codes as the library reports them: Windows Sockets numbers on
/// every host. Each host supplies the mapping from its own codes and the text
/// of a code. Not installed.
#ifndef VESK_NET_INTERNAL_SOCKETERROR_H
#define VESK_NET_INTERNAL_SOCKETERROR_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace net {
namespace internal {

/// Windows Sockets codes the library itself looks at.
enum : unsigned int {
  kWsaEIntr = 10004,
  kWsaEFault = 10014,
  kWsaEWouldBlock = 10035,
  kWsaEInProgress = 10036,
  kWsaENotSock = 10038,
  kWsaEConnReset = 10054,
  kWsaEConnRefused = 10061,
};

/// The Windows Sockets number of a host error code (errno on POSIX); a code
/// without a counterpart is passed on unchanged.
VESK_API unsigned int SocketErrorCode(int hostCode);
/// Writes the host's text for a Windows Sockets code into buffer, ending
/// with a line break as the system's message texts do; false when there is
/// none.
bool SocketErrorText(unsigned int code, char* buffer, std::size_t size);

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
