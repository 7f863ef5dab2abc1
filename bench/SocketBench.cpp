// Sockets over loopback next to raw POSIX sockets, in the same run: bulk
// transfer in 64 KiB writes (throughput) and one-byte request/response
// round trips (latency). Both ends of a run use the same side: the library's
// streams against each other, or send/recv against each other.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <thread>

#include <benchmark/benchmark.h>

#include "vesk/base/Ref.h"
#include "vesk/io/InputStream.h"
#include "vesk/io/OutputStream.h"
#include "vesk/net/ServerSocket.h"
#include "vesk/net/Socket.h"

namespace {

using vesk::base::CRef;
using vesk::net::CInetAddress;
using vesk::net::CServerSocket;
using vesk::net::CSocket;

constexpr unsigned int kChunk = 64 * 1024;

const CInetAddress& Loopback() {
  static const unsigned char bytes[4] = {127, 0, 0, 1};
  static const CInetAddress address(bytes);
  return address;
}

// --- the library ------------------------------------------------------------

struct VeskPair {
  CServerSocket server{0, 1, Loopback()};
  CSocket client{Loopback(), server.GetLocalPort()};
  CRef<CSocket> served = server.Accept();
};

void BM_Vesk_Bulk64K(benchmark::State& state) {
  VeskPair pair;
  std::thread drain([&] {
    std::string buffer(kChunk, '\0');
    while (pair.served->GetInputStream()->Read(&buffer[0], 0, kChunk) > 0) {
    }
  });
  const std::string chunk(kChunk, 'v');
  vesk::io::COutputStream* out = pair.client.GetOutputStream();
  for (auto _ : state) out->Write(chunk.data(), 0, kChunk);
  pair.client.Close();
  drain.join();
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kChunk);
}
BENCHMARK(BM_Vesk_Bulk64K)->UseRealTime();

void BM_Vesk_PingPong1Byte(benchmark::State& state) {
  VeskPair pair;
  pair.client.SetTCPNoDelay(true);
  pair.served->SetTCPNoDelay(true);
  std::thread echo([&] {
    vesk::io::CInputStream* in = pair.served->GetInputStream();
    vesk::io::COutputStream* out = pair.served->GetOutputStream();
    char byte;
    while (in->Read(&byte, 0, 1) > 0) out->Write(&byte, 0, 1);
  });
  vesk::io::CInputStream* in = pair.client.GetInputStream();
  vesk::io::COutputStream* out = pair.client.GetOutputStream();
  char byte = 'p';
  for (auto _ : state) {
    out->Write(&byte, 0, 1);
    benchmark::DoNotOptimize(in->Read(&byte, 0, 1));
  }
  pair.client.Close();
  echo.join();
}
BENCHMARK(BM_Vesk_PingPong1Byte)->UseRealTime();

// --- raw POSIX sockets --------------------------------------------------------

struct RawPair {
  int client = -1;
  int served = -1;
  RawPair() {
    int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address);
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
    listen(listener, 1);
    client = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address);
    served = accept(listener, nullptr, nullptr);
    close(listener);
  }
  ~RawPair() {
    if (client >= 0) close(client);
    close(served);
  }
  void CloseClient() {
    close(client);
    client = -1;
  }
};

void SendAll(int socket, const char* data, size_t length) {
  while (length > 0) {
    ssize_t sent = send(socket, data, length, MSG_NOSIGNAL);
    if (sent <= 0) return;
    data += sent;
    length -= static_cast<size_t>(sent);
  }
}

void BM_Raw_Bulk64K(benchmark::State& state) {
  RawPair pair;
  std::thread drain([&] {
    std::string buffer(kChunk, '\0');
    while (recv(pair.served, &buffer[0], kChunk, 0) > 0) {
    }
  });
  const std::string chunk(kChunk, 'r');
  for (auto _ : state) SendAll(pair.client, chunk.data(), kChunk);
  pair.CloseClient();
  drain.join();
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kChunk);
}
BENCHMARK(BM_Raw_Bulk64K)->UseRealTime();

void BM_Raw_PingPong1Byte(benchmark::State& state) {
  RawPair pair;
  int on = 1;
  setsockopt(pair.client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  setsockopt(pair.served, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  std::thread echo([&] {
    char byte;
    while (recv(pair.served, &byte, 1, 0) > 0) SendAll(pair.served, &byte, 1);
  });
  char byte = 'p';
  for (auto _ : state) {
    SendAll(pair.client, &byte, 1);
    benchmark::DoNotOptimize(recv(pair.client, &byte, 1, 0));
  }
  pair.CloseClient();
  echo.join();
}
BENCHMARK(BM_Raw_PingPong1Byte)->UseRealTime();

}  // namespace
