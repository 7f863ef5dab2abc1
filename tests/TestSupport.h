/// \file
/// Helpers shared by the unit tests. Each section belongs to the tests named
/// in its heading; add new helpers in a section of their own.
#ifndef VESK_TESTS_TESTSUPPORT_H
#define VESK_TESTS_TESTSUPPORT_H

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "vesk/base/MemoryException.h"
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

// --- 16-bit text (unicode string tests) -------------------------------------

/// 16-bit units as a standard string, for comparisons with readable output.
typedef std::basic_string<unsigned short> Units;

/// 16-bit text from a UTF-16 literal.
inline const unsigned short* W(const char16_t* text) {
  return reinterpret_cast<const unsigned short*>(text);
}

// --- processes and descriptors (socket tests) ---------------------------------

/// Descriptors this process has open now.
inline int OpenDescriptors() {
  DIR* dir = opendir("/proc/self/fd");
  if (!dir) return -1;
  int count = 0;
  while (readdir(dir)) ++count;
  closedir(dir);
  return count - 3;  // ".", ".." and the directory's own descriptor
}

/// An independent peer: python3 running script with args, its standard
/// output read line by line. Killed when still running at the end.
class PythonPeer {
 public:
  PythonPeer(const char* script, const std::vector<std::string>& args = {}) {
    int out[2];
    if (pipe2(out, O_CLOEXEC) != 0) return;
    m_pid = fork();
    if (m_pid == 0) {
      dup2(out[1], 1);
      std::vector<const char*> argv = {"python3", "-c", script};
      for (const std::string& arg : args) argv.push_back(arg.c_str());
      argv.push_back(nullptr);
      execvp("python3", const_cast<char* const*>(argv.data()));
      _exit(127);
    }
    close(out[1]);
    m_out = fdopen(out[0], "r");
  }
  ~PythonPeer() {
    if (m_pid > 0) {
      kill(m_pid, SIGKILL);
      Wait();
    }
    if (m_out) fclose(m_out);
  }
  /// The next line the peer printed, without its line end ("" at its end).
  std::string ReadLine() {
    char line[4096];
    if (!m_out || !fgets(line, sizeof line, m_out)) return "";
    std::string text(line);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
  }
  /// Waits for the peer to end; its exit status (-1 when it did not exit).
  int Wait() {
    int status = 0;
    if (m_pid <= 0 || waitpid(m_pid, &status, 0) != m_pid) return -1;
    m_pid = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t m_pid = -1;
  FILE* m_out = nullptr;
};

}  // namespace testing
}  // namespace vesk

#endif
