// CString next to std::string: copying a 100-byte string (a shared buffer
// against a heap copy) and creating and destroying a 40-byte string (a pool
// block against a heap block).
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "vesk/base/String.h"

using vesk::base::CString;

namespace {

const std::string k100(100, 'c');
const std::string k40(40, 'd');

void BM_CopyCString100(benchmark::State& state) {
  CString source(k100.c_str());
  for (auto _ : state) {
    CString copy(source);
    benchmark::DoNotOptimize(copy);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_CopyCString100);

void BM_CopyStdString100(benchmark::State& state) {
  std::string source(k100);
  for (auto _ : state) {
    std::string copy(source);
    benchmark::DoNotOptimize(copy);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_CopyStdString100);

void BM_CreateDestroyCString40(benchmark::State& state) {
  const char* text = k40.c_str();
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    CString s(text);
    benchmark::DoNotOptimize(s);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_CreateDestroyCString40);

void BM_CreateDestroyStdString40(benchmark::State& state) {
  const char* text = k40.c_str();
  for (auto _ : state) {
    benchmark::DoNotOptimize(text);
    std::string s(text);
    benchmark::DoNotOptimize(s);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(BM_CreateDestroyStdString40);

}  // namespace

// One million 40-byte strings made, then destroyed in a random order: the
// pool's bookkeeping against the general heap's.
template <class S>
void RandomOrderFree(benchmark::State& state) {
  constexpr size_t kCount = 1000000;
  std::vector<size_t> order(kCount);
  for (size_t i = 0; i < kCount; ++i) order[i] = i;
  std::shuffle(order.begin(), order.end(), std::mt19937(3));
  const char* text = "0123456789012345678901234567890123456789";
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<S*> strings(kCount);
    for (size_t i = 0; i < kCount; ++i) strings[i] = new S(text);
    state.ResumeTiming();
    for (size_t i : order) delete strings[i];
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * kCount);
}
void BM_RandomOrderFree_CString(benchmark::State& state) { RandomOrderFree<CString>(state); }
BENCHMARK(BM_RandomOrderFree_CString)->Unit(benchmark::kMillisecond);
void BM_RandomOrderFree_StdString(benchmark::State& state) { RandomOrderFree<std::string>(state); }
BENCHMARK(BM_RandomOrderFree_StdString)->Unit(benchmark::kMillisecond);
