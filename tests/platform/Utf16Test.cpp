#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "HostSupport.h"
#include "TestSupport.h"
#if !defined(_WIN32)
#include <unicode/uchar.h>
#endif

#include "vesk/platform/Text.h"
#include "vesk/platform/Utf16.h"

namespace platform = vesk::platform;

namespace {

using vesk::testing::RandomUtf16;
typedef vesk::testing::Units U16;

U16 Units(std::initializer_list<unsigned short> units) { return U16(units); }

std::string ToUtf8(const U16& text) {
  std::size_t n = platform::Utf16ToUtf8(text.c_str(), static_cast<int>(text.size()), nullptr, 0);
  std::string out(n, '\0');
  EXPECT_EQ(n, platform::Utf16ToUtf8(text.c_str(), static_cast<int>(text.size()), &out[0], n));
  return out;
}

U16 ToUtf16(const std::string& text) {
  std::size_t n = platform::Utf8ToUtf16(text.data(), static_cast<int>(text.size()), nullptr, 0);
  U16 out(n, 0);
  EXPECT_EQ(n, platform::Utf8ToUtf16(text.data(), static_cast<int>(text.size()), &out[0], n));
  return out;
}

// Simple mappings and foldings that ICU (POSIX) and the system's tables
// (Windows) must both give: one code point each, beyond Latin-1 too.
TEST(Utf16, CaseMappingsBeyondAscii) {
  struct Case {
    unsigned short from;
    unsigned short upper;
    unsigned short lower;
  } cases[] = {{0x3C2, 0x3A3, 0x3C2}, {0x1C5, 0x1C4, 0x1C6}, {0x17F, 'S', 0x17F},
               {0x1E9E, 0x1E9E, 0xDF}, {0x130, 0x130, 'i'},  {0x3D0, 0x392, 0x3D0},
               {0xFF41, 0xFF21, 0xFF41}, {0x410, 0x410, 0x430}};
  for (const Case& c : cases) {
    U16 upper(1, c.from), lower(1, c.from);
    platform::Utf16MapCase(&upper[0], 1, true);
    platform::Utf16MapCase(&lower[0], 1, false);
    EXPECT_EQ(c.upper, upper[0]) << std::hex << c.from;
    EXPECT_EQ(c.lower, lower[0]) << std::hex << c.from;
  }
  // Folding joins final and medial sigma, the digraph's three forms and the
  // long s with s, but neither the dotted capital I nor the dotless i with i.
  const U16 same[][2] = {{Units({0x3C2}), Units({0x3A3})}, {Units({0x1C5}), Units({0x1C6})},
                         {Units({0x17F}), Units({'s'})},  {Units({0x1E9E}), Units({0xDF})}};
  for (const auto& pair : same) {
    EXPECT_EQ(0, platform::Utf16CompareTexts(pair[0].c_str(), -1, pair[1].c_str(), -1, 0))
        << std::hex << pair[0][0];
  }
  for (unsigned short dotted : {0x130, 0x131}) {
    EXPECT_NE(0, platform::Utf16CompareTexts(Units({dotted}).c_str(), -1, Units({'i'}).c_str(),
                                             -1, 0));
  }
}

#if !defined(_WIN32)
// The fixed white-space table is ICU's u_isspace for every unit.
TEST(Utf16, SpaceTableMatchesIcu) {
  for (unsigned int c = 0; c <= 0xFFFF; ++c) {
    ASSERT_EQ(u_isspace(static_cast<UChar32>(c)) != 0,
              platform::Utf16IsSpace(static_cast<unsigned short>(c)))
        << std::hex << c;
  }
}
#endif

TEST(Utf16, ToUtf8KnownForms) {
  EXPECT_EQ("A", ToUtf8(Units({'A'})));
  EXPECT_EQ("\xc3\xa9\xe2\x82\xac", ToUtf8(Units({0xE9, 0x20AC})));
  EXPECT_EQ("A\xf0\x9f\x98\x80", ToUtf8(Units({'A', 0xD83D, 0xDE00})));
  EXPECT_EQ("?A", ToUtf8(Units({0xD800, 'A'})));
  EXPECT_EQ("?", ToUtf8(Units({0xDC00})));
  EXPECT_EQ("??", ToUtf8(Units({0xDC00, 0xD800})));
  EXPECT_EQ(std::string("a\0b", 3), ToUtf8(Units({'a', 0, 'b'})));
  // Zero-terminated form stops at the zero unit.
  U16 z = Units({'x', 0x20AC, 0, 'y'});
  EXPECT_EQ(4u, platform::Utf16ToUtf8(z.c_str(), -1, nullptr, 0));
  EXPECT_EQ(0u, platform::Utf16ToUtf8(nullptr, -1, nullptr, 0));
}

TEST(Utf16, BoundedTargetsGetWholeCharactersOnly) {
  U16 text = Units({'a', 0x20AC, 0xD83D, 0xDE00});
  char out[8] = {0};
  EXPECT_EQ(1u, platform::Utf16ToUtf8(text.c_str(), 4, out, 3));  // € does not fit in 2
  EXPECT_EQ(4u, platform::Utf16ToUtf8(text.c_str(), 4, out, 7));
  EXPECT_EQ(8u, platform::Utf16ToUtf8(text.c_str(), 4, out, 8));
  unsigned short units[3];
  EXPECT_EQ(1u, platform::Utf8ToUtf16("a\xf0\x9f\x98\x80", -1, units, 2));
  EXPECT_EQ(3u, platform::Utf8ToUtf16("a\xf0\x9f\x98\x80", -1, units, 3));
  EXPECT_EQ(0xDE00, units[2]);
}

// Which sequences are well formed is the decoder's rule, checked against ICU
// on random bytes in TextTest; here how the converter goes on after a fault.
TEST(Utf16, FromUtf8ReplacesEachMalformedByte) {
  EXPECT_EQ(Units({'a', '?', '(', 'b'}), ToUtf16("a\xc3(b"));
  EXPECT_EQ(Units({'?', '?', '?'}), ToUtf16("\xed\xa0\x80"));  // encoded surrogate
  EXPECT_EQ(Units({'?', '?'}), ToUtf16("\xe2\x82"));
  EXPECT_EQ(Units({0xD83D, 0xDE00}), ToUtf16("\xf0\x9f\x98\x80"));
  EXPECT_EQ(2u, platform::Utf8ToUtf16("ab\0cd", 2, nullptr, 0));
}

// UTF-16 -> UTF-8 -> UTF-16 agrees with the reference converters (ICU, or
// the system's on Windows), substituting '?'.
TEST(Utf16, RandomRoundTripsAgainstIcu) {
  std::mt19937 rng(2024);
  for (int round = 0; round < 3000; ++round) {
    U16 text = RandomUtf16(rng, rng() % 20, true);
    std::string mine = ToUtf8(text);
    ASSERT_EQ(vesk_test::ReferenceUtf8(text.data(), text.size()), mine);
    // Every unpaired surrogate comes back as '?', everything else unchanged.
    std::u16string expected = vesk_test::ReferenceUtf16(mine.c_str());
    ASSERT_EQ(U16(expected.begin(), expected.end()), ToUtf16(mine));
  }
}

}  // namespace
