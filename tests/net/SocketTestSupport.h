// Shared by the socket tests: a listener on an ephemeral loopback port,
// reads of an exact byte count and the count of open handles.
#ifndef VESK_TESTS_NET_SOCKETTESTSUPPORT_H
#define VESK_TESTS_NET_SOCKETTESTSUPPORT_H

#if defined(_WIN32)
#include <winsock2.h>
#include <windows.h>
// The library's GetMessage, not the host's GetMessageA.
#undef GetMessage
#endif

#include <string>

#include <gtest/gtest.h>

#include "../TestSupport.h"
#include "vesk/io/InputStream.h"
#include "vesk/io/OutputStream.h"
#include "vesk/net/ServerSocket.h"
#include "vesk/net/Socket.h"
#include "vesk/net/internal/WinSocketException.h"

namespace vesk_test {

/// 127.0.0.1 as address bytes.
inline vesk::net::CInetAddress Loopback() {
  static const unsigned char bytes[4] = {127, 0, 0, 1};
  return vesk::net::CInetAddress(bytes);
}

/// A listener on 127.0.0.1 and a port the system picks.
inline vesk::net::CServerSocket Listener(unsigned int backlog = 50) {
  return vesk::net::CServerSocket(0, backlog, Loopback());
}

/// Reads exactly count bytes (fewer when the peer closes first).
inline std::string ReadExactly(vesk::io::CInputStream* in, size_t count) {
  std::string data(count, '\0');
  size_t done = 0;
  while (done < count) {
    int n = in->Read(&data[0], static_cast<unsigned int>(done), static_cast<unsigned int>(count - done));
    if (n <= 0) break;
    done += static_cast<size_t>(n);
  }
  data.resize(done);
  return data;
}

/// Descriptors (on Windows: handles) the process has open now.
inline int OpenHandles() {
#if defined(_WIN32)
  DWORD count = 0;
  GetProcessHandleCount(GetCurrentProcess(), &count);
  return static_cast<int>(count);
#else
  return vesk::testing::OpenDescriptors();
#endif
}

inline void WriteAll(vesk::io::COutputStream* out, const std::string& data) {
  out->Write(data.data(), 0, static_cast<unsigned int>(data.size()));
}

const char kImpl[] = "vesk/net/WinSocketImpl";

/// Expects op to throw CWinSocketException with that description and code.
template <class F>
inline void ExpectSocketError(F op, const char* description, unsigned int code) {
  try {
    op();
    ADD_FAILURE() << "no exception, expected \"" << description << "\"";
  } catch (const vesk::net::CWinSocketException& e) {
    EXPECT_STREQ(e.GetErrorDescription(), description);
    EXPECT_STREQ(e.GetSourceFile(), kImpl);
    EXPECT_EQ(e.GetErrorCode(), code);
#if defined(_WIN32)
    // The system's own text for the code (Wine's table lacks some codes).
    char text[256] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                   text, sizeof text, nullptr);
    EXPECT_STREQ(e.GetMessage() ? e.GetMessage() : "", text);
#else
    EXPECT_NE(e.GetMessage(), nullptr) << "the host's text for the code";
#endif
  }
}

}  // namespace vesk_test

#endif
