#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>
#include <unicode/utf8.h>

#include "vesk/platform/Text.h"

namespace platform = vesk::platform;

namespace {

TEST(Text, DecodeAcceptsOnlyWellFormedSequences) {
  struct Case {
    const char* bytes;
    unsigned int length;
    int codePoint;
  } cases[] = {
      {"A", 1, 'A'},
      {"\xc3\xa9", 2, 0xE9},
      {"\xe2\x82\xac", 3, 0x20AC},
      {"\xf0\x9f\x98\x80", 4, 0x1F600},
      {"\xf4\x8f\xbf\xbf", 4, 0x10FFFF},
      {"\xc0\x80", 1, -1},          // overlong NUL
      {"\xc1\xbf", 1, -1},          // overlong
      {"\xe0\x80\x80", 1, -1},      // overlong
      {"\xed\xa0\x80", 1, -1},      // surrogate
      {"\xf0\x80\x80\x80", 1, -1},  // overlong
      {"\xf4\x90\x80\x80", 1, -1},  // above U+10FFFF
      {"\xf5\x80\x80\x80", 1, -1},
      {"\x80", 1, -1},      // lone continuation
      {"\xe2\x82", 1, -1},  // cut short by the terminator
      {"\xe2(\xac", 1, -1},
  };
  for (const Case& c : cases) {
    int cp = 0;
    EXPECT_EQ(c.length, platform::Utf8Decode(c.bytes, std::strlen(c.bytes), &cp)) << c.bytes;
    EXPECT_EQ(c.codePoint, cp) << c.bytes;
  }
  int cp;
  // Cut short by the given length.
  EXPECT_EQ(1u, platform::Utf8Decode("\xe2\x82\xac", 2, &cp));
  EXPECT_EQ(-1, cp);
  EXPECT_EQ(0u, platform::Utf8Decode("x", 0, &cp));
}

// The decoder agrees with ICU on which positions start a well-formed
// sequence, and on its code point and length, for random bytes.
TEST(Text, DecodeAgreesWithIcuOnRandomBytes) {
  std::mt19937 rng(12345);
  const unsigned char interesting[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0,
                                       0xBF, 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xED,
                                       0xEE, 0xEF, 0xF0, 0xF3, 0xF4, 0xF5, 0xFF};
  for (int round = 0; round < 2000; ++round) {
    std::string bytes;
    int n = 1 + static_cast<int>(rng() % 12);
    for (int i = 0; i < n; ++i) {
      bytes += static_cast<char>(rng() % 2 ? interesting[rng() % sizeof interesting]
                                           : static_cast<unsigned char>(rng()));
    }
    for (int i = 0; i < n; ++i) {
      int mine;
      unsigned int k = platform::Utf8Decode(bytes.data() + i, n - i, &mine);
      int32_t at = i;
      UChar32 icu;
      U8_NEXT(reinterpret_cast<const uint8_t*>(bytes.data()), at, n, icu);
      if (icu < 0) {
        EXPECT_EQ(-1, mine);
        EXPECT_EQ(1u, k);
      } else {
        EXPECT_EQ(icu, mine);
        EXPECT_EQ(static_cast<unsigned int>(at - i), k);
      }
    }
  }
}

TEST(Text, CompareWithCaseTypes) {
  EXPECT_EQ(0, platform::TextCompare("abc", -1, "abc", -1, platform::kTextExactCase));
  EXPECT_LT(platform::TextCompare("abc", -1, "abd", -1, platform::kTextExactCase), 0);
  EXPECT_LT(platform::TextCompare("ab", -1, "abc", -1, platform::kTextExactCase), 0);
  EXPECT_GT(platform::TextCompare("\xc3\xa9", -1, "z", -1, platform::kTextExactCase), 0);
  EXPECT_NE(0, platform::TextCompare("ABC", -1, "abc", -1, platform::kTextExactCase));
  EXPECT_EQ(0, platform::TextCompare("ABC", -1, "abc", -1, platform::kTextIgnoreCase));
  EXPECT_EQ(0, platform::TextCompare("abX", 2, "ABY", 2, platform::kTextIgnoreCase));
  // Folding handles characters of different byte lengths: K (Kelvin) = k.
  EXPECT_EQ(0, platform::TextCompare("\xe2\x84\xaa", -1, "k", -1, platform::kTextIgnoreCase));
  EXPECT_EQ(0, platform::TextCompare("\xf0\x90\x90\x80", -1, "\xf0\x90\x90\xa8", -1,
                                     platform::kTextIgnoreCase));  // Deseret
  EXPECT_LT(platform::TextCompare("a", -1, "B", -1, platform::kTextIgnoreCase), 0);
  // Malformed bytes equal only themselves and sort after characters.
  EXPECT_EQ(0, platform::TextCompare("\xff", -1, "\xff", -1, platform::kTextIgnoreCase));
  EXPECT_GT(platform::TextCompare("\xff", -1, "\xf4\x8f\xbf\xbf", -1, platform::kTextIgnoreCase),
            0);
  EXPECT_EQ(0, platform::TextCompare(nullptr, -1, "", -1, platform::kTextExactCase));
}

TEST(Text, SearchesRespectCharacterBoundaries) {
  const char* text =
      "a\xe2\x82\xac"
      "b\xe2\x82\xac";
  EXPECT_EQ(text + 4, platform::TextFindChar(text, 'b'));
  EXPECT_EQ(nullptr, platform::TextFindChar(text, '\x82'));
  EXPECT_EQ(nullptr, platform::TextFindChar(text, '\0'));
  EXPECT_EQ(text + 5, platform::TextFindSubstring(text + 2, "\xe2\x82\xac", 1));
  // A needle beginning with a continuation byte only matches where the
  // byte is a character of its own.
  EXPECT_EQ(nullptr, platform::TextFindSubstring(text, "\x82\xac", 1));
  const char* loose = "x\x82\xac";
  EXPECT_EQ(loose + 1, platform::TextFindSubstring(loose, "\x82\xac", 1));
  EXPECT_EQ(text, platform::TextFindSubstring(text, "", 1));
  EXPECT_EQ(text + 4, platform::TextFindSubstring(text, "B\xe2\x82\xac", 0));
  EXPECT_EQ(nullptr, platform::TextFindSubstring(text, "B", 1));
  const char* right = "\xc3\xa9x\xc3\xa9x\xff";
  EXPECT_EQ(right + 5, platform::TextFindCharRight(right, 'x'));
  EXPECT_EQ(right + 6, platform::TextFindCharRight(right, '\xff'));
  EXPECT_EQ(nullptr, platform::TextFindCharRight(right, '\xa9'));
}

TEST(Text, TrimmingHelpers) {
  const char* text = " \t x y \n";
  EXPECT_EQ(text + 3, platform::TextSkipSpace(text));
  EXPECT_EQ(text + 6, platform::TextTrailingSpace(text));
  const char* none = "xy";
  EXPECT_EQ(none + 2, platform::TextTrailingSpace(none));
  const char* all = "  ";
  EXPECT_EQ(all + 2, platform::TextSkipSpace(all));
  EXPECT_EQ(all, platform::TextTrailingSpace(all));
  EXPECT_FALSE(platform::TextIsSpace("\xc2\xa0"));
  const char* set = "\xc3\xa9-";
  const char* s = "-\xc3\xa9-a\xc3\xa9-";
  EXPECT_EQ(s + 4, platform::TextSkipSet(s, set, std::strlen(set)));
  EXPECT_EQ(s + 5, platform::TextTrailingSet(s, set, std::strlen(set)));
  // The set's own malformed bytes match only malformed bytes.
  const char* partial = "\xc3\xa9";
  EXPECT_EQ(partial, platform::TextSkipSet(partial, "\xc3", 1));
}

TEST(Text, MapCaseAndReverseInPlace) {
  char text[] = "\xc3\xa0\xc3\xa9\xc4\xb1 \xe1\xba\x9e \xce\xbc";  // àéı ẞ μ
  platform::TextMapCase(text, std::strlen(text), true);
  EXPECT_STREQ("\xc3\x80\xc3\x89\xc4\xb1 \xe1\xba\x9e \xce\x9c", text);
  platform::TextMapCase(text, std::strlen(text), false);
  // ẞ (3 bytes) lower-cases to ß (2 bytes): kept.
  EXPECT_STREQ("\xc3\xa0\xc3\xa9\xc4\xb1 \xe1\xba\x9e \xce\xbc", text);
  char partial[] = "abcd";
  platform::TextMapCase(partial, 2, true);
  EXPECT_STREQ("ABcd", partial);
  char reversed[] =
      "1\xf0\x9f\x98\x80"
      "2\xe2\x82"
      "3";
  platform::TextReverse(reversed, std::strlen(reversed));
  EXPECT_STREQ(
      "3\x82\xe2"
      "2\xf0\x9f\x98\x80"
      "1",
      reversed);
}

}  // namespace
