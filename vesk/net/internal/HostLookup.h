/// \file
/// Host name lookups of the sockets layer; each host supplies them (thread
/// safe) in its own folder. Not installed.
#ifndef VESK_NET_INTERNAL_HOSTLOOKUP_H
#define VESK_NET_INTERNAL_HOSTLOOKUP_H

#include "vesk/base/String.h"

namespace vesk {
namespace net {
namespace internal {

/// The first IPv4 address of host (a name or a dotted address); false when
/// the name does not resolve.
bool LookupHostAddress(const char* host, unsigned char address[4]);
/// The official name of an IPv4 address into name; false when the lookup
/// finds none (name is then untouched).
bool LookupHostName(const unsigned char address[4], base::CString& name);
/// This machine's host name into buffer; 0, or a Windows Sockets code
/// (kWsaEFault when the buffer is too small).
unsigned int LocalHostName(char* buffer, unsigned int size);

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
