// Addresses, sockets and their streams between two ends in this process.
#include <chrono>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "../io/TestStreams.h"
#include "SocketTestSupport.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/io/InterruptedIOException.h"
#include "vesk/net/TCPIPSocketImplFactory.h"
#include "vesk/net/UnknownHostException.h"
#include "vesk/net/internal/WinSocketException.h"

using namespace vesk::net;
using vesk::base::CRef;
using vesk::io::CInterruptedIOException;
using vesk::io::CIOException;
using vesk_test::ExpectThrow;
using vesk_test::Listener;
using vesk_test::Loopback;
using vesk_test::ReadExactly;
using vesk_test::WriteAll;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using std::chrono::milliseconds;

const char kImpl[] = "vesk/net/WinSocketImpl";

/// Expects op to throw CWinSocketException with that description and code.
template <class F>
void ExpectSocketError(F op, const char* description, unsigned int code) {
  try {
    op();
    ADD_FAILURE() << "no exception, expected \"" << description << "\"";
  } catch (const CWinSocketException& e) {
    EXPECT_STREQ(e.GetErrorDescription(), description);
    EXPECT_STREQ(e.GetSourceFile(), kImpl);
    EXPECT_EQ(e.GetErrorCode(), code);
    EXPECT_NE(e.GetMessage(), nullptr) << "the host's text for the code";
  }
}

/// A connected pair: a client and the server's end of it.
struct Pair {
  CServerSocket server = Listener();
  CSocket client{"127.0.0.1", server.GetLocalPort()};
  CRef<CSocket> accepted = server.Accept();
};

CRef<CSocketImpl> NewImpl() {
  CTCPIPSocketImplFactory factory;
  CRef<CSocketImpl> impl = factory.CreateSocketImpl();
  impl->Create();
  return impl;
}

/// A port nobody listens on: bound once, then released.
unsigned short ClosedPort() {
  CServerSocket probe = Listener();
  unsigned short port = probe.GetLocalPort();
  probe.Close();
  return port;
}

TEST(InetAddressTest, TextsAndClasses) {
  EXPECT_STREQ(Loopback().GetHostAddress(), "127.0.0.1");
  EXPECT_STREQ(CInetAddress::AnyInetAddress.GetHostAddress(), "0.0.0.0");
  const struct {
    unsigned char first;
    bool multicast;
  } rows[] = {{224, true}, {240, true}, {223, false}, {241, false}};
  for (const auto& row : rows) {
    const unsigned char bytes[4] = {row.first, static_cast<unsigned char>(row.first == 223 ? 255 : 0), 0, 1};
    EXPECT_EQ(CInetAddress(bytes).IsMulticastAddress(), row.multicast) << int(row.first);
  }
  ExpectThrow<vesk::base::CIllegalArgumentException>([] { CInetAddress bad(nullptr); }, "Invalid IPv4 address.",
                                                     "vesk/net/InetAddress");
  CInetAddress copy = Loopback();
  EXPECT_TRUE(copy == Loopback());
  EXPECT_TRUE(copy != CInetAddress::AnyInetAddress);
}

TEST(InetAddressTest, Lookups) {
  EXPECT_TRUE(CInetAddress::GetByName("127.0.0.1") == Loopback());
  EXPECT_TRUE(CInetAddress::GetByName("localhost") == Loopback());
  EXPECT_STREQ(Loopback().GetHostName(), "localhost");
  for (const char* host : {"", static_cast<const char*>(nullptr)}) {
    ExpectThrow<vesk::base::CIllegalArgumentException>([host] { CInetAddress::GetByName(host); },
                                                       "Invalid host name.", "vesk/net/InetAddress");
  }
  try {
    CInetAddress::GetByName("no-such-host.invalid");
    ADD_FAILURE() << "resolved a name in .invalid";
  } catch (const CUnknownHostException& e) {
    EXPECT_STREQ(e.GetHostName(), "no-such-host.invalid");
    EXPECT_STREQ(e.GetErrorDescription(), "Unknown host name.");
  }
  char name[256] = {};
  gethostname(name, sizeof name - 1);
  EXPECT_TRUE(CInetAddress::GetLocalHost() == CInetAddress::GetByName(name));
}

