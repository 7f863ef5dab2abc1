// Sockets against an independent TCP stack user: Python's socket module,
// as server and as client, over 127.0.0.1.
#include <chrono>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "SocketTestSupport.h"
#include "vesk/io/DataInputStream.h"
#include "vesk/net/internal/WinSocketException.h"

using namespace vesk::net;
using vesk::base::CRef;
using vesk::testing::PythonPeer;
using vesk_test::Listener;
using vesk_test::ReadExactly;
using vesk_test::WriteAll;

namespace {

// A server that prints its port, takes one connection and echoes it
// (sys.argv[1] bytes), then closes and prints how many bytes it echoed.
const char kEchoServer[] = R"(
import socket, sys
n = int(sys.argv[1])
s = socket.socket()
s.bind(("127.0.0.1", 0))
s.listen(1)
print(s.getsockname()[1], flush=True)
c, _ = s.accept()
got = 0
while got < n:
    d = c.recv(65536)
    if not d:
        break
    c.sendall(d)
    got += len(d)
c.close()
print(got, flush=True)
)";

// A client that sends sys.argv[2] bytes, shuts its sending side and prints
// the reply that arrives after that.
const char kHalfCloseClient[] = R"(
import socket, sys
c = socket.create_connection(("127.0.0.1", int(sys.argv[1])))
c.sendall(bytes((i * 7) & 255 for i in range(int(sys.argv[2]))))
c.shutdown(socket.SHUT_WR)
reply = b""
while True:
    d = c.recv(4096)
    if not d:
        break
    reply += d
print(reply.decode(), flush=True)
)";

// A server that waits for one byte, then resets the connection (linger 0).
const char kResettingServer[] = R"(
import socket, struct
s = socket.socket()
s.bind(("127.0.0.1", 0))
s.listen(1)
print(s.getsockname()[1], flush=True)
c, _ = s.accept()
c.recv(1)
c.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
c.close()
)";

// A server that sends random bytes, prints their sum and goes away.
const char kGarbageServer[] = R"(
import os, socket
s = socket.socket()
s.bind(("127.0.0.1", 0))
s.listen(1)
print(s.getsockname()[1], flush=True)
c, _ = s.accept()
data = os.urandom(200000)
c.sendall(data)
c.close()
print(sum(data), flush=True)
)";

// A client that sends random bytes to a port and goes away.
const char kGarbageClient[] = R"(
import os, socket, sys
c = socket.create_connection(("127.0.0.1", int(sys.argv[1])))
c.sendall(os.urandom(100000))
c.close()
)";

unsigned short PortOf(PythonPeer& peer) { return static_cast<unsigned short>(std::stoi(peer.ReadLine())); }

std::string Pattern(size_t size) {
  std::string data(size, '\0');
  for (size_t i = 0; i < size; ++i) data[i] = static_cast<char>((i * 131 + i / 7) & 0xFF);
  return data;
}

TEST(SocketPeerTest, EchoOfSeveralMegabytes) {
  const size_t size = 6 * 1024 * 1024 + 12345;
  PythonPeer peer(kEchoServer, {std::to_string(size)});
  CSocket client("127.0.0.1", PortOf(peer));
  const std::string sent = Pattern(size);
  // Writes of mixed sizes from one thread while another reads the echo.
  std::thread writer([&] {
    size_t done = 0;
    for (unsigned int piece = 1; done < size; piece = piece * 3 % 200003 + 1) {
      unsigned int n = static_cast<unsigned int>(std::min<size_t>(piece, size - done));
      client.GetOutputStream()->Write(sent.data(), static_cast<unsigned int>(done), n);
      done += n;
    }
  });
  std::string echoed = ReadExactly(client.GetInputStream(), size);
  writer.join();
  EXPECT_TRUE(echoed == sent) << "echoed " << echoed.size() << " of " << size;
  EXPECT_EQ(peer.ReadLine(), std::to_string(size));
  EXPECT_EQ(client.GetInputStream()->Read(), vesk::io::CInputStream::EOS);
  EXPECT_EQ(peer.Wait(), 0);
}

TEST(SocketPeerTest, HalfClosedPeerStillGetsItsReply) {
  CServerSocket server = Listener();
  PythonPeer peer(kHalfCloseClient, {std::to_string(server.GetLocalPort()), "300000"});
  CRef<CSocket> connection = server.Accept(10000);
  unsigned int count = 0, sum = 0;
  char buffer[4096];
  int n;
  while ((n = connection->GetInputStream()->Read(buffer, sizeof buffer)) > 0) {
    for (int i = 0; i < n; ++i) sum = sum * 31 + static_cast<unsigned char>(buffer[i]);
    count += static_cast<unsigned int>(n);
  }
  EXPECT_EQ(n, 0) << "the peer's half-close reads as 0";
  unsigned int expected = 0;
  for (unsigned int i = 0; i < 300000; ++i) expected = expected * 31 + ((i * 7) & 255);
  EXPECT_EQ(sum, expected);
  WriteAll(connection->GetOutputStream(), std::to_string(count) + " " + std::to_string(sum));
  connection->Close();
  EXPECT_EQ(peer.ReadLine(), std::to_string(300000) + " " + std::to_string(expected));
  EXPECT_EQ(peer.Wait(), 0);
}

TEST(SocketPeerTest, PeerThatResets) {
  PythonPeer peer(kResettingServer);
  CSocket client("127.0.0.1", PortOf(peer));
  client.GetOutputStream()->Write('x');
  try {
    client.GetInputStream()->Read();
    ADD_FAILURE() << "a reset read as data";
  } catch (const CWinSocketException& e) {
    EXPECT_STREQ(e.GetErrorDescription(),
                 "Failed to read the specified number of bytes from the socket input stream.");
    EXPECT_EQ(e.GetErrorCode(), 10054u);
  }
  EXPECT_THROW(client.GetOutputStream()->Write("after", 5), CSocketException);
  EXPECT_EQ(peer.Wait(), 0);
}

// No signal handler of our own: a send to a gone peer must not raise SIGPIPE.
TEST(SocketPeerTest, PeerThatSendsGarbageAndVanishes) {
  PythonPeer peer(kGarbageServer);
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
      WriteAll(client.GetOutputStream(), "still there?");
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    } catch (const CSocketException&) {
      failed = true;
    }
  }
  EXPECT_TRUE(failed) << "writes to a vanished peer kept succeeding";

  // Our server, reading typed data from garbage that stops half way, ends
  // in short reads, never in a hang.
  CServerSocket server = Listener();
  PythonPeer sender(kGarbageClient, {std::to_string(server.GetLocalPort())});
  CRef<CSocket> connection = server.Accept(10000);
  vesk::io::CDataInputStream in(connection->GetInputStream());
  for (int i = 0; i < 100; ++i) in.ReadString();
  EXPECT_EQ(connection->GetInputStream()->Read(), vesk::io::CInputStream::EOS);
  EXPECT_EQ(sender.Wait(), 0);
}

}  // namespace
