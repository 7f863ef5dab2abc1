#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#if !defined(_WIN32)
#include <semaphore.h>
#include <sys/wait.h>
#endif

#include "HostSupport.h"
#include "TestSupport.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/Semaphore.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using vesk::platform::LiveAllocations;
using vesk::testing::ExpectThrow;
using vesk::testing::ExpectThrowIfAllocationFails;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

const unsigned int kInfinite = 0xFFFFFFFFu;

// A name no other run uses, and the name the host gives it. On POSIX hosts
// that is a leading '/', with '/' and '%' escaped as %2F and %25 (hostStem
// spells the stem so), and the host object is unlinked when the test ends; a
// Windows kernel object takes the name as it is and goes with its last handle.
class ScopedName {
 public:
  explicit ScopedName(const char* stem, const char* hostStem = nullptr)
      : m_name(std::string("vesk-test-") + stem + "-" + std::to_string(vesk_test::ProcessId())),
        m_hostName(std::string("/vesk-test-") + (hostStem ? hostStem : stem) + "-" +
                   std::to_string(vesk_test::ProcessId())) {}
  const char* c_str() const { return m_name.c_str(); }
#if defined(_WIN32)
  bool Exists() const { return vesk_test::NamedObjectExists(m_name.c_str()); }
#else
  ~ScopedName() { sem_unlink(m_hostName.c_str()); }
  // Whether the host has a semaphore of this name now.
  bool Exists() const {
    sem_t* semaphore = sem_open(m_hostName.c_str(), 0);
    if (semaphore == SEM_FAILED) return false;
    sem_close(semaphore);
    return true;
  }
#endif

 private:
  std::string m_name;
  std::string m_hostName;
};

TEST(SemaphoreTest, ConstructorArguments) {
  long live = LiveAllocations();
  ExpectThrow<CIllegalArgumentException>([] { CSemaphore semaphore(2u, 1u); },
                                         "Invalid initial count.",
                                         "vesk/base/win/WinSemaphoreImpl");

  for (const char* name : {"", static_cast<const char*>(nullptr)}) {
    ExpectThrow<CIllegalArgumentException>([name] { CSemaphore semaphore(name, 1u); },
                                           "Invalid semaphore name.",
                                           "vesk/base/win/WinNamedSemaphoreImpl");
  }
  // Counts are signed 32-bit: a maximum of 0 or beyond makes no semaphore.
  for (unsigned int max : {0u, 0x80000000u, 0xFFFFFFFFu}) {
    SCOPED_TRACE(max);
    ExpectThrow<CMemoryException>([max] { CSemaphore semaphore(0u, max); }, nullptr,
                                  "vesk/base/win/WinSemaphoreImpl");
  }
  EXPECT_THROW(CSemaphore(0xFFFFFFFFu, 0xFFFFFFFEu), CIllegalArgumentException);
  ExpectThrowIfAllocationFails([] { CSemaphore semaphore(1u, 1u); }, nullptr, "vesk/base/Base");
  ScopedName name("alloc");
  ExpectThrowIfAllocationFails([&] { CSemaphore(name.c_str(), 1u); });
  EXPECT_EQ(LiveAllocations(), live);

  CSemaphore full(3u, 3u);
  EXPECT_FALSE(full.IsNamed());
  EXPECT_FALSE(full.IsShared());
}

// The default is a free binary semaphore; a release past the maximum is
// refused and adds nothing (a semaphore has no owner to check).
TEST(SemaphoreTest, MaximumCountIsEnforced) {
  CSemaphore binary;
  EXPECT_TRUE(binary.TryAcquire(0));
  EXPECT_FALSE(binary.TryAcquire(0));
  binary.Release();
  ExpectThrow<CSynchronizationException>([&] { binary.Release(); },
                                         "Failed to release the semaphore.",
                                         "vesk/base/win/WinSemaphoreImpl");
  CSemaphore semaphore(0u, 3u);
  for (int i = 0; i < 3; ++i) semaphore.Release();
  EXPECT_THROW(semaphore.Release(), CSynchronizationException);
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(semaphore.TryAcquire(0)) << i;
  EXPECT_FALSE(semaphore.TryAcquire(0));
  CSemaphore widest(0x7FFFFFFEu, 0x7FFFFFFFu);
  widest.Release();
  EXPECT_THROW(widest.Release(), CSynchronizationException);
}

