/// \file
/// Helpers shared by the unit tests. Each section belongs to the tests named
/// in its heading; add new helpers in a section of their own.
#ifndef VESK_TESTS_TESTSUPPORT_H
#define VESK_TESTS_TESTSUPPORT_H

#if !defined(_WIN32)
#include <dirent.h>
#include <sys/wait.h>
#endif

#include <cstdio>
#include <random>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/base/internal/StringPools.h"
#include "vesk/platform/Memory.h"

namespace vesk {
namespace testing {

// --- allocation faults and leaks (string and string buffer tests) -----------

/// Switches fault injection off when the scope ends, whatever a test did.
struct FaultGuard {
  ~FaultGuard() { platform::FailAllocationAt(0); }
};

/// Heap blocks that belong to nobody: live allocations minus the blocks the
/// string pools keep in reserve (blocks a thread keeps go back first).
inline long Outstanding() {
  base::internal::ReturnThreadStringBlocks();
  long reserve = 0;
  for (unsigned int c = 64; c <= 1024; c *= 2) {
    reserve += base::internal::NarrowStringPool(c)->GetFreeCount();
    reserve += base::internal::WideStringPool(c)->GetFreeCount();
  }
  return platform::LiveAllocations() - reserve;
}

/// Runs op with its first, second, third ... allocation failing until a run
/// gets through: every failure must be a CMemoryException and leave no block
/// behind. Returns how many runs failed.
template <typename Op>
int FailEachAllocationInTurn(Op op) {
  FaultGuard guard;
  long before = Outstanding();
  int failures = 0;
  for (unsigned long n = 1; n < 200; ++n) {
    bool threw = false;
    platform::FailAllocationAt(n);
    try {
      op();
    } catch (const base::CMemoryException&) {
      threw = true;
      ++failures;
    }
    platform::FailAllocationAt(0);
    EXPECT_EQ(before, Outstanding()) << "after failing allocation " << n;
    if (!threw) return failures;
  }
  ADD_FAILURE() << "still failing after 200 allocations";
  return failures;
}

// --- locks and synchronisation objects (lock, condition and sync tests) ----

/// Whether another thread could take lock at once (what it took is given back).
template <class Lockable>
bool FreeForOthers(Lockable& lock) {
  bool took = false;
  std::thread([&] {
    took = lock.TryAcquire(0);
    if (took) lock.Release();
  }).join();
  return took;
}

// --- expected exceptions (stream, collection and text tests) ----------------

/// Expects op to throw an E; checks its description and throw-site source
/// where they are given (not null).
template <class E, class F>
void ExpectThrow(F op, const char* description, const char* source = nullptr) {
  try {
    op();
    ADD_FAILURE() << "no exception, expected \"" << (description ? description : "") << "\"";
  } catch (const E& e) {
    if (description) EXPECT_STREQ(e.GetErrorDescription(), description);
    if (source) EXPECT_STREQ(e.GetSourceFile(), source);
  }
}

/// ExpectThrow with the next allocation failing (every one from then on with
/// everyAfter set); fault injection is off again when it returns.
template <class E = base::CMemoryException, class F>
void ExpectThrowIfAllocationFails(F op, const char* description = nullptr,
                                  const char* source = nullptr, bool everyAfter = false) {
  FaultGuard guard;
  platform::FailAllocationAt(1, everyAfter);
  ExpectThrow<E>(op, description, source);
}

// --- 16-bit text and string buffers (string and unicode string tests) -------

/// 16-bit units as a standard string, for comparisons with readable output.
typedef std::basic_string<unsigned short> Units;

/// 16-bit text from a UTF-16 literal.
inline const unsigned short* W(const char16_t* text) {
  return reinterpret_cast<const unsigned short*>(text);
}

/// Random 16-bit text of at least length units: ASCII, two- and three-byte
/// characters and pairs, and with lone set unpaired surrogates too.
inline Units RandomUtf16(std::mt19937& rng, std::size_t length, bool lone = false) {
  Units text;
  while (text.size() < length) {
    unsigned int pick = rng() % (lone ? 6 : 5);
    if (pick <= 1) {
      text += static_cast<unsigned short>(0x20 + rng() % 0x5F);
    } else if (pick == 2) {
      text += static_cast<unsigned short>(0x80 + rng() % (rng() % 2 ? 0x780 : 0xD780));
    } else if (pick == 3) {
      text += static_cast<unsigned short>(0xD800 + rng() % 0x400);
      text += static_cast<unsigned short>(0xDC00 + rng() % 0x400);
    } else {
      text += static_cast<unsigned short>(pick == 4 ? 0xE000 + rng() % 0x2000
                                                    : 0xD800 + rng() % 0x800);
    }
  }
  return text;
}

/// The header in front of a string's buffer (null for the shared empty one).
inline const base::CStringData* Header(const base::CString& s) {
  const char* text = s;
  return *text ? reinterpret_cast<const base::CStringData*>(text) - 1 : nullptr;
}
inline const base::CUnicodeStringData* Header(const base::CUnicodeString& s) {
  const unsigned short* text = s;
  return *text ? reinterpret_cast<const base::CUnicodeStringData*>(text) - 1 : nullptr;
}

// --- other processes and descriptors (socket tests) ---------------------------
#if !defined(_WIN32)

/// Descriptors this process has open now.
inline int OpenDescriptors() {
  DIR* dir = opendir("/proc/self/fd");
  int count = -3;  // ".", ".." and the directory's own descriptor
  while (dir && readdir(dir)) ++count;
  if (dir) closedir(dir);
  return count;
}

/// An independent peer: a shell command whose standard output is read line
/// by line; waited for at the end.
class PeerProcess {
 public:
  explicit PeerProcess(const std::string& command) : m_out(popen(command.c_str(), "r")) {}
  PeerProcess(const PeerProcess&) = delete;
  PeerProcess& operator=(const PeerProcess&) = delete;
  ~PeerProcess() { Wait(); }
  /// The next line it printed, without the line end ("" at its end).
  std::string ReadLine() {
    char line[4096];
    if (!m_out || !fgets(line, sizeof line, m_out)) return "";
    std::string text(line);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
  }
  /// Its exit status once it has ended (-1 when it did not exit normally).
  int Wait() {
    if (!m_out) return -1;
    int status = pclose(m_out);
    m_out = nullptr;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  FILE* m_out;
};
#endif

}  // namespace testing
}  // namespace vesk

#endif
