// Addresses, sockets and their streams, both ends in this process.
#include <atomic>
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

using namespace vesk::net;
using vesk::base::CIllegalArgumentException;
using vesk::base::CRef;
using vesk::io::CInputStream;
using vesk::io::CInterruptedIOException;
using namespace vesk_test;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

const unsigned int kClosed = 10038;  // WSAENOTSOCK

/// A client and the server's end of it.
struct Pair {
  CServerSocket server = Listener();
  CSocket client{"127.0.0.1", server.GetLocalPort()};
  CRef<CSocket> accepted = server.Accept();
};

CRef<CSocketImpl> NewImpl() {
  CRef<CSocketImpl> impl = CTCPIPSocketImplFactory().CreateSocketImpl();
  impl->Create();
  return impl;
}

TEST(InetAddressTest, TextsClassesAndLookups) {
  EXPECT_STREQ(Loopback().GetHostAddress(), "127.0.0.1");
  EXPECT_STREQ(CInetAddress::AnyInetAddress.GetHostAddress(), "0.0.0.0");
  const unsigned char multicast[][4] = {{224, 0, 0, 1}, {240, 0, 0, 1}}, other[][4] = {{223, 255, 255, 255}, {241, 0, 0, 1}};
  for (auto& bytes : multicast) EXPECT_TRUE(CInetAddress(bytes).IsMulticastAddress()) << int(bytes[0]);
  for (auto& bytes : other) EXPECT_FALSE(CInetAddress(bytes).IsMulticastAddress()) << int(bytes[0]);
  ExpectThrow<CIllegalArgumentException>([] { CInetAddress(nullptr); }, "Invalid IPv4 address.", "vesk/net/InetAddress");
  EXPECT_TRUE(Loopback() != CInetAddress::AnyInetAddress);

  EXPECT_TRUE(CInetAddress::GetByName("localhost") == Loopback());
  EXPECT_STREQ(Loopback().GetHostName(), "localhost");
  for (const char* host : {"", static_cast<const char*>(nullptr)}) {
    ExpectThrow<CIllegalArgumentException>([host] { CInetAddress::GetByName(host); }, "Invalid host name.",
                                           "vesk/net/InetAddress");
  }
  try {
    CInetAddress::GetByName("no-such-host.invalid");
    ADD_FAILURE() << "resolved a name in .invalid";
  } catch (const CUnknownHostException& e) {
    EXPECT_STREQ(e.GetHostName(), "no-such-host.invalid");
  }
  char name[256] = {};
  gethostname(name, sizeof name - 1);
  EXPECT_TRUE(CInetAddress::GetLocalHost() == CInetAddress::GetByName(name));
}

TEST(SocketTest, ExchangeAndClose) {
  Pair pair;
  // Each end knows the other's address and port; addresses are shared.
  EXPECT_TRUE(*pair.server.GetInetAddress() == Loopback());
  EXPECT_EQ(pair.client.GetPort(), pair.server.GetLocalPort());
  EXPECT_EQ(pair.accepted->GetPort(), pair.client.GetLocalPort());
  EXPECT_EQ(pair.accepted->GetLocalPort(), pair.server.GetLocalPort());
  EXPECT_TRUE(*pair.accepted->GetInetAddress() == *pair.client.GetLocalInetAddress());
  EXPECT_EQ(pair.client.GetInetAddress().Get(), pair.client.GetInetAddress().Get());

  WriteAll(pair.client.GetOutputStream(), "hello");
  pair.client.GetOutputStream()->Write('!');
  EXPECT_EQ(ReadExactly(pair.accepted->GetInputStream(), 6), "hello!");
  pair.accepted->GetOutputStream()->Write("\xff\x01", 2);
  EXPECT_EQ(pair.client.GetInputStream()->Read(), -1) << "bytes come back sign-extended";
  EXPECT_EQ(pair.client.GetInputStream()->GetAvailable(), 1u) << "one write, one segment";
  EXPECT_EQ(pair.client.GetInputStream()->Read(), 1);
  EXPECT_EQ(pair.client.GetInputStream()->Read(nullptr, 0, 0), 0) << "0 bytes: the socket is not touched";
  ExpectThrow<vesk::io::CIOException>([&] { pair.client.GetInputStream()->Reset(); },
                                      "Socket input stream doesn't support the reset operation.", kImpl);

  // A copy is the same connection: closing it closes both, once.
  CSocket copy = *pair.accepted;
  EXPECT_TRUE(copy == *pair.accepted && copy != pair.client);
  copy.Close();
  pair.accepted->Close();
  char buffer[8];
  EXPECT_EQ(pair.client.GetInputStream()->Read(buffer, 8), 0) << "the peer's close reads as 0";
  EXPECT_EQ(pair.client.GetInputStream()->Read(), CInputStream::EOS);
  ExpectSocketError([&] { pair.accepted->GetOutputStream()->Write("x", 1); }, "Failed to send the specified data.",
                    kClosed);
  ExpectSocketError([&] { pair.accepted->GetInputStream()->Read(); },
                    "Failed to read the specified number of bytes from the socket input stream.", kClosed);
  struct CEmptySocket : CSocket {
    CEmptySocket() : CSocket(CRef<CSocketImpl>()) {}
  } empty;
  EXPECT_THROW(empty.GetPort(), vesk::base::CNullReferenceException);
}

