#include <atomic>
#include <chrono>
#include <deque>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/Condition.h"
#include "vesk/base/Lock.h"
#include "vesk/base/Semaphore.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using vesk::platform::LiveAllocations;
using vesk::testing::ExpectThrow;
using vesk::testing::ExpectThrowIfAllocationFails;
using vesk::testing::FreeForOthers;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Waits (without the lock) until value reaches at least target.
void AwaitAtLeast(const std::atomic<int>& value, int target) {
  while (value.load() < target) std::this_thread::sleep_for(milliseconds(1));
}

TEST(ConditionTest, TimeoutWithoutNotifierReturnsFalseHoldingTheLock) {
  CLock lock;
  CCondition condition(lock);
  lock.Acquire();
  condition.Notify();  // with no waiter both are lost
  condition.NotifyAll();
  for (int timeout : {0, 40}) {
    auto start = Clock::now();
    EXPECT_FALSE(condition.Wait(timeout));
    EXPECT_GE(Clock::now() - start, milliseconds(timeout ? 35 : 0));
    EXPECT_LT(Clock::now() - start, milliseconds(500));
    EXPECT_FALSE(FreeForOthers(lock));
  }
  lock.Release();
  EXPECT_TRUE(FreeForOthers(lock));
}

// Threads that each wait once under lock and count themselves in and out.
class Waiters {
 public:
  Waiters(ILockable_& lock, CCondition& condition) : m_lock(lock), m_condition(condition) {}
  ~Waiters() { Join(); }

  void Start(int count) {
    for (int i = 0; i < count; ++i) {
      m_threads.emplace_back([this] {
        m_lock.Acquire();
        ++m_waiting;
        bool notified = m_condition.Wait(10000);
        m_lock.Release();
        if (notified) ++m_woken;
      });
    }
    // Once the lock is free and every waiter counted itself, all sleep.
    for (;;) {
      m_lock.Acquire();
      int waiting = m_waiting;
      m_lock.Release();
      if (waiting == static_cast<int>(m_threads.size())) break;
      std::this_thread::sleep_for(milliseconds(1));
    }
  }
  void Join() {
    for (auto& thread : m_threads) {
      if (thread.joinable()) thread.join();
    }
  }
  std::atomic<int> m_woken{0};

 private:
  ILockable_& m_lock;
  CCondition& m_condition;
  int m_waiting = 0;
  std::vector<std::thread> m_threads;
};

// Notify wakes one waiter; NotifyAll wakes only those waiting at the time:
// a thread that starts waiting after the call times out although the
// released waiters are still on their way out.
TEST(ConditionTest, NotifyWakesOneAndNotifyAllThoseWaiting) {
  CLock lock;
  CCondition condition(lock);
  Waiters waiters(lock, condition);
  waiters.Start(4);
  lock.Acquire();
  condition.Notify();
  lock.Release();
  AwaitAtLeast(waiters.m_woken, 1);
  std::this_thread::sleep_for(milliseconds(30));
  EXPECT_EQ(waiters.m_woken.load(), 1);
  lock.Acquire();
  condition.NotifyAll();
  EXPECT_FALSE(condition.Wait(50));
  lock.Release();
  waiters.Join();
  EXPECT_EQ(waiters.m_woken.load(), 4);
}

TEST(ConditionTest, FailuresAreReportedAndUndone) {
  CSemaphore lock;  // a semaphore that is not held refuses the release
  CCondition condition(lock);
  ExpectThrow<CSynchronizationException>([&] { condition.Wait(0); },
                                         "Failed to release the specified lock.",
                                         "vesk/base/ConditionImplWin");
  // The wait was undone and the lock taken again.
  EXPECT_FALSE(lock.TryAcquire(0));
  EXPECT_FALSE(condition.Wait(0));
  condition.Notify();
  EXPECT_FALSE(condition.Wait(0)) << "the failed waiter left no one to wake";
  lock.Release();

  CLock plain;
  long live = LiveAllocations();
  ExpectThrowIfAllocationFails([&] { CCondition failing(plain); }, nullptr, "vesk/base/Base");
  EXPECT_EQ(LiveAllocations(), live);
}

// A bounded queue with two conditions; consumers mix timed waits (that time
// out now and then, exercising the give-up path) with notified wake-ups.
TEST(ConditionTest, ProducersAndConsumersStress) {
  const int kThreads = 3;  // producers, and as many consumers
  const int kItems = 2000;
  CLock lock;
  CCondition notEmpty(lock);
  CCondition notFull(lock);
  std::deque<int> queue;
  int producersLeft = kThreads;
  long long consumedSum = 0;
  int consumedCount = 0;
  std::vector<std::thread> threads;
  for (int p = 0; p < kThreads; ++p) {
    threads.emplace_back([&, p] {
      for (int i = 1; i <= kItems + 1; ++i) {  // the last round signs off
        lock.Acquire();
        while (i <= kItems && queue.size() == 4) notFull.Wait();
        if (i <= kItems) queue.push_back(p * kItems + i);
        producersLeft -= i > kItems;
        if (i % 7 == 0 || i > kItems) {
          notEmpty.NotifyAll();
        } else {
          notEmpty.Notify();
        }
        lock.Release();
      }
    });
    threads.emplace_back([&, p] {
      lock.Acquire();
      for (;;) {
        while (queue.empty() && producersLeft > 0) notEmpty.Wait(p == 0 ? 1 : 5);
        if (queue.empty()) break;
        consumedSum += queue.front();
        ++consumedCount;
        queue.pop_front();
        notFull.Notify();
      }
      lock.Release();
    });
  }
  for (auto& thread : threads) thread.join();
  const long long n = kThreads * kItems;
  EXPECT_EQ(consumedCount, n);
  EXPECT_EQ(consumedSum, n * (n + 1) / 2);
}

}  // namespace
