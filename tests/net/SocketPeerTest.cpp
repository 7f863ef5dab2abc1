// Sockets against an independent user of the host's TCP stack: Python's
// socket module, as server and as client, over 127.0.0.1.
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "SocketTestSupport.h"
#include "vesk/net/internal/WinSocketException.h"

using namespace vesk::net;
using vesk::base::CRef;
using vesk::io::CInputStream;
using vesk_test::ReadExactly;

namespace {

// python3 -c <this> <mode> <argument>: a server prints its port first; a
// client connects to the port in <argument>. Nothing waits longer than 20 s.
const char kPeer[] = R"(
import os, socket, struct, sys
socket.setdefaulttimeout(20)
mode, arg = sys.argv[1], int(sys.argv[2])
if mode.endswith("server"):
    s = socket.socket()
    s.bind(("127.0.0.1", 0))
    s.listen(1)
    print(s.getsockname()[1], flush=True)
    c = s.accept()[0]
else:
    c = socket.create_connection(("127.0.0.1", arg))
if mode == "echo-server":  # echoes arg bytes, prints the count
    got = 0
    while got < arg:
        d = c.recv(65536)
        if not d:
            break
        c.sendall(d)
        got += len(d)
    print(got, flush=True)
elif mode == "reset-server":  # resets once a byte came
    c.recv(1)
    c.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
elif mode == "garbage-server":  # random bytes, their sum, gone
    data = os.urandom(200000)
    c.sendall(data)
    print(sum(data), flush=True)
elif mode == "half-close-client":  # sends, shuts its side, prints the reply
    c.sendall(bytes((i * 7) & 255 for i in range(300000)))
    c.shutdown(socket.SHUT_WR)
    print(c.makefile().read(), flush=True)
c.close()
)";

vesk::testing::PeerProcess Peer(const char* mode, unsigned long argument = 0) {
  setenv("VESK_PEER", kPeer, 1);
  return vesk::testing::PeerProcess(std::string("python3 -c \"$VESK_PEER\" ") + mode + " " +
                                    std::to_string(argument));
}

unsigned short PortOf(vesk::testing::PeerProcess& peer) {
  return static_cast<unsigned short>(std::stoi(peer.ReadLine()));
}

TEST(SocketPeerTest, EchoOfSeveralMegabytes) {
  const size_t size = 6 * 1024 * 1024 + 12345;
  auto peer = Peer("echo-server", size);
  CSocket client("127.0.0.1", PortOf(peer));
  std::string sent(size, '\0');
  for (size_t i = 0; i < size; ++i) sent[i] = static_cast<char>(i * 131 + i / 7);
  // Writes of mixed sizes from one thread while another reads the echo.
  std::thread writer([&] {
    for (size_t done = 0, piece = 1; done < size; done += piece, piece = piece * 3 % 200003 + 1) {
      if (piece > size - done) piece = size - done;
      client.GetOutputStream()->Write(sent.data(), static_cast<unsigned int>(done), static_cast<unsigned int>(piece));
    }
  });
  std::string echoed = ReadExactly(client.GetInputStream(), size);
  writer.join();
  EXPECT_TRUE(echoed == sent) << "echoed " << echoed.size() << " of " << size;
  EXPECT_EQ(peer.ReadLine(), std::to_string(size));
  EXPECT_EQ(client.GetInputStream()->Read(), CInputStream::EOS);
  EXPECT_EQ(peer.Wait(), 0);
}

TEST(SocketPeerTest, HalfClosedPeerStillGetsItsReply) {
  CServerSocket server = vesk_test::Listener();
  auto peer = Peer("half-close-client", server.GetLocalPort());
  CRef<CSocket> connection = server.Accept(20000);
  unsigned int count = 0, sum = 0, expected = 0;
  char buffer[4096];
  int n;
  while ((n = connection->GetInputStream()->Read(buffer, sizeof buffer)) > 0) {
    for (int i = 0; i < n; ++i) sum = sum * 31 + static_cast<unsigned char>(buffer[i]);
    count += static_cast<unsigned int>(n);
  }
  EXPECT_EQ(n, 0) << "the peer's half-close reads as 0";
  for (unsigned int i = 0; i < 300000; ++i) expected = expected * 31 + ((i * 7) & 255);
  vesk_test::WriteAll(connection->GetOutputStream(), std::to_string(count) + " " + std::to_string(sum));
  connection->Close();
  EXPECT_EQ(peer.ReadLine(), "300000 " + std::to_string(expected));
  EXPECT_EQ(peer.Wait(), 0);
}

TEST(SocketPeerTest, PeerThatResets) {
  auto peer = Peer("reset-server");
  CSocket client("127.0.0.1", PortOf(peer));
  client.GetOutputStream()->Write('x');
  try {
    client.GetInputStream()->Read();
    ADD_FAILURE() << "a reset read as data";
  } catch (const CWinSocketException& e) {
    EXPECT_STREQ(e.GetErrorDescription(), "Failed to read the specified number of bytes from the socket input stream.");
    EXPECT_EQ(e.GetErrorCode(), 10054u);
  }
  EXPECT_THROW(client.GetOutputStream()->Write("after", 5), CSocketException);
  EXPECT_EQ(peer.Wait(), 0);
}

// No signal handler of our own: sending to a gone peer must not raise SIGPIPE.
TEST(SocketPeerTest, PeerThatSendsGarbageAndVanishes) {
  auto peer = Peer("garbage-server");
  CSocket client("127.0.0.1", PortOf(peer));
  std::string garbage = ReadExactly(client.GetInputStream(), 1 << 20);
  unsigned long sum = 0;
  for (char c : garbage) sum += static_cast<unsigned char>(c);
  EXPECT_EQ(garbage.size(), 200000u);
  EXPECT_EQ(peer.ReadLine(), std::to_string(sum));
  EXPECT_EQ(peer.Wait(), 0);
  bool failed = false;
  for (int i = 0; i < 200 && !failed; ++i) {
    try {
      client.GetOutputStream()->Write("still there?", 12);
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    } catch (const CSocketException&) {
      failed = true;
    }
  }
  EXPECT_TRUE(failed) << "writes to a vanished peer kept succeeding";

}

}  // namespace
