#if !defined(_WIN32)
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <atomic>
#include <cstdlib>
#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestSupport.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/win/CriticalSection.h"
#include "vesk/base/win/DualLock.h"
#include "vesk/base/win/Event.h"
#include "vesk/base/win/LazyCriticalSection.h"
#include "vesk/base/win/MultiLock.h"
#include "vesk/base/win/Mutex.h"
#include "vesk/base/win/SingleLock.h"
#include "vesk/base/win/WinSystemErrorException.h"

using namespace vesk::base;
using namespace vesk::base::win;
using vesk::testing::ExpectThrow;
using vesk::testing::FreeForOthers;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

const unsigned int kInfinite = 0xFFFFFFFFu;
const unsigned int kTimeout = 0x102;
const unsigned int kAbandoned = 0x80;
const unsigned int kFailed = 0xFFFFFFFFu;

// A name of this run (pid: the process whose run it is), and whether the
// host holds the object of that name: its shared segment on POSIX hosts,
// the kernel object on Windows.
struct Name {
  explicit Name(const char* stem, unsigned long pid = vesk_test::ProcessId())
      : text(std::string("vesk-test-") + stem + "-" + std::to_string(pid)) {}
  bool SegmentExists() const {
#if defined(_WIN32)
    return vesk_test::NamedObjectExists(text.c_str());
#else
    struct stat info;
    return stat(("/dev/shm/vesk.sync." + text).c_str(), &info) == 0;
#endif
  }
  std::string text;
};

using vesk_test::ThreadCpuMs;

// The second process of NamedObjectsAreSharedAcrossProcesses: takes the
// mutex, signals ready, waits for the event and ends holding the mutex.
int SecondProcess(const Name& mutexName, const Name& eventName, const Name& readyName) {
  CMutex theirs(mutexName.text.c_str(), false);
  CEvent go(eventName.text.c_str(), false, false);
  CEvent told(readyName.text.c_str(), false, false);
  if (!theirs.TryAcquire(0)) return 1;
  told.SetEvent();
  if (!go.TryAcquire(5000)) return 2;
  return 0;
}

#if defined(_WIN32)
const char kChildVariable[] = "VESK_TEST_SYNC_CHILD";

// Run by NamedObjectsAreSharedAcrossProcesses in a process of its own
// (CreateProcessW); the variable carries the parent's process id.
TEST(SyncObjectTest, SecondProcessOfNamedObjectsAreShared) {
  const char* parent = std::getenv(kChildVariable);
  if (!parent) GTEST_SKIP() << "runs only in the process NamedObjectsAreSharedAcrossProcesses starts";
  unsigned long pid = std::stoul(parent);
  EXPECT_EQ(0, SecondProcess(Name("mutex", pid), Name("event", pid), Name("ready", pid)));
}

