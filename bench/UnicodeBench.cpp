// UTF-16 <-> UTF-8 conversion of CUnicodeString next to ICU's u_strToUTF8 /
// u_strFromUTF8, on about 1 MB of mixed text (ASCII, Latin, CJK and
// supplementary characters) and on 1 MB of ASCII.
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <unicode/ustring.h>

#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"

using vesk::base::CString;
using vesk::base::CUnicodeString;

namespace {

const std::size_t kTextBytes = 1 << 20;

// About kTextBytes of UTF-8: with mixed set, characters are half ASCII and
// the rest two-, three- and four-byte ones; otherwise all ASCII.
std::string MakeUtf8(bool mixed) {
  std::mt19937 rng(12345);
  std::string text;
  text.reserve(kTextBytes + 4);
  while (text.size() < kTextBytes) {
    unsigned int kind = mixed ? rng() % 10 : 0;
    unsigned int cp;
    if (kind < 5) {
      cp = 0x20 + rng() % 0x5F;
    } else if (kind < 7) {
      cp = 0xA0 + rng() % 0x700;
    } else if (kind < 9) {
      cp = 0x4E00 + rng() % 0x5000;
    } else {
      cp = 0x1F300 + rng() % 0x300;
    }
    if (cp < 0x80) {
      text += static_cast<char>(cp);
    } else if (cp < 0x800) {
      text += static_cast<char>(0xC0 | (cp >> 6));
      text += static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      text += static_cast<char>(0xE0 | (cp >> 12));
      text += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      text += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      text += static_cast<char>(0xF0 | (cp >> 18));
      text += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
      text += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      text += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return text;
}

struct Corpus {
  std::string utf8;
  CUnicodeString utf16;
  explicit Corpus(bool mixed) : utf8(MakeUtf8(mixed)) { utf16.FromUTF8(utf8.c_str(), -1); }
};

const Corpus& Text(int mixed) {
  static const Corpus ascii(false);
  static const Corpus mixedText(true);
  return mixed ? mixedText : ascii;
}

const UChar* IcuUnits(const CUnicodeString& s) {
  return reinterpret_cast<const UChar*>(static_cast<const unsigned short*>(s));
}

// --- UTF-16 to UTF-8 --------------------------------------------------------

// Into a buffer with room for three bytes a unit (no measuring needed).
void ToUtf8_Vesk(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  std::vector<char> out(c.utf16.GetLength() * 3 + 1);
  for (auto _ : state) {
    int n = c.utf16.ToUTF8(out.data(), static_cast<int>(out.size()));
    benchmark::DoNotOptimize(n);
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

// Into a buffer of exactly the size needed: measures, then writes.
void ToUtf8ExactBuffer_Vesk(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  std::vector<char> out(c.utf8.size() + 1);
  for (auto _ : state) {
    int n = c.utf16.ToUTF8(out.data(), static_cast<int>(out.size()));
    benchmark::DoNotOptimize(n);
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

void ToUtf8_Icu(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  std::vector<char> out(c.utf16.GetLength() * 3 + 1);
  for (auto _ : state) {
    int32_t n = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8(out.data(), static_cast<int32_t>(out.size()), &n, IcuUnits(c.utf16),
                static_cast<int32_t>(c.utf16.GetLength()), &status);
    benchmark::DoNotOptimize(n);
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

// A new narrow string each time: measure, allocate, convert.
void ToUtf8String_Vesk(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    CString s = c.utf16.ToUTF8();
    benchmark::DoNotOptimize(static_cast<const char*>(s));
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

void ToUtf8String_Icu(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    int32_t n = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8(nullptr, 0, &n, IcuUnits(c.utf16), static_cast<int32_t>(c.utf16.GetLength()),
                &status);
    std::string s(static_cast<std::size_t>(n), '\0');
    status = U_ZERO_ERROR;
    u_strToUTF8(&s[0], n + 1, &n, IcuUnits(c.utf16), static_cast<int32_t>(c.utf16.GetLength()),
                &status);
    benchmark::DoNotOptimize(s.data());
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

// --- UTF-8 to UTF-16 --------------------------------------------------------

// Into a string that keeps its buffer (sized by the units): counts, then
// decodes.
void FromUtf8_Vesk(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  CUnicodeString s;
  s.FromUTF8(c.utf8.data(), static_cast<int>(c.utf8.size()));
  for (auto _ : state) {
    s.FromUTF8(c.utf8.data(), static_cast<int>(c.utf8.size()));
    benchmark::DoNotOptimize(s.GetLength());
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

// Into a string with room for a unit per byte: decodes at once.
void FromUtf8RoomyString_Vesk(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  CUnicodeString s;
  s.EnsureCapacity(static_cast<unsigned int>(c.utf8.size()));
  for (auto _ : state) {
    s.FromUTF8(c.utf8.data(), static_cast<int>(c.utf8.size()));
    benchmark::DoNotOptimize(s.GetLength());
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

void FromUtf8_Icu(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  std::vector<UChar> out(c.utf8.size() + 1);
  for (auto _ : state) {
    int32_t n = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(out.data(), static_cast<int32_t>(out.size()), &n, c.utf8.data(),
                  static_cast<int32_t>(c.utf8.size()), &status);
    benchmark::DoNotOptimize(n);
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

// A new string each time: count, allocate, decode.
void FromUtf8NewString_Vesk(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    CUnicodeString s;
    s.FromUTF8(c.utf8.data(), static_cast<int>(c.utf8.size()));
    benchmark::DoNotOptimize(s.GetLength());
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

void FromUtf8NewString_Icu(benchmark::State& state) {
  const Corpus& c = Text(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    int32_t n = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, &n, c.utf8.data(), static_cast<int32_t>(c.utf8.size()), &status);
    std::vector<UChar> out(static_cast<std::size_t>(n) + 1);
    status = U_ZERO_ERROR;
    u_strFromUTF8(out.data(), n + 1, &n, c.utf8.data(), static_cast<int32_t>(c.utf8.size()),
                  &status);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(state.iterations() * c.utf8.size());
}

// Argument 1: mixed text; 0: ASCII.
BENCHMARK(ToUtf8_Vesk)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(ToUtf8ExactBuffer_Vesk)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(ToUtf8_Icu)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(ToUtf8String_Vesk)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(ToUtf8String_Icu)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(FromUtf8_Vesk)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(FromUtf8RoomyString_Vesk)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(FromUtf8_Icu)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(FromUtf8NewString_Vesk)->ArgName("mixed")->Arg(1)->Arg(0);
BENCHMARK(FromUtf8NewString_Icu)->ArgName("mixed")->Arg(1)->Arg(0);

}  // namespace
