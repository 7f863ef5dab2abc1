#include <errno.h>
#include <netdb.h>
#include <netinet/in.h>
#include <string.h>
#include <sys/socket.h>
#include <unistd.h>

#include "vesk/net/internal/HostLookup.h"
#include "vesk/net/internal/SocketError.h"

namespace vesk {
namespace net {
namespace internal {

// getaddrinfo and getnameinfo instead of gethostbyname and gethostbyaddr:
// the old calls share one static answer between all threads.

bool LookupHostAddress(const char* host, unsigned char address[4]) {
  addrinfo hints;
  memset(&hints, 0, sizeof hints);
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* answer = nullptr;
  if (getaddrinfo(host, nullptr, &hints, &answer) != 0 || !answer) return false;
  bool found = false;
  for (addrinfo* entry = answer; entry; entry = entry->ai_next) {
    if (entry->ai_family == AF_INET && entry->ai_addr) {
      const sockaddr_in* in = reinterpret_cast<const sockaddr_in*>(entry->ai_addr);
      memcpy(address, &in->sin_addr, 4);
      found = true;
      break;
    }
  }
  freeaddrinfo(answer);
  return found;
}

bool LookupHostName(const unsigned char address[4], base::CString& name) {
  sockaddr_in in;
  memset(&in, 0, sizeof in);
  in.sin_family = AF_INET;
  memcpy(&in.sin_addr, address, 4);
  char host[NI_MAXHOST];
  if (getnameinfo(reinterpret_cast<const sockaddr*>(&in), sizeof in, host, sizeof host, nullptr, 0,
                  NI_NAMEREQD) != 0) {
    return false;
  }
  name = host;
  return true;
}

unsigned int LocalHostName(char* buffer, unsigned int size) {
  if (gethostname(buffer, size) == 0) {
    // POSIX leaves a cut name unterminated; a full buffer counts as too small.
    if (memchr(buffer, '\0', size)) return 0;
    return kWsaEFault;
  }
  // A name that does not fit: glibc says ENAMETOOLONG, Windows WSAEFAULT.
  if (errno == ENAMETOOLONG || errno == EINVAL) return kWsaEFault;
  return SocketErrorCode(errno);
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
