#include <winsock2.h>
#include <ws2tcpip.h>

#include <cstring>

#include "vesk/net/internal/HostLookup.h"
#include "vesk/platform/Utf16.h"

namespace vesk {
namespace net {
namespace internal {

// Host names are narrow text in the ANSI code page; the lookups take and
// give them as UTF-16 (GetAddrInfoW, GetNameInfoW), so a name beyond ASCII
// reaches the resolver as it was written, whatever the code page. Both are
// thread safe, unlike gethostbyname and gethostbyaddr, which share one
// answer per thread.

bool LookupHostAddress(const char* host, unsigned char address[4]) {
  wchar_t wide[NI_MAXHOST];
  std::size_t units = platform::NarrowToUtf16(host, -1, nullptr, 0);
  if (units >= NI_MAXHOST) return false;  // longer than any host name
  platform::NarrowToUtf16(host, -1, reinterpret_cast<unsigned short*>(wide), units);
  wide[units] = L'\0';
  ADDRINFOW hints;
  std::memset(&hints, 0, sizeof hints);
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  ADDRINFOW* answer = nullptr;
  if (GetAddrInfoW(wide, nullptr, &hints, &answer) != 0 || !answer) return false;
  bool found = false;
  for (ADDRINFOW* entry = answer; entry && !found; entry = entry->ai_next) {
    if (entry->ai_family == AF_INET && entry->ai_addr) {
      std::memcpy(address, &reinterpret_cast<const sockaddr_in*>(entry->ai_addr)->sin_addr, 4);
      found = true;
    }
  }
  FreeAddrInfoW(answer);
  return found;
}

bool LookupHostName(const unsigned char address[4], base::CString& name) {
  sockaddr_in in;
  std::memset(&in, 0, sizeof in);
  in.sin_family = AF_INET;
  std::memcpy(&in.sin_addr, address, 4);
  wchar_t host[NI_MAXHOST];
  if (GetNameInfoW(reinterpret_cast<const sockaddr*>(&in), sizeof in, host, NI_MAXHOST, nullptr, 0,
                   NI_NAMEREQD) != 0) {
    return false;
  }
  // Narrow text in the ANSI code page: at most 3 bytes a unit, and the NUL.
  char narrow[NI_MAXHOST * 3 + 1];
  std::size_t bytes = platform::Utf16ToNarrow(reinterpret_cast<const unsigned short*>(host), -1, narrow,
                                              sizeof narrow - 1);
  narrow[bytes] = '\0';
  name = narrow;
  return true;
}

unsigned int LocalHostName(char* buffer, unsigned int size) {
  int length = size > 0x7FFFFFFFu ? 0x7FFFFFFF : static_cast<int>(size);
  if (gethostname(buffer, length) == 0) return 0;
  return static_cast<unsigned int>(WSAGetLastError());  // WSAEFAULT when it does not fit
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
