#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestSupport.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/base/internal/StringPools.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
namespace platform = vesk::platform;
namespace internal = vesk::base::internal;
using namespace vesk::testing;

namespace {

using Ints = std::vector<int>;

Units UnitsOf(const CUnicodeString& s) {
  const unsigned short* p = s;
  return Units(p, s.GetLength());
}

Units UnitsOf(std::initializer_list<unsigned short> units) { return Units(units); }

std::string IcuToUtf8(const Units& text) {
  return vesk_test::ReferenceUtf8(text.data(), text.size());
}

TEST(UnicodeString, ConvertsNarrowTextAsUtf8) {
  CUnicodeString s("h\xC3\xA9llo \xE2\x82\xAC\xF0\x9D\x84\x9E");
  EXPECT_EQ(Units(W(u"héllo €𝄞")), UnitsOf(s));
  EXPECT_EQ(9u, s.GetLength());
  // A count of bytes ends the text early; a NUL among them ends it too.
  EXPECT_EQ(Units(W(u"hé")), UnitsOf(CUnicodeString("h\xC3\xA9llo", 3)));
  EXPECT_EQ(Units(W(u"ab")), UnitsOf(CUnicodeString("ab\0cd", 5)));
  // Bytes that are not UTF-8 become '?'.
  EXPECT_EQ(Units(W(u"a?b")), UnitsOf(CUnicodeString("a\xFF\x62")));
  // 16-bit text with a count stops at a zero unit among the units.
  const unsigned short withZero[] = {'x', 'y', 0, 'z'};
  CUnicodeString counted(withZero, 4);
  EXPECT_EQ(2u, counted.GetLength());
  CUnicodeString fromNull(static_cast<const char*>(nullptr));
  CUnicodeString fromEmpty("");
  EXPECT_EQ(nullptr, Header(fromNull));
  EXPECT_EQ(nullptr, Header(fromEmpty));
  EXPECT_EQ(0, static_cast<const unsigned short*>(fromNull)[0]);
}

// The capacity classes are the narrow string's (StringKinds); the blocks
// come from the 16-bit pools, and above 1024 units from the heap.
TEST(UnicodeString, BuffersComeFromTheirOwnPools) {
  internal::ReturnThreadStringBlocks();
  unsigned int used = internal::WideStringPool(512)->GetUsedCount();
  unsigned int narrowUsed = internal::NarrowStringPool(512)->GetUsedCount();
  {
    CUnicodeString t(std::string(300, 'y').c_str());
    EXPECT_EQ(used + 1, internal::WideStringPool(512)->GetUsedCount());
    EXPECT_EQ(narrowUsed, internal::NarrowStringPool(512)->GetUsedCount());
  }
  internal::ReturnThreadStringBlocks();
  EXPECT_EQ(used, internal::WideStringPool(512)->GetUsedCount());
  long live = platform::LiveAllocations();
  CUnicodeString big(std::string(1500, 'z').c_str());
  EXPECT_EQ(live + 1, platform::LiveAllocations());
}

// Unlike the narrow string's, the empty string equals "" by Compare too.
TEST(UnicodeString, EmptyComparesEqualToEmptyText) {
  CUnicodeString empty;
  CUnicodeString emptied(W(u"x"));
  emptied.Empty();
  for (const CUnicodeString* s : {&empty, &emptied}) {
    EXPECT_EQ(0, s->Compare("") | s->Compare(W(u"")) | s->CompareIgnoreCase(""));
    EXPECT_EQ(0, s->Compare(static_cast<const char*>(nullptr)));
    EXPECT_EQ(0, s->Compare(static_cast<const unsigned short*>(nullptr)));
    EXPECT_EQ(-1, s->Compare("a"));
    EXPECT_EQ(-1, s->Compare(W(u"a")));
    EXPECT_TRUE(*s == "" && *s == W(u"") && *s == CUnicodeString() && *s < "a" && *s <= "");
    EXPECT_FALSE(*s < "");
  }
  CUnicodeString a("a");
  EXPECT_EQ(1, a.Compare(""));
  EXPECT_EQ(1, a.Compare(static_cast<const char*>(nullptr)));
  EXPECT_EQ(1, a.CompareIgnoreCase(static_cast<const unsigned short*>(nullptr)));
  EXPECT_TRUE(!(a == "") && a > CUnicodeString());
}

TEST(UnicodeString, ComparesUnitByUnit) {
  CUnicodeString s(W(u"Grüße"));
  EXPECT_EQ(0, s.Compare("Gr\xC3\xBC\xC3\x9F\x65"));
  EXPECT_GT(s.Compare(W(u"Grüsse")), 0);  // ß (0xDF) is above s
  EXPECT_LT(s.Compare(W(u"grüße")), 0);
  EXPECT_EQ(0, s.CompareIgnoreCase(W(u"GRÜßE")));
  EXPECT_EQ(0, s.CompareIgnoreCase("gr\xC3\x9C\xC3\x9F\x45"));
  EXPECT_NE(0, s.CompareIgnoreCase(W(u"GRÜSE")));
  EXPECT_EQ(0, CUnicodeString(W(u"𐐀")).CompareIgnoreCase(W(u"𐐨")));  // a pair folds too
  // A supplementary character compares above every BMP unit below 0xD800
  // and below 0xE000 and up: no collation, just the units.
  CUnicodeString pair(W(u"𝄞"));
  EXPECT_TRUE(pair > W(u"\uD7FF"));
  EXPECT_TRUE(pair < W(u"\uE000"));
  EXPECT_TRUE(W(u"abc") == CUnicodeString("abc") && "abd" > CUnicodeString("abc"));
  EXPECT_TRUE(CUnicodeString("ab") < CUnicodeString("abc") && CUnicodeString("ab") != "abc");
}

// The search rules are the narrow string's (StringKinds); here the 16-bit
// arguments, case beyond ASCII and surrogate pairs.
TEST(UnicodeString, SearchesKeepTheirQuirks) {
  CUnicodeString abab(W(u"abab")), text(W(u"Straße und STRASSE")), pair(W(u"a😀"));
  // ß does not fold to ss; ignoring case, the low half of a pair is no
  // starting point; a narrow byte that is no character stands for '?'.
  const unsigned short low[] = {0xDE00, 0};
  EXPECT_EQ(
      (Ints{abab.ReverseFind(W(u"ab"), 0), abab.ReverseFind(static_cast<unsigned short>('b'), 2),
            abab.Find(static_cast<unsigned short>('b')),
            abab.Find(static_cast<const unsigned short*>(nullptr)), text.Find("STRASSE"),
            text.FindIgnoreCase(W(u"strasse")), text.FindIgnoreCase("strasse"),
            text.FindIgnoreCase(W(u"STRAßE")), text.ReverseFindIgnoreCase("strasse", 0),
            pair.Find(low), pair.FindIgnoreCase(low), CUnicodeString("a?b").Find('\xE9')}),
      (Ints{2, 3, 1, -1, 11, 11, 11, 0, 11, 2, -1, 1}));
  EXPECT_TRUE(text.StartsWith("Stra\xC3\x9F") && text.StartsWithIgnoreCase(W(u"sTRAß")) &&
              text.EndsWith(W(u"SSE")) && text.EndsWithIgnoreCase("strasse"));
}

TEST(UnicodeString, EditsTakeSixteenBitTextAndCopyOut) {
  CUnicodeString s(W(u"one two one"));
  EXPECT_EQ(2, s.Replace(W(u"one"), W(u"")));
  EXPECT_EQ(Units(W(u" two ")), UnitsOf(s));
  EXPECT_EQ(1, s.Replace(static_cast<const unsigned short*>(s), nullptr));  // its own text
  EXPECT_TRUE(s.IsEmpty());
  CUnicodeString t(W(u"abc"));
  EXPECT_EQ(4, t.Insert(1, W(u"X")));
  EXPECT_EQ(6, t.Insert(99, "\xE2\x82\xAC\xE2\x82\xAC"));
  EXPECT_EQ(Units(W(u"aXbc€€")), UnitsOf(t));
  EXPECT_EQ(6, t.Delete(1, 1));
  EXPECT_EQ(2, t.Remove(static_cast<unsigned short>(0x20AC)));
  EXPECT_EQ(Units(W(u"abc")), UnitsOf(t));
  EXPECT_EQ('c', t[2]);
  unsigned short out[4] = {9, 9, 9, 9};
  t.CopyTo(out, 3);
  EXPECT_EQ(UnitsOf({'a', 'b', 0, 9}), Units(out, 4));
  CUnicodeString grow(W(u"x"));
  for (int i = 0; i < 11; ++i) grow += grow;  // doubles past the largest pool
  EXPECT_EQ(Units(2048, 'x'), UnitsOf(grow));
}

TEST(UnicodeString, TrimsWhiteSpaceAndSets) {
  CUnicodeString s(W(u"\u3000\t a b \u00A0\r\n"));
  s.TrimLeft();
  EXPECT_EQ(Units(W(u"a b \u00A0\r\n")), UnitsOf(s));
  s.TrimRight();
  EXPECT_EQ(Units(W(u"a b")), UnitsOf(s));
  CUnicodeString set(W(u"xyaxyb€x€"));
  set.TrimLeft("xy");
  set.TrimRight(W(u"x€"));
  EXPECT_EQ(Units(W(u"axyb")), UnitsOf(set));
  set.TrimLeft('a');
  set.TrimRight(static_cast<unsigned short>('b'));
  EXPECT_EQ(Units(W(u"xy")), UnitsOf(set));
}

TEST(UnicodeString, MapsCaseAndReversesByCharacter) {
  CUnicodeString s(W(u"Äbc ǅ 𐐀 ß ﬀ ı"));
  CUnicodeString original(s);
  s.MakeUpper();
  // ß and ﬀ have no single-character upper case; Deseret stays a pair; ı is
  // one unit like I, so it maps (unlike in UTF-8).
  EXPECT_EQ(Units(W(u"ÄBC Ǆ 𐐀 ß ﬀ I")), UnitsOf(s));
  s.MakeLower();
  EXPECT_EQ(Units(W(u"äbc ǆ 𐐨 ß ﬀ i")), UnitsOf(s));
  EXPECT_EQ(Units(W(u"Äbc ǅ 𐐀 ß ﬀ ı")), UnitsOf(original));
  CUnicodeString r(W(u"a𝄞b"));
  r.MakeReverse();
  EXPECT_EQ(Units(W(u"b𝄞a")), UnitsOf(r));
  // Lone surrogates stay where reversal puts them.
  const unsigned short lone[] = {0xD800, 0xD834, 0xDD1E, 0xDC00, 'z', 0};
  CUnicodeString l(lone);
  l.MakeReverse();
  EXPECT_EQ(UnitsOf({'z', 0xDC00, 0xD834, 0xDD1E, 0xD800}), UnitsOf(l));
}

TEST(UnicodeString, ToUtf8CountsAndWritesByItsRules) {
  struct Row {
    Units units;
    int size;
    int result;
    const char* text;  // null: nothing written, not even a terminator
  } rows[] = {
      {{}, 16, 0, nullptr},
      {{}, -1, 0, nullptr},
      {{'A', 0xD83D, 0xDE00}, 5, -1, nullptr},
      {{'A', 0xD83D, 0xDE00}, 6, 5, "A\xF0\x9F\x98\x80"},
      // A high surrogate before another unit: one '?' for both, even when
      // that unit is the high half of a pair, whose low half is then alone.
      {{0xD800, 'A'}, 2, 1, "?"},
      {{'x', 0xD800, 0xD801, 0xDC00}, 16, 5, "x?\xED\xB0\x80"},
      {{'x', 0xDBFF}, 3, 2, "x?"},
      {{0xDC00, 'y'}, 5, 4, "\xED\xB0\x80y"},  // a lone low surrogate keeps its form
      {{'a', 'b'}, 0, -1, nullptr},
      {{'a', 'b'}, 2, -1, nullptr},
      {{'a', 'b'}, 3, 2, "ab"},
  };
  for (const Row& row : rows) {
    CUnicodeString s(row.units.c_str());
    char buffer[16];
    std::memset(buffer, 'Z', sizeof buffer);
    EXPECT_EQ(row.result, s.ToUTF8(buffer, row.size)) << row.size;
    if (row.text) {
      EXPECT_STREQ(row.text, buffer);
      EXPECT_EQ(row.result + 1, s.ToUTF8(nullptr, -1));
      EXPECT_STREQ(row.text, s.ToUTF8());
    } else {
      EXPECT_EQ('Z', buffer[0]);
    }
  }
  EXPECT_TRUE(CUnicodeString().ToUTF8().IsEmpty());
}

// Valid text converts as ICU converts it; for any units, lone and misordered
// surrogates included, the measured size, the exactly sized write and the
// roomy write agree, and nothing is written past the terminator.
TEST(UnicodeString, ToUtf8MatchesIcuAndAgreesWithItsCount) {
  std::mt19937 rng(20240611);
  static const unsigned short kPicks[] = {'a', 0xE9, 0x20AC, 0xD800, 0xDBFF, 0xDC00, 0xDFFF};
  for (int round = 0; round < 1300; ++round) {
    bool valid = round < 300;
    Units units = RandomUtf16(rng, valid && round >= 100 ? rng() % 3000 + 1 : rng() % 40 + 1);
    for (int n = valid ? 0 : rng() % 64 + 1; n > 0; --n) {
      units += rng() % 3 ? kPicks[rng() % 7] : static_cast<unsigned short>(rng() % 0xFFFF + 1);
    }
    CUnicodeString s(units.c_str());
    int room = s.ToUTF8(nullptr, -1);
    std::string exact(static_cast<std::size_t>(room), 'Z');
    ASSERT_EQ(room - 1, s.ToUTF8(&exact[0], room));
    ASSERT_EQ(-1, s.ToUTF8(&exact[0], room - 1));
    std::string roomy(units.size() * 3 + 1, 'Z');
    ASSERT_EQ(room - 1, s.ToUTF8(&roomy[0], static_cast<int>(roomy.size())));
    ASSERT_EQ(exact, roomy.substr(0, static_cast<std::size_t>(room)));
    ASSERT_EQ(std::string(roomy.size() - room, 'Z'), roomy.substr(static_cast<std::size_t>(room)));
    if (valid) {
      ASSERT_EQ(IcuToUtf8(units) + '\0', exact);
      CString narrow = s.ToUTF8();
      ASSERT_EQ(IcuToUtf8(units), std::string(narrow, narrow.GetLength()));
    }
  }
}

TEST(UnicodeString, FromUtf8StopsAtTheFirstFault) {
  struct Row {
    std::string bytes;
    int length;
    Units units;
  } rows[] = {
      {"\x61\xC3\x28\x62", -1, {'a'}},
      {"ab\xE2\x82", -1, {'a', 'b'}},             // cut off by the end
      {"ab\xE2\x82\xAC\x63\x64", 4, {'a', 'b'}},  // cut off by the length
      {"x\xC0\xAFy", -1, {'x'}},                  // overlong
      {"x\xF4\x90\x80\x80y", -1, {'x'}},          // beyond U+10FFFF
      {"x\x80y", -1, {'x'}},                      // continuation byte as lead
      {std::string("xy\0z", 4), 4, {'x', 'y'}},   // a NUL ends the text
      {"\xF0\x9D\x84\x9E\xED\xB0\x80", -1, {0xD834, 0xDD1E, 0xDC00}},
      {"\xFF", -1, {}},
  };
  CUnicodeString s;
  for (const Row& row : rows) {
    s.FromUTF8(row.bytes.c_str(), row.length);
    EXPECT_EQ(row.units, UnitsOf(s)) << row.bytes;
  }
  s.FromUTF8(nullptr, 5);
  EXPECT_TRUE(s.IsEmpty());
  // A shared buffer is left to its other owners.
  CUnicodeString a("shared");
  CUnicodeString b(a);
  b.FromUTF8("other", -1);
  EXPECT_EQ(Units(W(u"shared")), UnitsOf(a));
  EXPECT_EQ(Units(W(u"other")), UnitsOf(b));
}

// The units FromUTF8 should keep from bytes, by ICU's decoder: up to the
// first ill-formed sequence or NUL, except that the three-byte forms of
// surrogates (which ICU rejects) decode to the surrogate unit.
Units IcuDecodedPrefix(const std::string& bytes) {
  Units units;
  const uint8_t* s = reinterpret_cast<const uint8_t*>(bytes.data());
  int length = static_cast<int>(bytes.size());
  int i = 0;
  while (i < length) {
    if (s[i] == 0xED && i + 2 < length && s[i + 1] >= 0xA0 && s[i + 1] <= 0xBF &&
        (s[i + 2] & 0xC0) == 0x80) {
      units += static_cast<unsigned short>(0xD000 | ((s[i + 1] & 0x3F) << 6) | (s[i + 2] & 0x3F));
      i += 3;
      continue;
    }
    int c = vesk_test::ReferenceUtf8Next(bytes.data(), i, length, &i);
    if (c <= 0) break;
    if (c >= 0x10000) {
      units += static_cast<unsigned short>(0xD800 + ((c - 0x10000) >> 10));
      units += static_cast<unsigned short>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      units += static_cast<unsigned short>(c);
    }
  }
  return units;
}

TEST(UnicodeString, FromUtf8OfRandomBytesStopsWhereIcuFindsAFault) {
  std::mt19937 rng(99);
  CUnicodeString roomy;
  roomy.EnsureCapacity(5000);
  // Mostly lead and continuation bytes, so that decoding goes deep.
  static const unsigned char kPicks[] = {'a',  'Z',  0xC3, 0xA9, 0xE2, 0x82, 0xAC, 0xF0, 0x9F,
                                         0x98, 0x80, 0xED, 0xA0, 0xF4, 0x90, 0xE0, 0xC1, 0xFF};
  for (int round = 0; round < 3000; ++round) {
    std::string bytes(rng() % 300, '\0');
    for (char& b : bytes) {
      b = static_cast<char>(rng() % 4 ? kPicks[rng() % sizeof kPicks] : rng() % 256);
    }
    // Some rounds hold long valid stretches before the fault.
    if (round % 3 == 0) {
      bytes = IcuToUtf8(RandomUtf16(rng, rng() % (round % 30 == 0 ? 3000 : 200))) + bytes;
    }
    Units expected = IcuDecodedPrefix(bytes);
    CUnicodeString s;  // counts, then decodes
    s.FromUTF8(bytes.data(), static_cast<int>(bytes.size()));
    ASSERT_EQ(expected, UnitsOf(s));
    roomy.FromUTF8(bytes.data(), static_cast<int>(bytes.size()));  // decodes at once
    ASSERT_EQ(expected, UnitsOf(roomy));
  }
}

// Format goes through FormatV; the directives are the formatter's (Format16Test).
TEST(UnicodeString, FormatsSixteenBitText) {
  CUnicodeString s;
  s.Format(W(u"%s|%hs|%d|%5.1f|%c"), W(u"wide€"), "n\xC3\xA4rrow", -42, 2.5, 0x263A);
  EXPECT_EQ(Units(W(u"wide€|närrow|-42|  2.5|☺")), UnitsOf(s));
  s.Format(static_cast<const unsigned short*>(nullptr));
  EXPECT_TRUE(s.IsEmpty());
  // Around the 1024-unit scratch block: nothing is cut short, whether the
  // result is exactly 1023 units (formatted again in 2048) or longer.
  for (int n : {1022, 1023, 1024, 2047, 2048, 5000}) {
    std::u16string pad(static_cast<std::size_t>(n - 1), u'p');
    s.Format(W(u"%s!"), W(pad.c_str()));
    ASSERT_EQ(static_cast<unsigned int>(n), s.GetLength());
    EXPECT_EQ('!', s[n - 1]);
  }
  // Exactly 1023 units take a second scratch block; 1022 do not. (The
  // string's own buffer is reused: only scratch blocks are counted.)
  std::u16string pad1022(1022, u'p'), pad1023(1023, u'p');
  s.Format(W(u"%s"), W(pad1023.c_str()));
  unsigned long before = platform::AllocationCount();
  s.Format(W(u"%s"), W(pad1022.c_str()));
  EXPECT_EQ(1u, platform::AllocationCount() - before);
  before = platform::AllocationCount();
  s.Format(W(u"%s"), W(pad1023.c_str()));
  EXPECT_EQ(2u, platform::AllocationCount() - before);
}

TEST(UnicodeString, AllocationFailuresThrowAndLeakNothing) {
  const std::string longNarrow(1500, 'n');
  Units longWide(1800, 'w');
  auto op = [&] {
    CUnicodeString s(longNarrow.c_str());
    CUnicodeString shortOne(W(u"a b a"));
    CUnicodeString copy(shortOne);
    shortOne += longWide.c_str();  // unshares into a heap block
    copy.Replace(W(u"a"), longWide.c_str());
    s.Format(W(u"%s%s"), longWide.c_str(), longWide.c_str());  // grows past 1024 units
    CString narrow = s.ToUTF8();
    s.Compare(longNarrow.c_str());  // the narrow side goes through a scratch buffer
    s.FromUTF8(longNarrow.c_str(), -1);
  };
  op();  // warms the pools
  EXPECT_GE(FailEachAllocationInTurn(op), 8);
  // The exception names its source.
  ExpectThrowIfAllocationFails([&] { CUnicodeString s(longNarrow.c_str()); }, nullptr,
                               "vesk/base/UnicodeString", true);
}

}  // namespace
