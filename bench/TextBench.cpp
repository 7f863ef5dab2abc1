// Tokenizers, regular expressions and formatted strings next to their
// peers: tokenizing 10 MB of comma-separated text against a loop of
// std::string::find_first_of, CRegEx::Matches against calling the Xerces-C
// engine's RegularExpression::matches directly (16-bit and narrow text), and
// CFormattedString against snprintf into a std::string.
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>
#include <xercesc/util/regx/RegularExpression.hpp>

#include "vesk/base/FormattedString.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/platform/Xerces.h"
#include "vesk/util/StringTokenizer.h"
#include "vesk/util/regex/RegEx.h"

using vesk::base::CFormattedString;
using vesk::base::CString;
using vesk::base::CUnicodeString;
using vesk::util::CStringTokenizer;
using vesk::util::regex::CRegEx;

namespace {

// 10 MB of fields of 1 to 12 characters, some of them empty.
const std::string& Csv() {
  static const std::string text = [] {
    std::string s;
    unsigned int seed = 1;
    while (s.size() < 10u * 1024 * 1024) {
      seed = seed * 1103515245u + 12345u;
      s.append((seed >> 16) % 13, static_cast<char>('a' + (seed >> 8) % 26));
      s += ',';
    }
    return s;
  }();
  return text;
}

void BM_TokenizeCStringTokenizer(benchmark::State& state) {
  const std::string& text = Csv();
  for (auto _ : state) {
    CStringTokenizer tokens(text.c_str(), ",", false);
    std::size_t bytes = 0;
    while (tokens.HasMoreTokens()) bytes += tokens.GetNextToken().GetLength();
    benchmark::DoNotOptimize(bytes);
  }
  state.SetBytesProcessed(state.iterations() * text.size());
}
BENCHMARK(BM_TokenizeCStringTokenizer)->Unit(benchmark::kMillisecond);

void BM_TokenizeFindFirstOf(benchmark::State& state) {
  const std::string& text = Csv();
  for (auto _ : state) {
    std::string token;
    std::size_t bytes = 0;
    std::size_t pos = 0;
    for (;;) {
      std::size_t begin = text.find_first_not_of(',', pos);
      if (begin == std::string::npos) break;
      pos = text.find_first_of(',', begin);
      token.assign(text, begin, pos == std::string::npos ? std::string::npos : pos - begin);
      bytes += token.size();
    }
    benchmark::DoNotOptimize(bytes);
  }
  state.SetBytesProcessed(state.iterations() * text.size());
}
BENCHMARK(BM_TokenizeFindFirstOf)->Unit(benchmark::kMillisecond);

const char kPattern[] = "([a-z]+)@([a-z]+)\\.com";
const char kText[] = "please write to someone@example.com before the end of the week";

void BM_MatchesCRegEx16(benchmark::State& state) {
  CRegEx re(kPattern);
  CUnicodeString text(kText);
  const unsigned short* units = text;
  for (auto _ : state) benchmark::DoNotOptimize(re.Matches(units));
}
BENCHMARK(BM_MatchesCRegEx16);

void BM_MatchesXerces16(benchmark::State& state) {
  vesk::platform::EnsureXerces();
  CUnicodeString pattern(kPattern), text(kText);
  xercesc::RegularExpression re(reinterpret_cast<const XMLCh*>(
      static_cast<const unsigned short*>(pattern)));
  const XMLCh* units = reinterpret_cast<const XMLCh*>(static_cast<const unsigned short*>(text));
  for (auto _ : state) benchmark::DoNotOptimize(re.matches(units));
}
BENCHMARK(BM_MatchesXerces16);

void BM_MatchesCRegExNarrow(benchmark::State& state) {
  CRegEx re(kPattern);
  for (auto _ : state) benchmark::DoNotOptimize(re.Matches(kText));
}
BENCHMARK(BM_MatchesCRegExNarrow);

void BM_MatchesXercesNarrow(benchmark::State& state) {
  vesk::platform::EnsureXerces();
  xercesc::RegularExpression re(kPattern);
  for (auto _ : state) benchmark::DoNotOptimize(re.matches(kText));
}
BENCHMARK(BM_MatchesXercesNarrow);

// A 4 000-unit text: long enough for its groups that the match runs on a
// stack of its own.
const std::string& LongText() {
  static const std::string text = [] {
    std::string s;
    while (s.size() < 4000) s += "a few words ";
    return s + "someone@example.com";
  }();
  return text;
}

void BM_MatchesCRegEx16Long(benchmark::State& state) {
  CRegEx re(kPattern);
  CUnicodeString text(LongText().c_str());
  const unsigned short* units = text;
  for (auto _ : state) benchmark::DoNotOptimize(re.Matches(units));
}
BENCHMARK(BM_MatchesCRegEx16Long);

void BM_MatchesXerces16Long(benchmark::State& state) {
  vesk::platform::EnsureXerces();
  CUnicodeString pattern(kPattern), text(LongText().c_str());
  xercesc::RegularExpression re(reinterpret_cast<const XMLCh*>(
      static_cast<const unsigned short*>(pattern)));
  const XMLCh* units = reinterpret_cast<const XMLCh*>(static_cast<const unsigned short*>(text));
  for (auto _ : state) benchmark::DoNotOptimize(re.matches(units));
}
BENCHMARK(BM_MatchesXerces16Long);

void BM_FormatCFormattedString(benchmark::State& state) {
  int n = 0;
  for (auto _ : state) {
    CFormattedString s("%d-%s", ++n, "item");
    benchmark::DoNotOptimize(static_cast<const char*>(s));
  }
}
BENCHMARK(BM_FormatCFormattedString);

void BM_FormatSnprintf(benchmark::State& state) {
  int n = 0;
  for (auto _ : state) {
    // one pass into the string's own room, a second only when it is short
    std::string s(31, '\0');
    ++n;
    int length = std::snprintf(&s[0], s.size() + 1, "%d-%s", n, "item");
    if (length > 31) {
      s.resize(length);
      std::snprintf(&s[0], s.size() + 1, "%d-%s", n, "item");
    }
    s.resize(length);
    benchmark::DoNotOptimize(s.data());
  }
}
BENCHMARK(BM_FormatSnprintf);

}  // namespace