TEST(SemaphoreTest, TimedAcquire) {
  CSemaphore semaphore(0u, 1u);
  auto start = Clock::now();
  EXPECT_FALSE(semaphore.TryAcquire(60));
  EXPECT_GE(Clock::now() - start, milliseconds(55));

  // Another thread's release ends a long wait early, and an unlimited one.
  for (unsigned int timeout : {10000u, kInfinite}) {
    std::thread releaser([&] {
      std::this_thread::sleep_for(milliseconds(20));
      semaphore.Release();
    });
    start = Clock::now();
    EXPECT_TRUE(semaphore.TryAcquire(timeout));
    EXPECT_LT(Clock::now() - start, milliseconds(5000));
    releaser.join();
  }
}

TEST(NamedSemaphoreTest, HoldersOfOneNameShareTheCount) {
  ScopedName name("share");
  CSemaphore first(name.c_str(), 1u);
  EXPECT_TRUE(first.IsNamed());
  EXPECT_TRUE(first.IsShared());
  CSemaphore second(name.c_str(), 5u);  // exists: the count is not set again
  EXPECT_TRUE(second.TryAcquire(0));
  EXPECT_FALSE(first.TryAcquire(0));
  EXPECT_FALSE(second.TryAcquire(30));
  first.Release();
  EXPECT_TRUE(second.TryAcquire(0));

  ScopedName max("max");
  CSemaphore full(max.c_str(), 0x7FFFFFFFu);
  ExpectThrow<CSynchronizationException>([&] { full.Release(); },
                                         "Failed to release the semaphore.", nullptr);
  ScopedName tooMany("toomany");
  ExpectThrow<CMemoryException>([&] { CSemaphore semaphore(tooMany.c_str(), 0x80000000u); },
                                nullptr, "vesk/base/win/WinNamedSemaphoreImpl");
  EXPECT_THROW(CSemaphore(std::string(300, 'n').c_str(), 0u), CMemoryException);
}

TEST(NamedSemaphoreTest, NamesWithSlashesStayDistinct) {
  ScopedName slash("a/b", "a%2Fb");
  ScopedName escaped("a%2Fb", "a%252Fb");
  EXPECT_FALSE(slash.Exists());
  CSemaphore one(slash.c_str(), 1u);
  CSemaphore other(escaped.c_str(), 0u);
  EXPECT_TRUE(slash.Exists());
  EXPECT_TRUE(escaped.Exists());
  EXPECT_FALSE(other.TryAcquire(0));
  EXPECT_TRUE(one.TryAcquire(0));
}

// The second process's side: opens the parent's semaphores (an initial
// count has no effect on them), waits for one count and answers with two.
bool ChildSide(const char* pingName, const char* pongName) {
  try {
    CSemaphore in(pingName, 7u);
    CSemaphore out(pongName, 7u);
    if (!in.TryAcquire(5000) || in.TryAcquire(0)) return false;
    out.Release();
    out.Release();
    return true;
  } catch (...) {
    return false;
  }
}

#if defined(_WIN32)
const char kChildVariable[] = "VESK_TEST_SEMAPHORE_CHILD";

// Run by SharedBetweenProcesses as a second process started with
// CreateProcessW; the variable carries the parent's process id.
TEST(NamedSemaphoreTest, SecondProcessOfSharedBetweenProcesses) {
  const char* parent = std::getenv(kChildVariable);
  if (!parent) GTEST_SKIP() << "runs only in the process SharedBetweenProcesses starts";
  EXPECT_TRUE(ChildSide(("vesk-test-ping-" + std::string(parent)).c_str(),
                        ("vesk-test-pong-" + std::string(parent)).c_str()));
}
#endif

TEST(NamedSemaphoreTest, SharedBetweenProcesses) {
  ScopedName ping("ping");
  ScopedName pong("pong");
  CSemaphore toChild(ping.c_str(), 0u);
  CSemaphore toParent(pong.c_str(), 0u);
  int exitCode = -1;
#if defined(_WIN32)
  std::thread child([&] {
    exitCode = vesk_test::RunTestsInChildProcess(
        "NamedSemaphoreTest.SecondProcessOfSharedBetweenProcesses", kChildVariable,
        std::to_string(vesk_test::ProcessId()));
  });
#else
  pid_t pid = fork();
  ASSERT_NE(pid, -1);
  if (pid == 0) _exit(ChildSide(ping.c_str(), pong.c_str()) ? 0 : 1);
  std::thread child([&] {
    int status = -1;
    if (waitpid(pid, &status, 0) == pid && WIFEXITED(status)) exitCode = WEXITSTATUS(status);
  });
#endif
  toChild.Release();
  EXPECT_TRUE(toParent.TryAcquire(30000));
  EXPECT_TRUE(toParent.TryAcquire(5000));
  child.join();
  EXPECT_EQ(exitCode, 0);
  EXPECT_FALSE(toParent.TryAcquire(0));
}

}  // namespace
