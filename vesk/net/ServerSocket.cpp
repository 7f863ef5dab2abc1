#include "vesk/net/ServerSocket.h"

#include "vesk/net/internal/SocketFactory.h"

namespace vesk {
namespace net {

CServerSocket::CServerSocket(unsigned short port, unsigned int backlog, const CInetAddress& bindAddress)
    : m_impl(internal::ProcessSocketFactory().CreateSocketImpl()) {
  // A failure leaves the last handle to the implementation, which closes it.
  m_impl->Create();
  m_impl->Bind(bindAddress, port);
  m_impl->Listen(backlog);
}

CServerSocket::CServerSocket(const CServerSocket& other) : CBase(other), m_impl(other.m_impl) {}

CServerSocket& CServerSocket::operator=(const CServerSocket& other) {
  m_impl = other.m_impl;
  return *this;
}

CServerSocket::~CServerSocket() {}

base::CRef<CSocket> CServerSocket::Accept() { return Accept(m_impl->GetTimeout()); }

base::CRef<CSocket> CServerSocket::Accept(unsigned int timeout) {
  // The implementation exists before the connection is taken, so running
  // out of memory never strands an accepted descriptor.
  base::CRef<CSocketImpl> accepted = internal::ProcessSocketFactory().CreateSocketImpl();
  m_impl->Accept(*accepted, timeout);
  return base::CRef<CSocket>(VESK_NEW CSocket(accepted));
}

bool CServerSocket::IsPending() { return m_impl->IsPending(); }

base::CRef<CInetAddress> CServerSocket::GetInetAddress() const { return m_impl->GetLocalInetAddress(); }

unsigned short CServerSocket::GetLocalPort() const { return m_impl->GetLocalPort(); }

unsigned int CServerSocket::GetTimeout() const { return m_impl->GetTimeout(); }

void CServerSocket::SetTimeout(unsigned int timeout) { m_impl->SetTimeout(timeout); }

void CServerSocket::Close() { m_impl->Close(); }

}  // namespace net
}  // namespace vesk