int InSecondProcess(const Name&, const Name&, const Name&) {
  return vesk_test::RunTestsInChildProcess("SyncObjectTest.SecondProcessOfNamedObjectsAreShared",
                                           kChildVariable, std::to_string(vesk_test::ProcessId()));
}
#else
// Runs the second process's side in a forked process; its exit status.
int InSecondProcess(const Name& mutexName, const Name& eventName, const Name& readyName) {
  pid_t pid = fork();
  if (pid == 0) _exit(SecondProcess(mutexName, eventName, readyName));
  int status = -1;
  waitpid(pid, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
#endif

TEST(SyncObjectTest, ArgumentsAreChecked) {
  CEvent event(nullptr, false, false);
  CCriticalSection section;
  CSyncObject* withSection[] = {&event, &section};
  CSyncObject* withNull[] = {&event, nullptr};
  void* handles[] = {event.GetHandle(), event.GetHandle()};
  struct Case {
    const char* source;
    const char* description;
    std::function<void()> call;
  } cases[] = {
      {"vesk/base/win/SyncObject", "Invalid wait handle.", [] { CSyncObject::WaitForSingleSyncObject(nullptr, 0); }},
      {"vesk/base/win/SyncObject", "Invalid wait handle count.",
       [&] { CSyncObject::WaitForMultipleSyncObject(1, handles, false, 0); }},
      {"vesk/base/win/SyncObject", "Invalid wait handle array.",
       [] { CSyncObject::WaitForMultipleSyncObject(2, nullptr, false, 0); }},
      {"vesk/base/win/SingleLock", "Invalid sync object.", [] { CSingleLock lock(nullptr, false); }},
      {"vesk/base/win/DualLock", "Sync object 1 is invalid.", [&] { CDualLock lock(nullptr, &event, false); }},
      {"vesk/base/win/DualLock", "Sync object 1 is not waitable.", [&] { CDualLock lock(&section, &event, false); }},
      {"vesk/base/win/DualLock", "Sync object 2 is invalid.", [&] { CDualLock lock(&event, nullptr, false); }},
      {"vesk/base/win/DualLock", "Sync object 2 is not waitable.", [&] { CDualLock lock(&event, &section, false); }},
      {"vesk/base/win/MultiLock", "Invalid sync object count.", [&] { CMultiLock lock(1, withSection, false); }},
      {"vesk/base/win/MultiLock", "Invalid sync object array.", [] { CMultiLock lock(2, nullptr, false); }},
      {"vesk/base/win/MultiLock", "Invalid sync object.", [&] { CMultiLock lock(2, withSection, false); }},
      {"vesk/base/win/MultiLock", "Invalid sync object.", [&] { CMultiLock lock(2, withNull, false); }},
  };
  for (const Case& c : cases) ExpectThrow<CIllegalArgumentException>(c.call, c.description, c.source);
  CSyncObject* two[] = {&event, &event};
  CDualLock dual(&event, &event, false);
  CMultiLock multi(2, two, false);
  EXPECT_THROW(dual.IsLocked(2), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(multi.IsLocked(2), CArrayIndexOutOfBoundsException);
  // Beyond 64 handles, a handle that is none, one object twice in a wait
  // for all: failures, as the system reports them.
  std::vector<void*> many(65, event.GetHandle());
  alignas(16) unsigned char notAnObject[256] = {};
  void* bad[] = {event.GetHandle(), notAnObject};
  EXPECT_EQ(kFailed, CSyncObject::WaitForMultipleSyncObject(65, many.data(), false, 0));
  EXPECT_EQ(kFailed, CSyncObject::WaitForMultipleSyncObject(2, bad, false, 0));
  EXPECT_EQ(kFailed, CSyncObject::WaitForMultipleSyncObject(2, handles, true, 0));
}

// Kernel objects have a handle to wait on; sections and locks have none.
TEST(SyncObjectTest, ClassesAndHandles) {
  CEvent event(nullptr, false, true);
  CMutex mutex("", false);
  CCriticalSection section;
  CSingleLock single(&event, false);
  EXPECT_TRUE(event.GetHandle() && mutex.GetHandle());
  EXPECT_FALSE(section.GetHandle() || single.GetHandle());
  EXPECT_FALSE(event.IsNamed() || mutex.IsNamed());
  EXPECT_STREQ("vesk::base::win::CSyncObject", single.GetClass()->GetBaseClass1()->GetQualifiedName());
  EXPECT_TRUE(event.IsTimeoutSupported());
  EXPECT_FALSE(section.IsTimeoutSupported());
}

// Made on first use (the racing first users are the lazy lock's test: one
// creation function serves both).
TEST(SyncObjectTest, LazySectionIsMadeOnFirstUse) {
  vesk::testing::FaultGuard guard;
  long before = vesk::platform::LiveAllocations();
  CLazyCriticalSection lazy;
  lazy.Release();  // nothing made yet: nothing to leave
  EXPECT_EQ(before, vesk::platform::LiveAllocations());
  lazy.Acquire();
  EXPECT_TRUE(lazy.TryAcquire(0));  // re-entrant for its owner
  lazy.Release();
  EXPECT_FALSE(FreeForOthers(lazy));
  lazy.Release();
  EXPECT_TRUE(FreeForOthers(lazy));
  EXPECT_EQ(before + 1, vesk::platform::LiveAllocations());
}

TEST(SyncObjectTest, EventsResetByHandOrByTheirWaiter) {
  CEvent manual(nullptr, true, true);
  EXPECT_TRUE(manual.TryAcquire(0) && manual.TryAcquire(0));
  manual.ResetEvent();
  EXPECT_FALSE(manual.TryAcquire(0));
  CEvent automatic(nullptr, true, false);
  EXPECT_TRUE(automatic.TryAcquire(0));
  EXPECT_FALSE(automatic.TryAcquire(0));

  // Each set wakes exactly one of the waiters.
  std::atomic<int> woken{0};
  std::vector<std::thread> waiters;
  for (int i = 0; i < 3; ++i) waiters.emplace_back([&] {
      if (automatic.TryAcquire(5000)) ++woken;
    });
  std::this_thread::sleep_for(milliseconds(30));
  for (int set = 1; set <= 3; ++set) {
    automatic.SetEvent();
    for (int i = 0; i < 1000 && woken < set; ++i) std::this_thread::sleep_for(milliseconds(1));
    std::this_thread::sleep_for(milliseconds(20));
    EXPECT_EQ(set, woken.load());
  }
  for (std::thread& t : waiters) t.join();
  EXPECT_FALSE(automatic.TryAcquire(0));
}

TEST(SyncObjectTest, MutexIsRecursiveAndOwned) {
  CMutex mutex(nullptr, true);
  EXPECT_FALSE(FreeForOthers(mutex));
  mutex.Acquire();
  mutex.Release();
  EXPECT_FALSE(FreeForOthers(mutex));
  std::thread([&] {
    ExpectThrow<CWinSystemErrorException>([&] { mutex.Release(); },
                                          "Failed to release the underlying mutex object.",
                                          "vesk/base/win/Mutex");
  }).join();
  mutex.Release();
  EXPECT_TRUE(FreeForOthers(mutex));

  // A timed Lock of a lock not yet held takes the mutex but answers false
  // and leaves the lock unmarked, so Unlock does not give the mutex back.
  {
    CSingleLock lock(&mutex, false);
    EXPECT_FALSE(lock.Lock(0));
    EXPECT_FALSE(lock.IsLocked());
    lock.Unlock();
    EXPECT_FALSE(FreeForOthers(mutex));
    lock.Lock();
    EXPECT_TRUE(lock.Lock(0));  // held: answers the flag
    mutex.Release();
  }
  mutex.Release();  // the hold the timed Lock took
  EXPECT_TRUE(FreeForOthers(mutex));
}

TEST(SyncObjectTest, MutexOfAnEndedThreadIsAbandoned) {
  CMutex mutex(nullptr, false);
  CEvent other(nullptr, false, false);
  std::thread([&] { mutex.Acquire(); }).join();
  EXPECT_EQ(kAbandoned, CSyncObject::WaitForSingleSyncObject(mutex.GetHandle(), 0));
  mutex.Release();
  EXPECT_EQ(0u, CSyncObject::WaitForSingleSyncObject(mutex.GetHandle(), 0));
  mutex.Release();

  // In a wait for any, abandoned reports the index; a wait for all that
  // backs out keeps the abandonment for the next taker.
  std::thread([&] { mutex.Acquire(); }).join();
  void* handles[] = {other.GetHandle(), mutex.GetHandle()};
  EXPECT_EQ(kTimeout, CSyncObject::WaitForMultipleSyncObject(2, handles, true, 0));
  EXPECT_EQ(kAbandoned + 1, CSyncObject::WaitForMultipleSyncObject(2, handles, false, 0));
  mutex.Release();
}

TEST(SyncObjectTest, WaitForAnyTakesTheLowestAndWaitForAllAllOrNone) {
  CEvent e0(nullptr, false, true), e1(nullptr, true, true), e2(nullptr, true, false);
  CMutex mutex(nullptr, false);
  void* any[] = {e0.GetHandle(), e1.GetHandle(), e2.GetHandle()};
  EXPECT_EQ(1u, CSyncObject::WaitForMultipleSyncObject(3, any, false, 0));
  EXPECT_TRUE(e2.TryAcquire(0));  // untouched by that wait

  CEvent a(nullptr, true, false), b(nullptr, false, false);
  void* all[] = {a.GetHandle(), mutex.GetHandle(), b.GetHandle()};
  EXPECT_EQ(kTimeout, CSyncObject::WaitForMultipleSyncObject(3, all, true, 0));
  EXPECT_TRUE(FreeForOthers(mutex));  // given back
  std::thread setter([&] {
    std::this_thread::sleep_for(milliseconds(30));
    b.SetEvent();
  });
  auto start = Clock::now();
  EXPECT_EQ(0u, CSyncObject::WaitForMultipleSyncObject(3, all, true, 2000));
  EXPECT_LT(Clock::now() - start, milliseconds(1000));
  setter.join();
  EXPECT_FALSE(a.TryAcquire(0));
  EXPECT_FALSE(b.TryAcquire(0));
  EXPECT_FALSE(FreeForOthers(mutex));
  mutex.Release();
}

TEST(SyncObjectTest, TimeOutsAreKeptWithoutSpinning) {
  CEvent event(nullptr, false, false);
  CMutex mutex(nullptr, false);
  std::atomic<bool> held{false}, done{false};
  std::thread owner([&] {
    mutex.Acquire();
    held = true;
    while (!done) std::this_thread::sleep_for(milliseconds(1));
    mutex.Release();
  });
  while (!held) std::this_thread::sleep_for(milliseconds(1));
  void* handles[] = {event.GetHandle(), mutex.GetHandle()};
  std::function<unsigned int()> waits[] = {
      [&] { return CSyncObject::WaitForSingleSyncObject(event.GetHandle(), 60); },
      [&] { return CSyncObject::WaitForSingleSyncObject(mutex.GetHandle(), 60); },
      [&] { return CSyncObject::WaitForMultipleSyncObject(2, handles, false, 60); },
      [&] { return CSyncObject::WaitForMultipleSyncObject(2, handles, true, 60); },
  };
  for (auto& wait : waits) {
    double cpu = ThreadCpuMs();
    auto start = Clock::now();
    EXPECT_EQ(kTimeout, wait());
    auto took = Clock::now() - start;
    // A few milliseconds late on an idle machine; the bound leaves room for
    // a loaded one (the sanitizer runs share two cores).
    EXPECT_GE(took, milliseconds(60));
    EXPECT_LT(took, milliseconds(160));
    EXPECT_LT(ThreadCpuMs() - cpu, 15.0);
  }
  done = true;
  owner.join();
}

TEST(SyncObjectTest, LocksMarkWhatTheyTook) {
  CMutex m0(nullptr, false), m1(nullptr, false);
  {
    CDualLock dual(&m0, &m1, false);
    EXPECT_EQ(0u, dual.Lock(true, 0));
    EXPECT_TRUE(dual.IsLocked(0) && dual.IsLocked(1));
    EXPECT_FALSE(FreeForOthers(m1));
  }
  EXPECT_TRUE(FreeForOthers(m0) && FreeForOthers(m1));
  CEvent e0(nullptr, false, false), e1(nullptr, true, false);
  CSyncObject* objects[] = {&e0, &m0, &e1};
  {
    CMultiLock multi(3, objects, true);  // any: the free mutex at index 1
    EXPECT_FALSE(multi.IsLocked(0));
    EXPECT_TRUE(multi.IsLocked(1));
    EXPECT_FALSE(multi.IsLocked(2));
    EXPECT_FALSE(FreeForOthers(m0));
    multi.Unlock();
    EXPECT_FALSE(multi.IsLocked(1));
    EXPECT_TRUE(FreeForOthers(m0));
    EXPECT_EQ(kTimeout, multi.Lock(true, 0));
  }
  EXPECT_TRUE(e1.TryAcquire(0));
}

TEST(SyncObjectTest, NamedObjectsAreSharedAcrossProcesses) {
  Name mutexName("mutex"), eventName("event"), readyName("ready");
  {
    CMutex mutex(mutexName.text.c_str(), true);
    CMutex same(mutexName.text.c_str(), true);  // opened: not owned by this call
    EXPECT_TRUE(mutex.IsNamed());
    EXPECT_TRUE(mutexName.SegmentExists());
    EXPECT_FALSE(FreeForOthers(same));
    mutex.Release();
    EXPECT_TRUE(FreeForOthers(same));
    EXPECT_THROW(CEvent(mutexName.text.c_str(), false, false), CMemoryException);
    EXPECT_THROW(CMutex(std::string(300, 'n').c_str(), false), CMemoryException);  // too long a name

    CEvent event(eventName.text.c_str(), false, true);
    CEvent ready(readyName.text.c_str(), false, false);
    // The child takes the mutex, signals, waits for the event and exits
    // holding the mutex.
    std::thread parent([&] {
      EXPECT_TRUE(ready.TryAcquire(5000));
      EXPECT_FALSE(mutex.TryAcquire(0));
      event.SetEvent();
    });
    int status = InSecondProcess(mutexName, eventName, readyName);
    parent.join();
    EXPECT_EQ(0, status);
    EXPECT_EQ(kAbandoned, CSyncObject::WaitForSingleSyncObject(mutex.GetHandle(), 1000));
    mutex.Release();
  }
  // The last holder removes the segments.
  EXPECT_FALSE(mutexName.SegmentExists());
  EXPECT_FALSE(eventName.SegmentExists());
}

#if !defined(_WIN32)
// A segment its creator left half made (never sized, or never filled in) is
// made anew by the next opener, without waiting for it.
TEST(SyncObjectTest, HalfMadeSegmentIsReplaced) {
  for (off_t size : {off_t(0), off_t(4096)}) {
    Name name("half");
    std::string host = "/vesk.sync." + name.text;
    int fd = shm_open(host.c_str(), O_RDWR | O_CREAT | O_EXCL, 0600);
    ASSERT_GE(fd, 0);
    EXPECT_EQ(0, ftruncate(fd, size));
    close(fd);
    auto start = Clock::now();
    {
      CMutex mutex(name.text.c_str(), true);
      EXPECT_FALSE(FreeForOthers(mutex));
      mutex.Release();
    }
    EXPECT_LT(Clock::now() - start, milliseconds(1000)) << size;
    EXPECT_FALSE(name.SegmentExists());
  }
}

#endif

TEST(SyncObjectTest, AllocationFailuresLeakNothing) {
  CEvent e0(nullptr, false, false), e1(nullptr, false, false);
  CSyncObject* objects[] = {&e0, &e1};
  struct Op {
    const char* what;
    std::function<void()> run;
  } ops[] = {
      {"mutex", [] { CMutex mutex(nullptr, true); }},
      {"named event", [] { CEvent event(Name("faults").text.c_str(), true, false); }},
      {"multi lock", [&] { CMultiLock lock(2, objects, false); }},
      {"section", [] { CCriticalSection section; }},
      {"lazy section", [] {
         CLazyCriticalSection lazy;
         lazy.Acquire();
         lazy.Release();
       }},
  };
  for (const Op& op : ops) EXPECT_GT(vesk::testing::FailEachAllocationInTurn(op.run), 0) << op.what;
}

}  // namespace
