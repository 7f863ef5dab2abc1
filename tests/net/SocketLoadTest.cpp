// Many connections at once: 200 clients, a server thread for each, 1000
// request/response round trips per client through the socket streams.
#include <atomic>
#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "SocketTestSupport.h"

using namespace vesk::net;
using vesk::base::CRef;

namespace {

const int kClients = 200;
const int kRounds = 1000;

struct Message {
  unsigned int client;
  unsigned int round;
};

bool ReadMessage(vesk::io::CInputStream* in, Message& message) {
  std::string bytes = vesk_test::ReadExactly(in, sizeof message);
  if (bytes.size() != sizeof message) return false;
  std::memcpy(&message, bytes.data(), sizeof message);
  return true;
}

TEST(SocketLoadTest, TwoHundredClientsLoseNothing) {
  int descriptors = vesk::testing::OpenDescriptors();
  std::atomic<int> answered{0};
  std::atomic<int> wrong{0};
  {
    CServerSocket server = vesk_test::Listener(kClients);
    unsigned short port = server.GetLocalPort();
    std::vector<std::thread> threads;
    // The server answers each request with the round number plus one. Its
    // thread keeps the handles; a worker only borrows its socket, so no
    // count is touched from two threads.
    threads.emplace_back([&] {
      std::vector<CRef<CSocket>> connections;
      std::vector<std::thread> workers;
      for (int i = 0; i < kClients; ++i) {
        try {
          connections.push_back(server.Accept(20000));
        } catch (const vesk::base::CException&) {
          ++wrong;
          break;
        }
        CSocket* connection = connections.back().Get();
        workers.emplace_back([connection, &wrong] {
          try {
            Message message;
            while (ReadMessage(connection->GetInputStream(), message)) {
              ++message.round;
              connection->GetOutputStream()->Write(reinterpret_cast<const char*>(&message), sizeof message);
            }
            connection->Close();
          } catch (const vesk::base::CException&) {
            ++wrong;
          }
        });
      }
      for (std::thread& worker : workers) worker.join();
    });
    for (int c = 0; c < kClients; ++c) {
      threads.emplace_back([&, c] {
        try {
          CSocket client(vesk_test::Loopback(), port);
          client.SetTCPNoDelay(true);
          for (int r = 0; r < kRounds; ++r) {
            Message message = {static_cast<unsigned int>(c), static_cast<unsigned int>(r)};
            client.GetOutputStream()->Write(reinterpret_cast<const char*>(&message), sizeof message);
            Message reply;
            if (!ReadMessage(client.GetInputStream(), reply) || reply.client != message.client ||
                reply.round != message.round + 1) {
              ++wrong;
              break;
            }
            ++answered;
          }
        } catch (const vesk::base::CException&) {
          ++wrong;
        }
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  EXPECT_EQ(wrong.load(), 0);
  EXPECT_EQ(answered.load(), kClients * kRounds);
  EXPECT_EQ(vesk::testing::OpenDescriptors(), descriptors) << "descriptors leaked";
}

}  // namespace
