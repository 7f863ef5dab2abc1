// Base64 of 16 MB against OpenSSL's EVP_EncodeBlock / EVP_DecodeBlock and
// against a plain memcpy of the same bytes; 1 M ints through a data stream
// over a buffered stream over a memory stream against htonl + memcpy into a
// std::vector<char>.
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <openssl/evp.h>

#include "vesk/base/BinaryData.h"
#include "vesk/io/BufferedOutputStream.h"
#include "vesk/io/DataOutputStream.h"
#include "vesk/io/MemoryOutputStream.h"
#include "vesk/platform/Memory.h"

using vesk::base::CBinaryData;
using vesk::base::CString;

namespace {

constexpr unsigned int kBytes = 16u << 20;
constexpr unsigned int kText = (kBytes + 2) / 3 * 4;
constexpr int kInts = 1 << 20;

const std::vector<char>& RandomBytes() {
  static std::vector<char> bytes = [] {
    std::vector<char> b(kBytes);
    std::mt19937 random(7);
    for (char& c : b) c = static_cast<char>(random());
    return b;
  }();
  return bytes;
}

const CString& Base64Text() {
  static CString text = CBinaryData::ToBase64String(RandomBytes().data(), kBytes);
  return text;
}

// Each encoder and decoder produces a fresh result per run, as a caller
// would: the OpenSSL runs get a new output block each time too.

void BM_Base64Encode_Vesk(benchmark::State& state) {
  const char* in = RandomBytes().data();
  for (auto _ : state) {
    CString text;
    CBinaryData::ToBase64String(in, kBytes, text);
    benchmark::DoNotOptimize(text.GetLength());
  }
  state.SetBytesProcessed(state.iterations() * int64_t(kBytes));
}

void BM_Base64Encode_OpenSSL(benchmark::State& state) {
  const unsigned char* in = reinterpret_cast<const unsigned char*>(RandomBytes().data());
  for (auto _ : state) {
    unsigned char* out = static_cast<unsigned char*>(std::malloc(kText + 1));
    int n = EVP_EncodeBlock(out, in, kBytes);
    benchmark::DoNotOptimize(n);
    benchmark::DoNotOptimize(out);
    std::free(out);
  }
  state.SetBytesProcessed(state.iterations() * int64_t(kBytes));
}

void BM_Base64Decode_Vesk(benchmark::State& state) {
  const CString& text = Base64Text();
  for (auto _ : state) {
    char* data;
    unsigned int length;
    CBinaryData::ParseBase64String(text, data, length);
    benchmark::DoNotOptimize(data);
    vesk::platform::Free(data);
  }
  state.SetBytesProcessed(state.iterations() * int64_t(kBytes));
}

void BM_Base64Decode_OpenSSL(benchmark::State& state) {
  const unsigned char* text =
      reinterpret_cast<const unsigned char*>(static_cast<const char*>(Base64Text()));
  for (auto _ : state) {
    unsigned char* out = static_cast<unsigned char*>(std::malloc(kText / 4 * 3));
    int n = EVP_DecodeBlock(out, text, kText);
    benchmark::DoNotOptimize(n);
    benchmark::DoNotOptimize(out);
    std::free(out);
  }
  state.SetBytesProcessed(state.iterations() * int64_t(kBytes));
}

void BM_Memcpy16MB(benchmark::State& state) {
  const char* in = RandomBytes().data();
  std::vector<char> out(kBytes);
  for (auto _ : state) {
    std::memcpy(out.data(), in, kBytes);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * int64_t(kBytes));
}

// Both sinks start with room for the whole output, so the runs compare the
// per-value path and not the growth policy of the containers.
void BM_WriteInts_DataOutputStream(benchmark::State& state) {
  for (auto _ : state) {
    vesk::io::CMemoryOutputStream memory(kInts * 4, 64);
    vesk::io::CBufferedOutputStream buffered(&memory, 8192);
    vesk::io::CDataOutputStream out(&buffered);
    for (int i = 0; i < kInts; ++i) out.WriteInt32(i);
    out.Flush();
    benchmark::DoNotOptimize(memory.GetBuffer());
    if (memory.GetBufferSize() != kInts * 4u) state.SkipWithError("short output");
  }
  state.SetItemsProcessed(state.iterations() * int64_t(kInts));
}

void BM_WriteInts_HtonlVector(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<char> out;
    out.reserve(kInts * 4);
    for (int i = 0; i < kInts; ++i) {
      uint32_t be = htonl(static_cast<uint32_t>(i));
      size_t at = out.size();
      out.resize(at + 4);
      std::memcpy(out.data() + at, &be, 4);
    }
    benchmark::DoNotOptimize(out.data());
  }
  state.SetItemsProcessed(state.iterations() * int64_t(kInts));
}

}  // namespace

BENCHMARK(BM_Base64Encode_Vesk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Base64Encode_OpenSSL)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Base64Decode_Vesk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Base64Decode_OpenSSL)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Memcpy16MB)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteInts_DataOutputStream)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteInts_HtonlVector)->Unit(benchmark::kMillisecond);
