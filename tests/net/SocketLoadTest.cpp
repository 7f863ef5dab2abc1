// 200 clients at once, a server thread for each, 1000 request/response round
// trips per client through the socket streams.
#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "SocketTestSupport.h"

using namespace vesk::net;

namespace {

const int kClients = 200;
const int kRounds = 1000;

// Runs body on a thread of threads; a library exception counts as a failure.
template <class F>
void Start(std::vector<std::thread>& threads, std::atomic<int>& failures, F body) {
  threads.emplace_back([&failures, body]() mutable {
    try {
      body();
    } catch (const vesk::base::CException&) {
      ++failures;
    }
  });
}

TEST(SocketLoadTest, TwoHundredClientsLoseNothing) {
  int descriptors = vesk_test::OpenHandles();
  std::atomic<int> answered{0}, failures{0};
  CServerSocket server = vesk_test::Listener(kClients);
  std::vector<std::thread> clients, servers;
  // The acceptor keeps the handles; a server thread only borrows its socket,
  // so no reference count changes on two threads.
  std::vector<vesk::base::CRef<CSocket>> accepted;
  Start(clients, failures, [&] {
    for (int i = 0; i < kClients; ++i) {
      accepted.push_back(server.Accept(20000));
      CSocket* connection = accepted.back().Get();
      Start(servers, failures, [connection] {
        std::string request;  // each request comes back with its last byte raised by one
        while ((request = vesk_test::ReadExactly(connection->GetInputStream(), 8)).size() == 8) {
          ++request[7];
          vesk_test::WriteAll(connection->GetOutputStream(), request);
        }
        connection->Close();
      });
    }
  });
  for (int c = 0; c < kClients; ++c) {
    Start(clients, failures, [&, c] {
      CSocket client(vesk_test::Loopback(), server.GetLocalPort());
      client.SetTCPNoDelay(true);
      for (int r = 0; r < kRounds; ++r) {
        std::string request = std::to_string(1000000 + c * 1000 + r);  // 7 digits
        vesk_test::WriteAll(client.GetOutputStream(), request + "a");
        if (vesk_test::ReadExactly(client.GetInputStream(), 8) != request + "b") break;
        ++answered;
      }
    });
  }
  for (std::thread& thread : clients) thread.join();
  for (std::thread& thread : servers) thread.join();
  accepted.clear();
  server.Close();
  EXPECT_EQ(failures.load(), 0);
  EXPECT_EQ(answered.load(), kClients * kRounds);
  EXPECT_EQ(vesk_test::OpenHandles(), descriptors) << "descriptors leaked";
}

}  // namespace
