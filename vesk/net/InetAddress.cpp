#include "vesk/net/InetAddress.h"

#include <cstring>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/net/UnknownHostException.h"
#include "vesk/net/internal/HostLookup.h"
#include "vesk/net/internal/SocketError.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace net {

namespace {
const char* const kSource = "vesk/net/InetAddress";
const unsigned char kAnyAddress[4] = {0, 0, 0, 0};

// Frees a heap name buffer on every way out.
struct HeapText {
  char* text = nullptr;
  ~HeapText() { platform::Free(text); }
};
}  // namespace

const CInetAddress CInetAddress::AnyInetAddress(kAnyAddress);

CInetAddress::CInetAddress(const unsigned char* address) : m_nameLookedUp(false) {
  if (!address) VESK_THROW(kSource, base::CIllegalArgumentException, "Invalid IPv4 address.");
  std::memcpy(m_address, address, sizeof m_address);
}

CInetAddress::CInetAddress(const CInetAddress& other)
    : CBase(other), m_hostName(other.m_hostName), m_nameLookedUp(other.m_nameLookedUp) {
  std::memcpy(m_address, other.m_address, sizeof m_address);
}

CInetAddress& CInetAddress::operator=(const CInetAddress& other) {
  m_hostName = other.m_hostName;
  m_nameLookedUp = other.m_nameLookedUp;
  std::memcpy(m_address, other.m_address, sizeof m_address);
  return *this;
}

CInetAddress::~CInetAddress() {}

bool CInetAddress::operator==(const CInetAddress& other) const {
  return std::memcmp(m_address, other.m_address, sizeof m_address) == 0;
}

// 240 is included on purpose: callers rely on this bound.
bool CInetAddress::IsMulticastAddress() const { return m_address[0] >= 224 && m_address[0] <= 240; }

base::CString CInetAddress::GetHostAddress() const {
  base::CString text;
  text.Format("%u.%u.%u.%u", m_address[0], m_address[1], m_address[2], m_address[3]);
  return text;
}

base::CString CInetAddress::GetHostName() const {
  if (!m_nameLookedUp) {
    internal::LookupHostName(m_address, m_hostName);
    m_nameLookedUp = true;
  }
  return m_hostName;
}

CInetAddress CInetAddress::GetByName(const char* host) {
  if (!host || !*host) VESK_THROW(kSource, base::CIllegalArgumentException, "Invalid host name.");
  unsigned char address[4];
  if (!internal::LookupHostAddress(host, address)) VESK_THROW(kSource, CUnknownHostException, host);
  return CInetAddress(address);
}

CInetAddress CInetAddress::GetLocalHost() {
  char name[1024];
  unsigned int error = internal::LocalHostName(name, sizeof name);
  if (error == 0) return GetByName(name);
  if (error != internal::kWsaEFault) VESK_THROW(kSource, CUnknownHostException, "localhost");
  // The name did not fit: retry on the heap, doubling while it still does not.
  HeapText heap;
  for (unsigned int size = 2048;; size *= 2) {
    platform::Free(heap.text);
    heap.text = nullptr;
    if (size == 0) VESK_THROW(kSource, base::CMemoryException);
    heap.text = static_cast<char*>(platform::Alloc(size));
    if (!heap.text) VESK_THROW(kSource, base::CMemoryException);
    error = internal::LocalHostName(heap.text, size);
    if (error == 0) return GetByName(heap.text);
    if (error != internal::kWsaEFault) VESK_THROW(kSource, CUnknownHostException, "localhost");
  }
}

}  // namespace net
}  // namespace vesk
