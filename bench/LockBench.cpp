// Uncontended lock and unlock: the library's locks next to the standard
// library's recursive mutex, the peer of a re-entrant critical section.
#include <mutex>

#include <benchmark/benchmark.h>

#include "vesk/base/LazyLock.h"
#include "vesk/base/Lock.h"
#include "vesk/base/ReentrantLock.h"
#include "vesk/base/Semaphore.h"
#include "vesk/base/win/CriticalSection.h"

namespace {

void BM_StdRecursiveMutex(benchmark::State& state) {
  std::recursive_mutex mutex;
  for (auto _ : state) {
    mutex.lock();
    mutex.unlock();
  }
}
BENCHMARK(BM_StdRecursiveMutex);

void BM_CLock(benchmark::State& state) {
  vesk::base::CLock lock;
  for (auto _ : state) {
    lock.Acquire();
    lock.Release();
  }
}
BENCHMARK(BM_CLock);

// Through the contract, as code that takes any ILockable_ calls it.
void BM_CLockThroughInterface(benchmark::State& state) {
  vesk::base::CLock lock;
  vesk::base::ILockable_* lockable = &lock;
  benchmark::DoNotOptimize(lockable);
  for (auto _ : state) {
    lockable->Acquire();
    lockable->Release();
  }
}
BENCHMARK(BM_CLockThroughInterface);

void BM_CReentrantLock(benchmark::State& state) {
  vesk::base::CReentrantLock lock;
  for (auto _ : state) {
    lock.Acquire();
    lock.Release();
  }
}
BENCHMARK(BM_CReentrantLock);

void BM_CCriticalSection(benchmark::State& state) {
  vesk::base::win::CCriticalSection section;
  for (auto _ : state) {
    section.Acquire();
    section.Release();
  }
}
BENCHMARK(BM_CCriticalSection);

void BM_CLazyLock(benchmark::State& state) {
  vesk::base::CLazyLock lock;
  for (auto _ : state) {
    lock.Acquire();
    lock.Release();
  }
}
BENCHMARK(BM_CLazyLock);

void BM_CSemaphoreBinary(benchmark::State& state) {
  vesk::base::CSemaphore semaphore;
  for (auto _ : state) {
    semaphore.Acquire();
    semaphore.Release();
  }
}
BENCHMARK(BM_CSemaphoreBinary);

}  // namespace
