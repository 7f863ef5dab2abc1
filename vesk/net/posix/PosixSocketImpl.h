/// \file
/// CPosixSocketImpl: an IPv4 TCP socket of the POSIX host, with the socket's
/// input and output streams. Not installed.
#ifndef VESK_NET_POSIX_POSIXSOCKETIMPL_H
#define VESK_NET_POSIX_POSIXSOCKETIMPL_H

#include <netinet/in.h>

#include <atomic>

#include "vesk/io/InputStream.h"
#include "vesk/io/OutputStream.h"
#include "vesk/net/SocketImpl.h"

namespace vesk {
namespace net {
namespace posix {

/// The descriptor is created close-on-exec; sends never raise SIGPIPE; waits
/// use poll, so descriptors beyond FD_SETSIZE work.
class VESK_API CPosixSocketImpl : public CSocketImpl {
  VESK_DECLARE_CLASS(CPosixSocketImpl);

  CPosixSocketImpl();
  ~CPosixSocketImpl() override;

  void Create() override;
  void Bind(const CInetAddress& address, unsigned short port) override;
  void Connect(const CInetAddress& address, unsigned short port) override;
  void Listen(unsigned int backlog) override;
  void Accept(CSocketImpl& accepted, unsigned int timeout) override;
  bool IsPending() override;
  unsigned int GetAvailable() const override;
  void Close() override;
  bool GetBoolOption(unsigned int id) const override;
  void SetBoolOption(unsigned int id, bool value) override;
  int GetIntOption(unsigned int id) const override;
  void SetIntOption(unsigned int id, int value) override;
  vesk::io::CInputStream* GetInputStream() override { return &m_input; }
  vesk::io::COutputStream* GetOutputStream() override { return &m_output; }

 private:
  /// Holds the descriptor for the length of one call. A Close on another
  /// thread meanwhile wakes the call, and the descriptor is closed only once
  /// no call holds it, so its number is never reused under a running call.
  class CUse {
   public:
    explicit CUse(const CPosixSocketImpl& impl);
    ~CUse();
    /// The descriptor, -1 when the socket is closed.
    int Handle() const { return m_handle; }

   private:
    CUse(const CUse&);
    CUse& operator=(const CUse&);
    const CPosixSocketImpl& m_impl;
    int m_handle;
  };

  /// Reads with the owner's time-out; 0 once the peer has closed.
  class CInput : public vesk::io::CInputStream {
   public:
    explicit CInput(CPosixSocketImpl& owner) : m_owner(owner) {}
    unsigned int GetAvailable() const override { return m_owner.GetAvailable(); }
    int Read(char* buffer, unsigned int offset, unsigned int length) override;
    int Read() override;
    void Reset() override;
    void Close() override { m_owner.Close(); }

   private:
    CPosixSocketImpl& m_owner;
  };

  /// Sends every byte of each write before returning.
  class COutput : public vesk::io::COutputStream {
   public:
    explicit COutput(CPosixSocketImpl& owner) : m_owner(owner) {}
    void Write(const char* buffer, unsigned int offset, unsigned int length) override;
    void Write(const char* buffer, unsigned int length) override { Write(buffer, 0, length); }
    void Write(char byte) override { Write(&byte, 0, 1); }
    void Flush() override {}
    void Close() override { m_owner.Close(); }

   private:
    CPosixSocketImpl& m_owner;
  };

  /// Wakes the calls on handle and closes it, at once or, while calls hold
  /// it, when the last one leaves. False when closing at once failed.
  bool Retire(int handle);
  void ReadLocalAddress(int handle);

  std::atomic<int> m_handle;
  mutable std::atomic<int> m_users;    // calls holding the descriptor
  mutable std::atomic<int> m_closing;  // a descriptor the last of them closes, or -1
  sockaddr_in m_remote;
  CInput m_input;
  COutput m_output;
};

}  // namespace posix
}  // namespace net
}  // namespace vesk

#endif
