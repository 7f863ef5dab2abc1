#include <atomic>
#include <chrono>
#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/LazyLock.h"
#include "vesk/base/Lock.h"
#include "vesk/base/ReentrantLock.h"
#include "vesk/base/SimpleLockManager.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using vesk::platform::LiveAllocations;
using vesk::testing::ExpectThrowIfAllocationFails;
using vesk::testing::FreeForOthers;

namespace {

using Clock = std::chrono::steady_clock;

template <typename T>
class OwnedLockTest : public ::testing::Test {};

using OwnedLocks = ::testing::Types<CLock, CReentrantLock, CLazyLock>;
TYPED_TEST_SUITE(OwnedLockTest, OwnedLocks);

// Another thread's TryAcquire gives up at once whatever its time-out; the
// owner re-enters, and each hold needs its own release.
TYPED_TEST(OwnedLockTest, TryAcquireNeverWaitsAndOwnerReenters) {
  TypeParam lock;
  lock.Acquire();
  EXPECT_TRUE(lock.TryAcquire(0));
  lock.Release();
  for (unsigned int timeout : {0u, 500u, 0xFFFFFFFFu}) {
    bool acquired = true;
    auto start = Clock::now();
    std::thread([&] { acquired = lock.TryAcquire(timeout); }).join();
    EXPECT_FALSE(acquired) << timeout;
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(400)) << timeout;
  }
  lock.Release();
  EXPECT_TRUE(FreeForOthers(lock));
}

// Plain (non-atomic) updates that only stay exact under mutual exclusion; the
// thread sanitizer checks the same property from the other side.
template <typename Lockable>
void Hammer(Lockable& lock, int threads, int rounds, long* counter) {
  std::vector<std::thread> workers;
  std::atomic<bool> go{false};
  for (int t = 0; t < threads; ++t) {
    workers.emplace_back([&] {
      while (!go.load()) std::this_thread::yield();
      for (int i = 0; i < rounds; ++i) {
        lock.Acquire();
        long seen = *counter;
        std::this_thread::yield();
        *counter = seen + 1;
        lock.Release();
      }
    });
  }
  go = true;
  for (auto& worker : workers) worker.join();
}

TYPED_TEST(OwnedLockTest, ExcludesOtherThreads) {
  TypeParam lock;
  long counter = 0;
  Hammer(lock, 4, 500, &counter);
  EXPECT_EQ(counter, 4 * 500);
}

TEST(LockTest, AllocationFailureInConstructorsLeaksNothing) {
  long live = LiveAllocations();
  ExpectThrowIfAllocationFails([&] { CLock lock; }, nullptr, "vesk/base/Base");
  ExpectThrowIfAllocationFails([] { CReentrantLock(); });
  EXPECT_EQ(LiveAllocations(), live);
}

// Nothing is made until the first use; first users that race make one
// section between them, and it goes with the lock.
TEST(LazyLockTest, FirstUseMakesOneSection) {
  long live = LiveAllocations();
  {
    CLazyLock lock;
    lock.Release();  // before any acquire: nothing to leave
    EXPECT_EQ(LiveAllocations(), live);
  }
  for (int round = 0; round < 20; ++round) {
    CLazyLock lock;
    long counter = 0;
    Hammer(lock, 4, 50, &counter);
    EXPECT_EQ(counter, 4 * 50);
    EXPECT_EQ(LiveAllocations(), live + 1) << "round " << round;
  }
  EXPECT_EQ(LiveAllocations(), live);
}

TEST(LazyLockTest, FailedCreationIsReportedAndLeavesTheLockUsable) {
  long live = LiveAllocations();
  CLazyLock lock;
  ExpectThrowIfAllocationFails<CSynchronizationException>(
      [&] { lock.Acquire(); }, "Failed to create lock.", "vesk/base/LazyLock");
  ExpectThrowIfAllocationFails<CSynchronizationException>([&] { lock.TryAcquire(0); });
  EXPECT_EQ(LiveAllocations(), live);
  // The creation lock was given back: another first use succeeds.
  EXPECT_TRUE(lock.TryAcquire(0));
  lock.Release();
}

TEST(SimpleLockManagerTest, CountsAndHandles) {
  char block[4] = "abc";
  char* address = block;
  char* otherAddress = block + 1;
  char** handle = &address;
  char** other = &otherAddress;
  CSimpleLockManager none;
  EXPECT_EQ(none.GetManagedHandle(), nullptr);
  EXPECT_EQ(none.Unlock(), 0u);  // never below 0
  EXPECT_EQ(none.Lock(), 1u);
  const CSimpleLockManager manager(handle);  // counts through a const manager
  EXPECT_EQ(manager.Lock(), 1u);
  EXPECT_EQ(manager.Lock(), 2u);
  EXPECT_EQ(manager.Unlock(), 1u);
  CSimpleLockManager moving(handle);
  moving.Lock();
  moving.Lock();
  moving.SetManagedHandle(handle);  // the same handle keeps the count
  EXPECT_EQ(moving.Unlock(), 1u);
  moving.SetManagedHandle(other);
  EXPECT_EQ(moving.Lock(), 1u) << "a new handle starts again at 0";
  EXPECT_EQ(moving.DetachManagedHandle(), other);
  EXPECT_EQ(moving.GetManagedHandle(), nullptr);
  EXPECT_EQ(moving.Lock(), 2u) << "detaching keeps the count";
}

}  // namespace
