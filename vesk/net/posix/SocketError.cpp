#include <errno.h>

#include "vesk/net/internal/SocketError.h"
#include "vesk/platform/SystemError.h"

namespace vesk {
namespace net {
namespace internal {

namespace {

struct CodePair {
  int host;
  unsigned int wsa;
};

// errno values and the Windows Sockets numbers a Windows build reports for
// the same condition.
const CodePair kCodes[] = {
    {EINTR, 10004},           {EACCES, 10013},        {EFAULT, 10014},
    {EINVAL, 10022},          {EMFILE, 10024},       {EWOULDBLOCK, 10035},   {EINPROGRESS, 10036},
    {EALREADY, 10037},        {ENOTSOCK, 10038},     {EDESTADDRREQ, 10039},  {EMSGSIZE, 10040},
    {EPROTOTYPE, 10041},      {ENOPROTOOPT, 10042},  {EPROTONOSUPPORT, 10043},
    {ESOCKTNOSUPPORT, 10044}, {EOPNOTSUPP, 10045},   {EPFNOSUPPORT, 10046},  {EAFNOSUPPORT, 10047},
    {EADDRINUSE, 10048},      {EADDRNOTAVAIL, 10049}, {ENETDOWN, 10050},     {ENETUNREACH, 10051},
    {ENETRESET, 10052},       {ECONNABORTED, 10053}, {ECONNRESET, 10054},    {ENOBUFS, 10055},
    {EISCONN, 10056},         {ENOTCONN, 10057},     {ESHUTDOWN, 10058},     {ETOOMANYREFS, 10059},
    {ETIMEDOUT, 10060},       {ECONNREFUSED, 10061}, {ELOOP, 10062},         {ENAMETOOLONG, 10063},
    {EHOSTDOWN, 10064},       {EHOSTUNREACH, 10065}, {ENOTEMPTY, 10066},     {EUSERS, 10068},
    {EDQUOT, 10069},          {ESTALE, 10070},       {EREMOTE, 10071},
    // Sending on a connection the peer has reset: Windows answers
    // WSAECONNRESET where POSIX says EPIPE; no memory is WSAENOBUFS.
    {EPIPE, 10054},           {ENOMEM, 10055},
    // A closed descriptor: Windows reports the invalid handle as WSAENOTSOCK.
    {EBADF, 10038},
};

}  // namespace

unsigned int SocketErrorCode(int hostCode) {
  for (const CodePair& pair : kCodes) {
    if (pair.host == hostCode) return pair.wsa;
  }
  return static_cast<unsigned int>(hostCode);
}

bool SocketErrorText(unsigned int code, char* buffer, std::size_t size) {
  int host = static_cast<int>(code);
  for (const CodePair& pair : kCodes) {
    if (pair.wsa == code) {
      host = pair.host;
      break;
    }
  }
  return platform::SystemErrorText(static_cast<unsigned long>(host), buffer, size);
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
