// Threads and the native synchronisation objects next to their peers: thread
// start and join against std::thread, an event ping-pong against a condition
// variable, and a named mutex against a process-shared robust pthread mutex.
// (The critical section runs with the other locks in LockBench.)
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

#include <benchmark/benchmark.h>

#include "vesk/base/Thread.h"
#include "vesk/base/win/Event.h"
#include "vesk/base/win/Mutex.h"

namespace {

class CEmptyThread : public vesk::base::CThread {
 public:
  void Run() override {}
};

void BM_StdThreadStartJoin(benchmark::State& state) {
  for (auto _ : state) {
    std::thread thread([] {});
    thread.join();
  }
}
BENCHMARK(BM_StdThreadStartJoin);

void BM_CThreadStartJoin(benchmark::State& state) {
  for (auto _ : state) {
    CEmptyThread thread;
    thread.Start();
    thread.Join();
  }
}
BENCHMARK(BM_CThreadStartJoin);

// One round trip per iteration: the main thread pings, a partner pongs.
void BM_CondVarPingPong(benchmark::State& state) {
  std::mutex mutex;
  std::condition_variable changed;
  int turn = 0;  // 0: main's, 1: partner's, 2: stop
  std::thread partner([&] {
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
      changed.wait(lock, [&] { return turn != 0; });
      if (turn == 2) return;
      turn = 0;
      changed.notify_one();
    }
  });
  for (auto _ : state) {
    std::unique_lock<std::mutex> lock(mutex);
    turn = 1;
    changed.notify_one();
    changed.wait(lock, [&] { return turn == 0; });
  }
  {
    std::lock_guard<std::mutex> lock(mutex);
    turn = 2;
  }
  changed.notify_one();
  partner.join();
}
BENCHMARK(BM_CondVarPingPong)->UseRealTime();

void BM_CEventPingPong(benchmark::State& state) {
  vesk::base::win::CEvent ping(nullptr, false, false), pong(nullptr, false, false);
  std::atomic<bool> stop{false};
  std::thread partner([&] {
    for (;;) {
      ping.Acquire();
      if (stop.load(std::memory_order_relaxed)) return;
      pong.SetEvent();
    }
  });
  for (auto _ : state) {
    ping.SetEvent();
    pong.Acquire();
  }
  stop = true;
  ping.SetEvent();
  partner.join();
}
BENCHMARK(BM_CEventPingPong)->UseRealTime();

void BM_SharedRobustPthreadMutex(benchmark::State& state) {
  pthread_mutex_t mutex;
  pthread_mutexattr_t attributes;
  pthread_mutexattr_init(&attributes);
  pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
  pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
  pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
  pthread_mutex_init(&mutex, &attributes);
  pthread_mutexattr_destroy(&attributes);
  for (auto _ : state) {
    pthread_mutex_lock(&mutex);
    pthread_mutex_unlock(&mutex);
  }
  pthread_mutex_destroy(&mutex);
}
BENCHMARK(BM_SharedRobustPthreadMutex);

void BM_NamedCMutex(benchmark::State& state) {
  std::string name = "vesk-bench-" + std::to_string(getpid());
  vesk::base::win::CMutex mutex(name.c_str(), false);
  for (auto _ : state) {
    mutex.Acquire();
    mutex.Release();
  }
}
BENCHMARK(BM_NamedCMutex);

}  // namespace
