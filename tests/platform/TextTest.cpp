#include <cstring>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "HostSupport.h"

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
      int at = i;
      int icu = vesk_test::ReferenceUtf8Next(bytes.data(), i, n, &at);
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

}  // namespace
