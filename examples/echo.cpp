// An echo server and its client over TCP.
//
//   echo                       both ends in this process, over 127.0.0.1
//   echo server <port>         serve clients one after another until one sends "quit"
//   echo client <host> <port> <text...>
//                              send each text and print what comes back
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <vesk/Library.h>
#include <vesk/base/Exception.h>
#include <vesk/base/Ref.h>
#include <vesk/io/InputStream.h>
#include <vesk/io/InterruptedIOException.h>
#include <vesk/io/OutputStream.h>
#include <vesk/net/InetAddress.h>
#include <vesk/net/ServerSocket.h>
#include <vesk/net/Socket.h>

using vesk::base::CException;
using vesk::base::CRef;
using vesk::io::CInputStream;
using vesk::io::COutputStream;
using vesk::net::CInetAddress;
using vesk::net::CServerSocket;
using vesk::net::CSocket;

namespace {

// Sends one line (text and '\n').
void SendLine(COutputStream* out, const char* text) {
  out->Write(text, 0, static_cast<unsigned int>(std::strlen(text)));
  out->Write('\n');
}

// Reads one line into line (without its '\n'); false when the peer closed
// first. A socket read returns what has arrived, so lines are put together
// byte by byte here; Read() gives EOS once the peer has closed.
bool ReceiveLine(CInputStream* in, char* line, unsigned int size) {
  unsigned int length = 0;
  for (;;) {
    int c = in->Read();
    if (c == CInputStream::EOS) return false;
    if (c == '\n') break;
    if (length + 1 < size) line[length++] = static_cast<char>(c);
  }
  line[length] = '\0';
  return true;
}

// Answers every line of one client with "echo: <line>"; true when the
// client asked the server to stop.
bool Serve(CSocket& client) {
  char line[1024];
  char reply[1100];
  while (ReceiveLine(client.GetInputStream(), line, sizeof line)) {
    if (std::strcmp(line, "quit") == 0) return true;
    std::snprintf(reply, sizeof reply, "echo: %s", line);
    SendLine(client.GetOutputStream(), reply);
  }
  return false;
}

// Sends each text and prints the answer.
void Talk(CSocket& server, int count, const char* const* texts) {
  char line[1100];
  for (int i = 0; i < count; ++i) {
    SendLine(server.GetOutputStream(), texts[i]);
    if (std::strcmp(texts[i], "quit") == 0) return;  // no answer to that
    if (!ReceiveLine(server.GetInputStream(), line, sizeof line)) {
      std::printf("the server closed the connection\n");
      return;
    }
    std::printf("%s\n", line);
  }
}

int RunServer(unsigned short port) {
  CServerSocket listener(port, 5, CInetAddress::AnyInetAddress);
  std::printf("listening on port %u\n", listener.GetLocalPort());
  for (;;) {
    CRef<CSocket> client = listener.Accept();
    std::printf("client %s:%u\n", static_cast<const char*>(client->GetInetAddress()->GetHostAddress()),
                client->GetPort());
    if (Serve(*client)) return 0;
  }
}

// Both ends in one thread: the system completes the connection while the
// server is not yet in Accept, and the lines are short enough to wait in
// the socket buffers until the other end reads them.
int RunDemo() {
  const unsigned char loopback[4] = {127, 0, 0, 1};
  CServerSocket listener(0, 5, CInetAddress(loopback));
  listener.SetTimeout(5000);  // 5 s
  CSocket client(CInetAddress(loopback), listener.GetLocalPort());
  CRef<CSocket> served = listener.Accept();
  std::printf("connected %s:%u -> port %u\n",
              static_cast<const char*>(client.GetLocalInetAddress()->GetHostAddress()), client.GetLocalPort(),
              client.GetPort());

  const char* const texts[] = {"hello", "sockets"};
  char line[1100];
  for (const char* text : texts) {
    SendLine(client.GetOutputStream(), text);
    // The server's turn: one line in, one line out.
    ReceiveLine(served->GetInputStream(), line, sizeof line);
    char reply[1100];
    std::snprintf(reply, sizeof reply, "echo: %s", line);
    SendLine(served->GetOutputStream(), reply);
    ReceiveLine(client.GetInputStream(), line, sizeof line);
    std::printf("%s\n", line);
  }

  // A read with a time-out ends in CInterruptedIOException when nothing
  // comes. Note the unit: 1500 waits one second and 500 MICROseconds.
  client.SetTimeout(1500);
  try {
    client.GetInputStream()->Read();
  } catch (const vesk::io::CInterruptedIOException& e) {
    std::printf("read: %s\n", e.GetErrorDescription());
  }
  client.Close();
  std::printf("server sees the close: %s\n",
              served->GetInputStream()->Read() == CInputStream::EOS ? "EOS" : "data");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  vesk::Initialize();
  int status = 1;
  try {
    if (argc == 1) {
      status = RunDemo();
    } else if (argc == 3 && std::strcmp(argv[1], "server") == 0) {
      status = RunServer(static_cast<unsigned short>(std::atoi(argv[2])));
    } else if (argc >= 5 && std::strcmp(argv[1], "client") == 0) {
      CSocket server(argv[2], static_cast<unsigned short>(std::atoi(argv[3])));
      Talk(server, argc - 4, argv + 4);
      status = 0;
    } else {
      std::fprintf(stderr, "usage: echo | echo server <port> | echo client <host> <port> <text...>\n");
    }
  } catch (const CException& e) {
    std::printf("%s: %s\n", e.GetClass()->GetQualifiedName(), e.GetErrorDescription());
  }
  vesk::Terminate();
  return status;
}