TEST(SocketTest, ConnectAndBindFailures) {
  CServerSocket taken = Listener();
  unsigned short port = Listener().GetLocalPort();  // released at once
  ExpectSocketError([port] { CSocket refused("127.0.0.1", port); }, "Connect socket failed.", 10061);
  CRef<CSocketImpl> timed = NewImpl();
  timed->SetTimeout(2000);  // non-blocking connect: the refusal still counts
  ExpectSocketError([&] { timed->Connect(Loopback(), port); }, "connect failed.", 10061);
  EXPECT_THROW(CSocket("no-such-host.invalid", port), CUnknownHostException);
  ExpectSocketError([&] { CServerSocket again(taken.GetLocalPort(), 5, Loopback()); }, "Bind socket failed.", 10048);
  ExpectSocketError([&] { CSocket bound(Loopback(), taken.GetLocalPort(), Loopback(), taken.GetLocalPort()); },
                    "Bind socket failed.", 10048);
  CSocket bound(Loopback(), taken.GetLocalPort(), Loopback(), 0);
  EXPECT_EQ(taken.Accept()->GetPort(), bound.GetLocalPort());

  // Backlog 0 queues one connection; later handshakes go unanswered, and a
  // timed connect that runs out ends closed, without an exception.
  CServerSocket full = Listener(0);
  CSocket queued(Loopback(), full.GetLocalPort());
  timed = NewImpl();
  timed->SetTimeout(300);  // 300 microseconds
  timed->Connect(Loopback(), full.GetLocalPort());
  ExpectSocketError([&] { timed->GetAvailable(); }, "Failed to get the number of available on the socket.", kClosed);
}

TEST(SocketTest, Options) {
  Pair pair;
  using Get = bool (CSocket::*)() const;
  using Set = void (CSocket::*)(bool);
  const std::pair<Get, Set> flags[] = {{&CSocket::GetKeepAlive, &CSocket::SetKeepAlive},
                                       {&CSocket::GetOOBInline, &CSocket::SetOOBInline},
                                       {&CSocket::GetReuseAddress, &CSocket::SetReuseAddress},
                                       {&CSocket::GetTCPNoDelay, &CSocket::SetTCPNoDelay}};
  for (const auto& flag : flags) {
    for (bool on : {true, false}) {
      (pair.client.*flag.second)(on);
      EXPECT_EQ((pair.client.*flag.first)(), on);
    }
  }
  CRef<CSocketImpl> impl = NewImpl();
  EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionLinger), -1) << "off";
  for (int seconds : {7, 0}) {
    impl->SetIntOption(CSocketImpl::OptionLinger, seconds);
    EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionLinger), seconds ? seconds : -1);
  }
  impl->SetIntOption(CSocketImpl::OptionTypeOfService, 0x10);
  EXPECT_EQ(impl->GetIntOption(CSocketImpl::OptionTypeOfService), 0x10);
  impl->SetBoolOption(CSocketImpl::OptionBroadcast, true);
  EXPECT_TRUE(impl->GetBoolOption(CSocketImpl::OptionBroadcast));

  for (unsigned int id : {1u, 4u, 6u, 8u, 10u}) {
    ExpectThrow<CSocketException>([&] { impl->GetBoolOption(id); }, "The specified option is not a bool option.", kImpl);
    ExpectThrow<CSocketException>([&] { impl->SetBoolOption(id, 1); }, "The specified option is not a bool option.");
  }
  for (unsigned int id : {0u, 3u, 9u, 10u}) {
    ExpectThrow<CSocketException>([&] { impl->GetIntOption(id); }, "The specified option is not an int option.", kImpl);
    ExpectThrow<CSocketException>([&] { impl->SetIntOption(id, 1); }, "The specified option is not an int option.");
  }
  impl->Close();
  ExpectSocketError([&] { impl->GetBoolOption(3); }, "Failed to get the specified option.", kClosed);
  ExpectSocketError([&] { impl->SetIntOption(4, 1); }, "Failed to set the specified option.", kClosed);
}

