// CString next to std::string: copying a 100-byte string (a shared buffer
// against a heap copy) and creating and destroying a 40-byte string (a pool
// block against a heap block).
#include <string>

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
