#include "vesk/net/Socket.h"

#include "vesk/io/IOException.h"
#include "vesk/net/internal/SocketFactory.h"

namespace vesk {
namespace net {

CSocket::CSocket(const char* host, unsigned short port) { Open(host, nullptr, port, nullptr, 0); }

CSocket::CSocket(const CInetAddress& address, unsigned short port) { Open(nullptr, &address, port, nullptr, 0); }

CSocket::CSocket(const char* host, unsigned short port, const CInetAddress& localAddress,
                 unsigned short localPort) {
  Open(host, nullptr, port, &localAddress, localPort);
}

CSocket::CSocket(const CInetAddress& address, unsigned short port, const CInetAddress& localAddress,
                 unsigned short localPort) {
  Open(nullptr, &address, port, &localAddress, localPort);
}

CSocket::CSocket(const base::CRef<CSocketImpl>& impl) : m_impl(impl) {}

CSocket::CSocket(const CSocket& other) : CBase(other), m_impl(other.m_impl) {}

CSocket& CSocket::operator=(const CSocket& other) {
  m_impl = other.m_impl;
  return *this;
}

CSocket::~CSocket() {}

void CSocket::Open(const char* host, const CInetAddress* address, unsigned short port,
                   const CInetAddress* localAddress, unsigned short localPort) {
  m_impl = internal::ProcessSocketFactory().CreateSocketImpl();
  try {
    m_impl->Create();
    CInetAddress remote = host ? CInetAddress::GetByName(host) : *address;
    if (localAddress) m_impl->Bind(*localAddress, localPort);
    m_impl->Connect(remote, port);
  } catch (const io::CIOException&) {
    try {
      m_impl->Close();
    } catch (const base::CException&) {
      // the failure that ended the construction is the one to report
    }
    throw;
  }
}

base::CRef<CInetAddress> CSocket::GetInetAddress() const { return m_impl->GetInetAddress(); }

unsigned short CSocket::GetPort() const { return m_impl->GetPort(); }

base::CRef<CInetAddress> CSocket::GetLocalInetAddress() const { return m_impl->GetLocalInetAddress(); }

unsigned short CSocket::GetLocalPort() const { return m_impl->GetLocalPort(); }

unsigned int CSocket::GetTimeout() const { return m_impl->GetTimeout(); }

void CSocket::SetTimeout(unsigned int timeout) { m_impl->SetTimeout(timeout); }

bool CSocket::GetKeepAlive() const { return m_impl->GetBoolOption(CSocketImpl::OptionKeepAlive); }

void CSocket::SetKeepAlive(bool on) { m_impl->SetBoolOption(CSocketImpl::OptionKeepAlive, on); }

bool CSocket::GetOOBInline() const { return m_impl->GetBoolOption(CSocketImpl::OptionOOBInline); }

void CSocket::SetOOBInline(bool on) { m_impl->SetBoolOption(CSocketImpl::OptionOOBInline, on); }

bool CSocket::GetReuseAddress() const { return m_impl->GetBoolOption(CSocketImpl::OptionReuseAddress); }

void CSocket::SetReuseAddress(bool on) { m_impl->SetBoolOption(CSocketImpl::OptionReuseAddress, on); }

bool CSocket::GetTCPNoDelay() const { return m_impl->GetBoolOption(CSocketImpl::OptionTCPNoDelay); }

void CSocket::SetTCPNoDelay(bool on) { m_impl->SetBoolOption(CSocketImpl::OptionTCPNoDelay, on); }

io::CInputStream* CSocket::GetInputStream() { return m_impl->GetInputStream(); }

io::COutputStream* CSocket::GetOutputStream() { return m_impl->GetOutputStream(); }

void CSocket::Close() { m_impl->Close(); }

}  // namespace net
}  // namespace vesk
