#include <time.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/IllegalStateException.h"
#include "vesk/base/Thread.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/platform/DebugSink.h"

using namespace vesk::base;
using vesk::base::win::CWinSystemErrorException;
using vesk::testing::ExpectThrow;

namespace {

using Clock = std::chrono::steady_clock;

// A thread whose body is a function of the thread itself.
class CBodyThread : public CThread {
 public:
  explicit CBodyThread(std::function<void(CBodyThread&)> body) : m_body(std::move(body)) {}
  void Run() override { m_body(*this); }
  using CThread::Exit;
  using CThread::IsStopped;
  using CThread::Wait;

 private:
  std::function<void(CBodyThread&)> m_body;
};

// Captures the debug output while it lives.
class DebugCapture {
 public:
  DebugCapture() { m_old = vesk::platform::SetDebugCaptureHook(&Capture, this); }
  ~DebugCapture() { vesk::platform::SetDebugCaptureHook(m_old, nullptr); }
  std::string text;

 private:
  static void Capture(const char* text, std::size_t length, void* context) {
    static_cast<DebugCapture*>(context)->text.append(text, length);
  }
  vesk::platform::DebugCaptureHook m_old;
};

// A thread lets go of its record just after Join sees it end.
void ExpectSettles(long before) {
  for (int i = 0; i < 2000 && vesk::testing::Outstanding() != before; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_EQ(before, vesk::testing::Outstanding());
}

// One thread through its life: refused before Start; Join waits, with a
// time-out, and can be repeated; Stop wakes a body in Wait and stays set; the
// body is the current thread (a std::thread it starts is none).
TEST(ThreadTest, JoinStopAndTheCurrentThread) {
  EXPECT_EQ(nullptr, CThread::GetCurrentThread());
  std::atomic<bool> waiting{false};
  bool timedOut = false, woken = false, stopped = false;
  CThread* seen = nullptr;
  CThread* onStdThread = reinterpret_cast<CThread*>(1);
  CBodyThread thread([&](CBodyThread& self) {
    seen = CThread::GetCurrentThread();
    std::thread([&] { onStdThread = CThread::GetCurrentThread(); }).join();
    timedOut = !self.Wait(20);
    waiting = true;
    woken = self.Wait(0xFFFFFFFFu);
    stopped = self.IsStopped() && self.IsStopped();
  });
  CBodyThread other([](CBodyThread&) {});
  EXPECT_TRUE(thread == thread && thread != other);
  EXPECT_FALSE(thread.IsAlive());
  EXPECT_EQ(0, thread.GetPriority());
  std::function<void()> calls[] = {[&] { thread.Join(); }, [&] { thread.Join(5); }, [&] { thread.Destroy(); }};
  for (auto& call : calls) {
    ExpectThrow<CIllegalStateException>(call, "Thread hasn't been started yet.",
                                        "vesk/base/win/WinThreadImpl");
  }
  thread.Start();
  EXPECT_TRUE(thread.IsAlive());
  EXPECT_FALSE(thread.Join(0));
  while (!waiting) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  auto start = Clock::now();
  EXPECT_FALSE(thread.Join(40));
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(40));
  start = Clock::now();
  thread.Stop();
  EXPECT_TRUE(thread.Join(2000));
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(500));
  EXPECT_TRUE(thread.Join(0) && thread.Join(0xFFFFFFFFu));
  EXPECT_FALSE(thread.IsAlive());
  thread.Destroy();  // an ended thread is left alone
  EXPECT_TRUE(timedOut && woken && stopped);
  EXPECT_EQ(&thread, seen);
  EXPECT_EQ(nullptr, onStdThread);
}

TEST(ThreadTest, BodyExceptionsAreReportedAndSwallowed) {
  DebugCapture capture;
  CBodyThread throwing([](CBodyThread&) {
    throw CIllegalStateException("vesk/test/Body", 12, "Body failed.", "On purpose.");
  });
  CBodyThread foreign([](CBodyThread&) { throw 42; });
  throwing.Start();
  throwing.Join();
  foreign.Start();
  foreign.Join();
  EXPECT_EQ(
      "--- Exception occured ----------------------------------------------------------\n"
      "\tvesk::base::CIllegalStateException\n"
      "--- Details --------------------------------------------------------------------\n"
      "\tLocation :\n\t\tvesk/test/Body(12)\n"
      "\tError description :\n\t\tBody failed.\n"
      "\tMessage : \n\t\tOn purpose.\n",
      capture.text);
}

