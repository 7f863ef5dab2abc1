// File streams next to stdio in the same run: 64 MiB in 64 KiB blocks through
// CFileOutputStream / CFileInputStream against fwrite / fread, and 16 MiB one
// byte at a time through the buffered decorators over the file streams
// against putc / getc. Files live in the temporary folder and are removed.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "vesk/io/BufferedInputStream.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/FileInputStream.h"
#include "vesk/io/FileOutputStream.h"

namespace {

using vesk::io::CBufferedInputStream;
using vesk::io::CBufferedOutputStream;
using vesk::io::CFileInputStream;
using vesk::io::CFileOutputStream;
using vesk::io::CInputStream;
using vesk::io::COutputStream;

constexpr unsigned int kBlock = 64u << 10;
constexpr unsigned int kBlockTotal = 64u << 20;
constexpr unsigned int kByteTotal = 16u << 20;
constexpr unsigned int kDecoratorBuffer = 8192;

// One scratch file per program run, removed at exit.
const std::string& ScratchPath() {
  static const std::string path = [] {
    const char* tmp = std::getenv("TMPDIR");
    std::string p = std::string(tmp ? tmp : "/tmp") + "/vesk-file-bench-" + std::to_string(getpid());
    std::atexit([] { std::remove(ScratchPath().c_str()); });
    return p;
  }();
  return path;
}

// Makes sure the scratch file holds size bytes (for the read benchmarks).
void Prepare(unsigned int size) {
  std::vector<char> block(kBlock, 'x');
  FILE* f = std::fopen(ScratchPath().c_str(), "wb");
  for (unsigned int done = 0; done < size; done += kBlock) std::fwrite(block.data(), 1, kBlock, f);
  std::fclose(f);
}

void BM_FileOutputStream_Blocks(benchmark::State& state) {
  std::vector<char> block(kBlock, 'v');
  IO::Location location(ScratchPath().c_str());
  for (auto _ : state) {
    CFileOutputStream out(location, false);
    for (unsigned int done = 0; done < kBlockTotal; done += kBlock) out.Write(block.data(), kBlock);
    out.Close();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kBlockTotal);
}
BENCHMARK(BM_FileOutputStream_Blocks)->Unit(benchmark::kMillisecond);

void BM_Fwrite_Blocks(benchmark::State& state) {
  std::vector<char> block(kBlock, 'v');
  for (auto _ : state) {
    FILE* f = std::fopen(ScratchPath().c_str(), "wb");
    for (unsigned int done = 0; done < kBlockTotal; done += kBlock) {
      std::fwrite(block.data(), 1, kBlock, f);
    }
    std::fclose(f);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kBlockTotal);
}
BENCHMARK(BM_Fwrite_Blocks)->Unit(benchmark::kMillisecond);

void BM_FileInputStream_Blocks(benchmark::State& state) {
  Prepare(kBlockTotal);
  std::vector<char> block(kBlock);
  IO::Location location(ScratchPath().c_str());
  for (auto _ : state) {
    CFileInputStream in(location);
    unsigned int total = 0;
    for (int n; (n = in.Read(block.data(), kBlock)) > 0;) total += n;
    benchmark::DoNotOptimize(total);
    in.Close();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kBlockTotal);
}
BENCHMARK(BM_FileInputStream_Blocks)->Unit(benchmark::kMillisecond);

void BM_Fread_Blocks(benchmark::State& state) {
  Prepare(kBlockTotal);
  std::vector<char> block(kBlock);
  for (auto _ : state) {
    FILE* f = std::fopen(ScratchPath().c_str(), "rb");
    unsigned int total = 0;
    for (size_t n; (n = std::fread(block.data(), 1, kBlock, f)) > 0;) total += n;
    benchmark::DoNotOptimize(total);
    std::fclose(f);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kBlockTotal);
}
BENCHMARK(BM_Fread_Blocks)->Unit(benchmark::kMillisecond);

void BM_BufferedFileOutput_Bytes(benchmark::State& state) {
  IO::Location location(ScratchPath().c_str());
  for (auto _ : state) {
    CFileOutputStream file(location, false);
    CBufferedOutputStream buffered(&file, kDecoratorBuffer);
    COutputStream& out = buffered;  // called through the contract
    for (unsigned int i = 0; i < kByteTotal; ++i) out.Write(static_cast<char>(i));
    out.Close();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kByteTotal);
}
BENCHMARK(BM_BufferedFileOutput_Bytes)->Unit(benchmark::kMillisecond);

void BM_Putc_Bytes(benchmark::State& state) {
  for (auto _ : state) {
    FILE* f = std::fopen(ScratchPath().c_str(), "wb");
    for (unsigned int i = 0; i < kByteTotal; ++i) putc(static_cast<char>(i), f);
    std::fclose(f);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kByteTotal);
}
BENCHMARK(BM_Putc_Bytes)->Unit(benchmark::kMillisecond);

void BM_BufferedFileInput_Bytes(benchmark::State& state) {
  Prepare(kByteTotal);
  IO::Location location(ScratchPath().c_str());
  for (auto _ : state) {
    CFileInputStream file(location);
    CBufferedInputStream buffered(&file, kDecoratorBuffer);
    CInputStream& in = buffered;
    unsigned int sum = 0;
    for (int c; (c = in.Read()) != CInputStream::EOS;) sum += c;
    benchmark::DoNotOptimize(sum);
    in.Close();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kByteTotal);
}
BENCHMARK(BM_BufferedFileInput_Bytes)->Unit(benchmark::kMillisecond);

void BM_Getc_Bytes(benchmark::State& state) {
  Prepare(kByteTotal);
  for (auto _ : state) {
    FILE* f = std::fopen(ScratchPath().c_str(), "rb");
    unsigned int sum = 0;
    for (int c; (c = getc(f)) != EOF;) sum += static_cast<signed char>(c);
    benchmark::DoNotOptimize(sum);
    std::fclose(f);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kByteTotal);
}
BENCHMARK(BM_Getc_Bytes)->Unit(benchmark::kMillisecond);

}  // namespace