TEST(SocketTest, ConnectAcceptAndExchange) {
  Pair pair;
  EXPECT_NE(pair.server.GetLocalPort(), 0);
  EXPECT_TRUE(*pair.server.GetInetAddress() == Loopback());
  // Each end knows the other's port and address.
  EXPECT_EQ(pair.client.GetPort(), pair.server.GetLocalPort());
  EXPECT_EQ(pair.accepted->GetPort(), pair.client.GetLocalPort());
  EXPECT_EQ(pair.accepted->GetLocalPort(), pair.server.GetLocalPort());
  EXPECT_STREQ(pair.accepted->GetInetAddress()->GetHostAddress(), "127.0.0.1");
  EXPECT_STREQ(pair.client.GetLocalInetAddress()->GetHostAddress(), "127.0.0.1");
  EXPECT_EQ(pair.client.GetInetAddress().Get(), pair.client.GetInetAddress().Get()) << "shared, not copied";

  WriteAll(pair.client.GetOutputStream(), "hello");
  pair.client.GetOutputStream()->Write('!');
  EXPECT_EQ(ReadExactly(pair.accepted->GetInputStream(), 6), "hello!");
  pair.accepted->GetOutputStream()->Write("\xff", 1);
  EXPECT_EQ(pair.client.GetInputStream()->Read(), -1) << "bytes come back sign-extended";
  char none[1];
  EXPECT_EQ(pair.client.GetInputStream()->Read(none, 0, 0), 0);
  WriteAll(pair.client.GetOutputStream(), "12345");
  for (int i = 0; i < 100 && pair.accepted->GetInputStream()->GetAvailable() < 5; ++i) {
    std::this_thread::sleep_for(milliseconds(2));
  }
  EXPECT_EQ(pair.accepted->GetInputStream()->GetAvailable(), 5u);
  EXPECT_EQ(ReadExactly(pair.accepted->GetInputStream(), 5), "12345");
  ExpectThrow<CIOException>([&] { pair.client.GetInputStream()->Reset(); },
                            "Socket input stream doesn't support the reset operation.", kImpl);

  // The peer's close reads as 0 from the array read and EOS from Read().
  pair.accepted->Close();
  EXPECT_EQ(ReadExactly(pair.client.GetInputStream(), 1), "");
  char buffer[8];
  EXPECT_EQ(pair.client.GetInputStream()->Read(buffer, 8), 0);
  EXPECT_EQ(pair.client.GetInputStream()->Read(), vesk::io::CInputStream::EOS);
}

TEST(SocketTest, CopiesShareOneConnection) {
  Pair pair;
  CSocket copy = pair.client;
  EXPECT_TRUE(copy == pair.client);
  EXPECT_TRUE(copy != *pair.accepted);
  EXPECT_EQ(copy.GetInputStream(), pair.client.GetInputStream());
  copy.Close();
  pair.client.Close();  // closing again does nothing
  ExpectSocketError([&] { pair.client.GetOutputStream()->Write("x", 1); }, "Failed to send the specified data.",
                    10038);
  ExpectSocketError([&] { pair.client.GetInputStream()->Read(); },
                    "Failed to read the specified number of bytes from the socket input stream.", 10038);

  struct CEmptySocket : CSocket {
    CEmptySocket() : CSocket(CRef<CSocketImpl>()) {}
  } empty;
  EXPECT_THROW(empty.GetPort(), vesk::base::CNullReferenceException);
  EXPECT_THROW(empty.Close(), vesk::base::CNullReferenceException);
}

TEST(SocketTest, ConnectAndBindFailures) {
  unsigned short port = ClosedPort();
  ExpectSocketError([port] { CSocket refused("127.0.0.1", port); }, "Connect socket failed.", 10061);
  // With a time-out the connect runs non-blocking; a refusal is still an error.
  CRef<CSocketImpl> timed = NewImpl();
  timed->SetTimeout(2000);
  ExpectSocketError([&] { timed->Connect(Loopback(), port); }, "connect failed.", 10061);
  EXPECT_THROW(CSocket("no-such-host.invalid", port), CUnknownHostException);

  CServerSocket taken = Listener();
  ExpectSocketError([&] { CServerSocket again(taken.GetLocalPort(), 5, Loopback()); }, "Bind socket failed.", 10048);
  ExpectSocketError([&] { CSocket bound(Loopback(), taken.GetLocalPort(), Loopback(), taken.GetLocalPort()); },
                    "Bind socket failed.", 10048);
  // A client bound to a port of its choice keeps it.
  CSocket bound(Loopback(), taken.GetLocalPort(), Loopback(), 0);
  EXPECT_NE(bound.GetLocalPort(), 0);
  EXPECT_EQ(taken.Accept()->GetPort(), bound.GetLocalPort());
}

TEST(SocketTest, TimedConnectThatRunsOutEndsClosedWithoutException) {
  // Backlog 0 queues one connection; the handshakes after it go unanswered.
  CServerSocket full = Listener(0);
  CSocket queued(Loopback(), full.GetLocalPort());
  CRef<CSocketImpl> timed = NewImpl();
  timed->SetTimeout(300);  // 300 microseconds
  timed->Connect(Loopback(), full.GetLocalPort());
  EXPECT_EQ(timed->GetPort(), full.GetLocalPort());
  ExpectSocketError([&] { timed->GetAvailable(); }, "Failed to get the number of available on the socket.", 10038);
}

