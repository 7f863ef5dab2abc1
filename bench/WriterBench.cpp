// The UTF-8 output stream writer next to ICU's u_strToUTF8: 32 MB of mixed
// BMP text (16M units: half ASCII, a quarter two-byte and a quarter
// three-byte characters, in random order) encoded into one memory block.
#include <random>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include "vesk/io/MemoryOutputStream.h"
#include "vesk/io/OutputStreamWriter.h"

namespace {

using vesk::io::CMemoryOutputStream;
using vesk::io::COutputStreamWriter;
using vesk::io::CWriter;

constexpr unsigned int kUnits = 16u << 20;  // 32 MB of UTF-16

const std::vector<unsigned short>& Text() {
  static const std::vector<unsigned short> text = [] {
    std::vector<unsigned short> units(kUnits);
    std::mt19937 rng(12345);
    for (auto& u : units) {
      unsigned int r = rng();
      switch (r & 3) {
        case 0:
        case 1:
          u = static_cast<unsigned short>(0x20 + (r >> 8) % 0x5F);
          break;
        case 2:
          u = static_cast<unsigned short>(0x80 + (r >> 8) % 0x780);
          break;
        default:
          u = static_cast<unsigned short>(0x800 + (r >> 8) % 0xD000);  // below the surrogates
      }
    }
    return units;
  }();
  return text;
}

// The memory stream grows to the rounded need, never geometrically, so it is
// sized for the whole text up front, as a caller that knows the size does;
// both sides write into a block that is warm after the first run.
void WriteInPieces(benchmark::State& state, unsigned int piece) {
  const std::vector<unsigned short>& text = Text();
  CMemoryOutputStream memory(kUnits * 3, 4096);
  for (auto _ : state) {
    memory.Reset();
    COutputStreamWriter encoder(&memory, "UTF-8", false);
    CWriter& writer = encoder;  // called through the contract
    for (unsigned int i = 0; i < kUnits; i += piece) {
      writer.Write(text.data(), i, kUnits - i < piece ? kUnits - i : piece);
    }
    writer.Flush();
    benchmark::DoNotOptimize(memory.GetBuffer());
  }
  state.counters["utf8_bytes"] = memory.GetBufferSize();
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kUnits * 2);
}

void BM_OutputStreamWriter_4096UnitWrites(benchmark::State& state) { WriteInPieces(state, 4096); }
BENCHMARK(BM_OutputStreamWriter_4096UnitWrites)->Unit(benchmark::kMillisecond);

void BM_OutputStreamWriter_256UnitWrites(benchmark::State& state) { WriteInPieces(state, 256); }
BENCHMARK(BM_OutputStreamWriter_256UnitWrites)->Unit(benchmark::kMillisecond);

// One call with the whole text: the buffer doubles until it holds all of it.
void BM_OutputStreamWriter_OneWrite(benchmark::State& state) { WriteInPieces(state, kUnits); }
BENCHMARK(BM_OutputStreamWriter_OneWrite)->Unit(benchmark::kMillisecond);

void BM_Icu_StrToUTF8(benchmark::State& state) {
  const std::vector<unsigned short>& text = Text();
  std::vector<char> out(kUnits * 3);
  int32_t length = 0;
  for (auto _ : state) {
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8(out.data(), static_cast<int32_t>(out.size()), &length,
                reinterpret_cast<const UChar*>(text.data()), static_cast<int32_t>(kUnits), &status);
    if (U_FAILURE(status)) state.SkipWithError("u_strToUTF8 failed");
    benchmark::DoNotOptimize(out.data());
  }
  state.counters["utf8_bytes"] = length;
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * kUnits * 2);
}
BENCHMARK(BM_Icu_StrToUTF8)->Unit(benchmark::kMillisecond);

}  // namespace
