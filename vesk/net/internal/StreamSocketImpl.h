/// \file
/// CStreamSocketImpl: the IPv4 TCP socket of every host, with the socket's
/// input and output streams, built on the host's calls of SocketHost.h.
/// Each host derives its named implementation from it. Not installed.
#ifndef VESK_NET_INTERNAL_STREAMSOCKETIMPL_H
#define VESK_NET_INTERNAL_STREAMSOCKETIMPL_H

#include <atomic>

#include "vesk/io/InputStream.h"
#include "vesk/io/OutputStream.h"
#include "vesk/net/SocketImpl.h"
#include "vesk/net/internal/SocketHost.h"

namespace vesk {
namespace net {
namespace internal {

/// Every failure is reported with the Windows Sockets number of the host's
/// failure; every time-out keeps the t / 1000 s plus t % 1000 us arithmetic
/// of CSocketImpl and never ends early.
class VESK_API CStreamSocketImpl : public CSocketImpl {
 public:
  ~CStreamSocketImpl() override;

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

 protected:
  CStreamSocketImpl();

 private:
  /// Holds the handle for the length of one call. A Close on another thread
  /// meanwhile wakes the call, and the handle is closed only once no call
  /// holds it, so its number is never reused under a running call.
  class CUse {
   public:
    explicit CUse(const CStreamSocketImpl& impl);
    ~CUse();
    /// The handle, kNoSocket when the socket is closed.
    SocketHandle Handle() const { return m_handle; }
    /// Whether another call closed the socket after this one took it.
    bool ClosedMeanwhile() const { return m_handle != kNoSocket && m_impl.m_handle.load() != m_handle; }

   private:
    CUse(const CUse&);
    CUse& operator=(const CUse&);
    const CStreamSocketImpl& m_impl;
    SocketHandle m_handle;
  };

  /// Reads with the owner's time-out; 0 once the peer has closed.
  class CInput : public vesk::io::CInputStream {
   public:
    explicit CInput(CStreamSocketImpl& owner) : m_owner(owner) {}
    unsigned int GetAvailable() const override { return m_owner.GetAvailable(); }
    int Read(char* buffer, unsigned int offset, unsigned int length) override;
    int Read() override;
    void Reset() override;
    void Close() override { m_owner.Close(); }

   private:
    CStreamSocketImpl& m_owner;
  };

  /// Sends every byte of each write before returning.
  class COutput : public vesk::io::COutputStream {
   public:
    explicit COutput(CStreamSocketImpl& owner) : m_owner(owner) {}
    void Write(const char* buffer, unsigned int offset, unsigned int length) override;
    void Write(const char* buffer, unsigned int length) override { Write(buffer, 0, length); }
    void Write(char byte) override { Write(&byte, 0, 1); }
    void Flush() override {}
    void Close() override { m_owner.Close(); }

   private:
    CStreamSocketImpl& m_owner;
  };

  /// Wakes the calls on handle and closes it, at once or, while calls hold
  /// it, when the last one leaves. False when closing at once failed.
  bool Retire(SocketHandle handle);
  void ReadLocalAddress(SocketHandle handle);

  std::atomic<SocketHandle> m_handle;
  mutable std::atomic<int> m_users;             // calls holding the handle
  mutable std::atomic<SocketHandle> m_closing;  // a handle the last of them closes, or kNoSocket
  CInput m_input;
  COutput m_output;
};

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