TEST(SocketTest, Options) {
  Pair pair;
  using Get = bool (CSocket::*)() const;
  using Set = void (CSocket::*)(bool);
  const struct {
    Get get;
    Set set;
  } flags[] = {{&CSocket::GetKeepAlive, &CSocket::SetKeepAlive},
               {&CSocket::GetOOBInline, &CSocket::SetOOBInline},
               {&CSocket::GetReuseAddress, &CSocket::SetReuseAddress},
               {&CSocket::GetTCPNoDelay, &CSocket::SetTCPNoDelay}};
  for (const auto& flag : flags) {
    for (bool on : {true, false}) {
      (pair.client.*flag.set)(on);
      EXPECT_EQ((pair.client.*flag.get)(), on);
    }
  }

  CRef<CSocketImpl> impl = NewImpl();
  EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionLinger), -1) << "off";
  impl->SetIntOption(CSocketImpl::OptionLinger, 7);
  EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionLinger), 7);
  impl->SetIntOption(CSocketImpl::OptionLinger, 0);
  EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionLinger), -1);
  impl->SetIntOption(CSocketImpl::OptionTypeOfService, 0x10);
  EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionTypeOfService), 0x10);
  impl->SetBoolOption(CSocketImpl::OptionBroadcast, true);
  EXPECT_TRUE(impl->GetBoolOption(CSocketImpl::OptionBroadcast));
  EXPECT_GT(impl->GetIntOption(CSocketImpl::OptionSendBuffer), 0);

  const char* notBool = "The specified option is not a bool option.";
  const char* notInt = "The specified option is not an int option.";
  for (unsigned int id : {1u, 4u, 6u, 8u, 10u}) {
    ExpectThrow<CSocketException>([&] { impl->GetBoolOption(id); }, notBool, kImpl);
    ExpectThrow<CSocketException>([&] { impl->SetBoolOption(id, true); }, notBool, kImpl);
  }
  for (unsigned int id : {0u, 3u, 9u, 10u, 0xFFFFFFFFu}) {
    ExpectThrow<CSocketException>([&] { impl->GetIntOption(id); }, notInt, kImpl);
    ExpectThrow<CSocketException>([&] { impl->SetIntOption(id, 1); }, notInt, kImpl);
  }
  impl->Close();
  ExpectSocketError([&] { impl->GetBoolOption(CSocketImpl::OptionKeepAlive); }, "Failed to get the specified option.",
                    10038);
  ExpectSocketError([&] { impl->SetIntOption(CSocketImpl::OptionLinger, 1); }, "Failed to set the specified option.",
                    10038);
}

// A time-out of t ms waits t / 1000 s and t % 1000 MICROseconds.
TEST(SocketTest, TimeOutsKeepTheirArithmetic) {
  Pair pair;
  pair.client.SetTimeout(1500);
  EXPECT_EQ(pair.client.GetTimeout(), 1500u);
  auto start = Clock::now();
  ExpectThrow<CInterruptedIOException>([&] { pair.client.GetInputStream()->Read(); }, "Read timed-out.", kImpl);
  auto waited = Clock::now() - start;
  EXPECT_GE(waited, microseconds(1000500));
  EXPECT_LT(waited, milliseconds(1040));

  pair.server.SetTimeout(400);  // 400 microseconds
  start = Clock::now();
  ExpectThrow<CInterruptedIOException>([&] { pair.server.Accept(); }, "Accept timed-out.", kImpl);
  ExpectThrow<CInterruptedIOException>([&] { pair.server.Accept(30); }, "Accept timed-out.", kImpl);
  EXPECT_LT(Clock::now() - start, milliseconds(40));

  // Data that is there is read at once, time-out or not.
  WriteAll(pair.accepted->GetOutputStream(), "ok");
  EXPECT_EQ(ReadExactly(pair.client.GetInputStream(), 2), "ok");
}

TEST(SocketTest, BlockingWaitsEndWhenTheyShould) {
  CServerSocket server = Listener();
  unsigned short port = server.GetLocalPort();
  std::thread late([port] {
    std::this_thread::sleep_for(milliseconds(150));
    CSocket client(Loopback(), port);
  });
  auto start = Clock::now();
  EXPECT_TRUE(server.IsPending());  // no time-out: waits for the client
  EXPECT_GE(Clock::now() - start, milliseconds(140));
  late.join();
  server.Accept();

  // Closing a listener wakes a thread blocked in Accept, and closing a
  // socket wakes a blocked reader.
  Pair pair;
  std::thread closer([&] {
    std::this_thread::sleep_for(milliseconds(50));
    server.Close();
    std::this_thread::sleep_for(milliseconds(50));
    pair.client.Close();
  });
  EXPECT_THROW(server.Accept(), CSocketException);
  EXPECT_EQ(pair.client.GetInputStream()->Read(), vesk::io::CInputStream::EOS);
  closer.join();
  ExpectSocketError([&] { server.IsPending(); }, "Failed to determine if there are pending connection requests.",
                    10038);
}

TEST(SocketTest, AllocationFailuresLeakNothing) {
  CServerSocket server = Listener();
  unsigned short port = server.GetLocalPort();
  int descriptors = vesk::testing::OpenDescriptors();
  int failures = vesk::testing::FailEachAllocationInTurn([&] {
    CSocket client(Loopback(), port);
    CRef<CSocket> accepted = server.Accept(5000);
    accepted->GetInetAddress()->GetHostAddress();
  });
  EXPECT_GE(failures, 6);
  // Connections whose client failed late wait in the backlog: take them.
  server.SetTimeout(1);
  try {
    for (;;) server.Accept();
  } catch (const CInterruptedIOException&) {
  }
  EXPECT_EQ(vesk::testing::OpenDescriptors(), descriptors);
}

}  // namespace