// A time-out of t ms waits t / 1000 s and t % 1000 MICROseconds.
TEST(SocketTest, TimeOutsKeepTheirArithmetic) {
  Pair pair;
  pair.client.SetTimeout(1500);
  auto start = Clock::now();
  ExpectThrow<CInterruptedIOException>([&] { pair.client.GetInputStream()->Read(); }, "Read timed-out.", kImpl);
  EXPECT_GE(Clock::now() - start, std::chrono::microseconds(1000500));
  // Upper bounds only tell the arithmetic apart from milliseconds (1.5 s,
  // 400 ms), with room for a loaded machine.
  EXPECT_LT(Clock::now() - start, milliseconds(1400));

  pair.server.SetTimeout(400);
  start = Clock::now();
  ExpectThrow<CInterruptedIOException>([&] { pair.server.Accept(); }, "Accept timed-out.", kImpl);
  ExpectThrow<CInterruptedIOException>([&] { pair.server.Accept(30); }, "Accept timed-out.", kImpl);
  EXPECT_LT(Clock::now() - start, milliseconds(300));
}

TEST(SocketTest, BlockingWaitsEndWhenTheyShould) {
  Pair pair, timed;
  timed.client.SetTimeout(20000);
  // Each Close comes 50 ms after the main thread has gone to the call it
  // wakes, however late a loaded machine lets that thread run.
  std::atomic<int> entered{0};
  auto after = [&](int call) {
    while (entered < call) std::this_thread::yield();
    std::this_thread::sleep_for(milliseconds(50));
  };
  std::thread late([&] {
    std::this_thread::sleep_for(milliseconds(150));
    CSocket client(Loopback(), pair.server.GetLocalPort());
    after(1);
    pair.server.Close();  // wakes the Accept below
    after(2);
    pair.client.Close();  // wakes the read below
    after(3);
    timed.client.Close();  // wakes the timed read, whose peer is still there
  });
  auto start = Clock::now();
  EXPECT_TRUE(pair.server.IsPending());  // no time-out: waits for the client
  EXPECT_GE(Clock::now() - start, milliseconds(140));
  pair.server.Accept();
  entered = 1;
  EXPECT_THROW(pair.server.Accept(), CSocketException);
  entered = 2;
  EXPECT_EQ(pair.client.GetInputStream()->Read(), CInputStream::EOS);
  entered = 3;
  EXPECT_EQ(timed.client.GetInputStream()->Read(), CInputStream::EOS);
  late.join();
  ExpectSocketError([&] { pair.server.IsPending(); }, "Failed to determine if there are pending connection requests.",
                    kClosed);
}

TEST(SocketTest, AllocationFailuresLeakNothing) {
  CServerSocket server = Listener();
  int descriptors = OpenHandles();
  int failures = vesk::testing::FailEachAllocationInTurn([&] {
    CSocket client(Loopback(), server.GetLocalPort());
    server.Accept(5000)->GetInetAddress()->GetHostAddress();
  });
  EXPECT_GE(failures, 6);
  try {
    for (;;) server.Accept(1);  // connections whose client failed late
  } catch (const CInterruptedIOException&) {
  }
  EXPECT_EQ(OpenHandles(), descriptors);
}

}  // namespace
