#include "vesk/net/internal/SocketError.h"
#include "vesk/platform/SystemError.h"

namespace vesk {
namespace net {
namespace internal {

// WSAGetLastError already gives the Windows Sockets number.
unsigned int SocketErrorCode(int hostCode) { return static_cast<unsigned int>(hostCode); }

// The system's message table holds the texts of the Windows Sockets codes.
bool SocketErrorText(unsigned int code, char* buffer, std::size_t size) {
  return platform::SystemErrorText(code, buffer, size);
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