TEST(ThreadTest, AutoDeletedThreadDeletesItselfAfterTheBody) {
  struct CCounted : CBodyThread {
    CCounted(std::atomic<int>* d) : CBodyThread([](CBodyThread&) {}), deleted(d) {}
    ~CCounted() override { ++*deleted; }
    std::atomic<int>* deleted;
  };
  vesk::testing::FaultGuard guard;
  long before = vesk::testing::Outstanding();
  std::atomic<int> deleted{0};
  CCounted* thread = new CCounted(&deleted);
  thread->SetAutoDeleted(true);
  EXPECT_TRUE(thread->IsAutoDeleted());
  thread->Start();
  for (int i = 0; i < 2000 && deleted == 0; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_EQ(1, deleted.load());
  ExpectSettles(before);
}

TEST(ThreadTest, ExitAndDestroyEndTheThread) {
#if !defined(__SANITIZE_THREAD__)
  // ThreadSanitizer stops following a thread once it exits or is cancelled,
  // so the clean-up that runs as that thread unwinds looks unguarded to it.
  std::atomic<bool> pastExit{false};
  CBodyThread exiting([&](CBodyThread& self) {
    self.Exit(7);
    pastExit = true;
  });
  exiting.SetAutoDeleted(false);
  exiting.Start();
  EXPECT_TRUE(exiting.Join(2000));
  EXPECT_FALSE(pastExit);

  // Destroy ends a body sleeping in Wait and one sleeping in the system.
  std::atomic<int> ended{0};
  CBodyThread waiting([&](CBodyThread& self) {
    self.Wait(0xFFFFFFFFu);
    ++ended;
  });
  CBodyThread sleeping([&](CBodyThread&) {
    for (;;) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  });
  waiting.Start();
  sleeping.Start();
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  waiting.Destroy();
  sleeping.Destroy();
  EXPECT_TRUE(waiting.Join(2000));
  EXPECT_TRUE(sleeping.Join(2000));
  EXPECT_EQ(0, ended.load());
#endif
}

TEST(ThreadTest, PrioritiesAreLevels) {
  std::atomic<bool> release{false};
  auto body = [&](CBodyThread&) {
    while (!release) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  };
  CBodyThread thread(body);
  thread.SetPriority(-1);
  EXPECT_EQ(-1, thread.GetPriority());
  thread.Start();
  EXPECT_EQ(-1, thread.GetPriority());  // read back from the running thread
  thread.SetPriority(-15);
  EXPECT_EQ(-15, thread.GetPriority());
  ExpectThrow<CWinSystemErrorException>([&] { thread.SetPriority(5); },
                                        "Failed to set the priority of the thread.");
  CBodyThread badStart(body);
  badStart.SetPriority(3);
  ExpectThrow<CWinSystemErrorException>([&] { badStart.Start(); },
                                        "Failed to set the initial priority of the thread.");
  release = true;
  thread.Join();
  badStart.Join();  // it runs, at its creator's priority
}

TEST(ThreadTest, AllocationFailuresLeakNothing) {
  EXPECT_GT(vesk::testing::FailEachAllocationInTurn([] { CBodyThread thread([](CBodyThread&) {}); }), 0);
  vesk::testing::FaultGuard guard;
  long before = vesk::testing::Outstanding();
#if !defined(_WIN32)
  // A POSIX thread keeps a record made at its start; a Windows thread is its
  // kernel object alone, and its start allocates nothing.
  {
    CBodyThread thread([](CBodyThread&) {});
    vesk::testing::ExpectThrowIfAllocationFails([&] { thread.Start(); });
    EXPECT_FALSE(thread.IsAlive());
    thread.Start();
    thread.Join();
  }
#endif
  ExpectSettles(before);
}

}  // namespace
