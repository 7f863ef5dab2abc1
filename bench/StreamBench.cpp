// Byte streams next to their peers: one-byte writes through a buffered stream
// against std::ostringstream::put, and the Base64 output stream against a
// plain scalar encoding loop over the same bytes.
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "vesk/io/Base64OutputStream.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/MemoryOutputStream.h"

namespace {

using vesk::io::CBase64OutputStream;
using vesk::io::CBufferedOutputStream;
using vesk::io::CMemoryOutputStream;
using vesk::io::COutputStream;

constexpr unsigned int kTotal = 64u << 20;  // 64 MB of one-byte writes
constexpr unsigned int kBufferSize = 8192;

// The memory stream grows to the rounded need, never geometrically, so it is
// sized for the whole run up front, as a caller that knows the size does.
void BM_BufferedStream_WriteByte(benchmark::State& state) {
  CMemoryOutputStream memory(kTotal, 4096);
  for (auto _ : state) {
    memory.Reset();
    CBufferedOutputStream buffered(&memory, kBufferSize);
    COutputStream& out = buffered;  // called through the contract
    for (unsigned int i = 0; i < kTotal; ++i) out.Write(static_cast<char>(i));
    out.Flush();
    benchmark::DoNotOptimize(memory.GetBuffer());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kTotal);
}
BENCHMARK(BM_BufferedStream_WriteByte)->Unit(benchmark::kMillisecond);

void BM_OStringStream_Put(benchmark::State& state) {
  std::ostringstream stream;
  stream.str(std::string(kTotal, '\0'));  // the same storage, reused each run
  for (auto _ : state) {
    stream.seekp(0);
    for (unsigned int i = 0; i < kTotal; ++i) stream.put(static_cast<char>(i));
    stream.flush();
    benchmark::DoNotOptimize(stream.tellp());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kTotal);
}
BENCHMARK(BM_OStringStream_Put)->Unit(benchmark::kMillisecond);

// Fresh streams every run: the allocation and first touch of 64 MB included.
void BM_BufferedStream_WriteByte_Fresh(benchmark::State& state) {
  for (auto _ : state) {
    CMemoryOutputStream memory(kTotal, 4096);
    CBufferedOutputStream buffered(&memory, kBufferSize);
    COutputStream& out = buffered;
    for (unsigned int i = 0; i < kTotal; ++i) out.Write(static_cast<char>(i));
    out.Flush();
    benchmark::DoNotOptimize(memory.GetBuffer());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kTotal);
}
BENCHMARK(BM_BufferedStream_WriteByte_Fresh)->Unit(benchmark::kMillisecond);

void BM_OStringStream_Put_Fresh(benchmark::State& state) {
  for (auto _ : state) {
    std::ostringstream stream;
    for (unsigned int i = 0; i < kTotal; ++i) stream.put(static_cast<char>(i));
    benchmark::DoNotOptimize(stream.tellp());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kTotal);
}
BENCHMARK(BM_OStringStream_Put_Fresh)->Unit(benchmark::kMillisecond);

const std::vector<char>& Input() {
  static const std::vector<char> data = [] {
    std::vector<char> bytes(1u << 20);
    std::mt19937 random(42);
    for (char& b : bytes) b = static_cast<char>(random());
    return bytes;
  }();
  return data;
}

// state.range(0): line length (0 = one unbroken line).
void BM_Base64Stream(benchmark::State& state) {
  const std::vector<char>& input = Input();
  unsigned int lineLength = static_cast<unsigned int>(state.range(0));
  CMemoryOutputStream memory(3u << 20, 4096);
  for (auto _ : state) {
    memory.Reset();
    CBase64OutputStream out(&memory, lineLength);
    out.Write(input.data(), static_cast<unsigned int>(input.size()));
    out.Flush();
    benchmark::DoNotOptimize(memory.GetBuffer());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * input.size());
}
BENCHMARK(BM_Base64Stream)->Arg(0)->Arg(76)->Unit(benchmark::kMicrosecond);

// A plain scalar encoder: three bytes to four characters, CR LF between lines.
void BM_Base64ScalarLoop(benchmark::State& state) {
  static const char kAlphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  const std::vector<char>& input = Input();
  unsigned int lineLength = static_cast<unsigned int>(state.range(0));
  std::vector<char> output((3u << 20));
  for (auto _ : state) {
    const unsigned char* in = reinterpret_cast<const unsigned char*>(input.data());
    size_t n = input.size();
    char* o = output.data();
    unsigned int column = 0;
    auto put = [&](char c) {
      if (lineLength && column >= lineLength) {
        *o++ = '\r';
        *o++ = '\n';
        column = 0;
      }
      *o++ = c;
      ++column;
    };
    size_t i = 0;
    for (; i + 3 <= n; i += 3) {
      put(kAlphabet[in[i] >> 2]);
      put(kAlphabet[((in[i] & 3) << 4) | (in[i + 1] >> 4)]);
      put(kAlphabet[((in[i + 1] & 15) << 2) | (in[i + 2] >> 6)]);
      put(kAlphabet[in[i + 2] & 63]);
    }
    if (n - i == 1) {
      put(kAlphabet[in[i] >> 2]);
      put(kAlphabet[(in[i] & 3) << 4]);
      put('=');
      put('=');
    } else if (n - i == 2) {
      put(kAlphabet[in[i] >> 2]);
      put(kAlphabet[((in[i] & 3) << 4) | (in[i + 1] >> 4)]);
      put(kAlphabet[(in[i + 1] & 15) << 2]);
      put('=');
    }
    benchmark::DoNotOptimize(o);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * input.size());
}
BENCHMARK(BM_Base64ScalarLoop)->Arg(0)->Arg(76)->Unit(benchmark::kMicrosecond);

}  // namespace
