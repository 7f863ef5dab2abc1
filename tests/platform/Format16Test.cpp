#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/platform/Format16.h"
#include "vesk/platform/Memory.h"

namespace platform = vesk::platform;

namespace {

using vesk::testing::Units;
using vesk::testing::W;

// Formats into a roomy buffer; checks that the reported length is the
// length written.
Units Format(const char16_t* format, ...) {
  unsigned short buffer[512];
  va_list args;
  va_start(args, format);
  int n = platform::Utf16VFormat(buffer, 512, W(format), args);
  va_end(args);
  EXPECT_GE(n, 0);
  EXPECT_EQ(static_cast<std::size_t>(n), Units(buffer).size());
  return Units(buffer);
}

// The narrow printf's text, widened: the oracle for numeric conversions.
Units Narrow(const char* format, ...) {
  char buffer[512];
  va_list args;
  va_start(args, format);
  std::vsnprintf(buffer, sizeof buffer, format, args);
  va_end(args);
  Units out;
  for (const char* p = buffer; *p; ++p) out += static_cast<unsigned char>(*p);
  return out;
}

// The same directives and arguments through the narrow printf and here.
#define EXPECT_AS_PRINTF(format, ...) \
  EXPECT_EQ(Narrow(format, __VA_ARGS__), Format(u"" format, __VA_ARGS__))

TEST(Format16, NumbersMatchTheNarrowPrintf) {
  EXPECT_AS_PRINTF("%d|%5d|%-5d|%05d|%+d|% d", -7, 42, 42, 42, 3, 3);
  EXPECT_AS_PRINTF("%u|%x|%X|%#o|%#x|%.3d", 4000000000u, 255u, 255u, 8u, 0u, 5);
  EXPECT_AS_PRINTF("%ld|%lld|%llu|%zu|%hd|%hhu", -5L, -6LL, 7ULL, std::size_t{8}, 70000, 300);
  EXPECT_EQ(Narrow("%lld|%d", 1LL << 40, 9), Format(u"%I64d|%I32d", 1LL << 40, 9));
  EXPECT_AS_PRINTF("%f|%.2f|%10.3e|%g|%G|%a", 3.5, 2.675, 12345.678, 1e-10, 1e20, 1.0);
  EXPECT_AS_PRINTF("%Lf", 1.25L);
  EXPECT_AS_PRINTF("%*d|%-*d|%.*f|%*d|", 6, 1, 4, 2, 2, 0.125, -6, 1);
  int x = 0;
  EXPECT_AS_PRINTF("%p", static_cast<void*>(&x));
  EXPECT_AS_PRINTF("%.300f", 1.0);  // longer than the formatter's own small buffer
}

TEST(Format16, TextTakesSixteenBitAndNarrowStrings) {
  EXPECT_EQ(Units(W(u"[wide€𝄞]")), Format(u"[%s]", W(u"wide€𝄞")));
  EXPECT_EQ(Units(W(u"[nä€]")), Format(u"[%hs]", "n\xC3\xA4\xE2\x82\xAC"));
  EXPECT_EQ(Units(W(u"[a|b|c|d]")), Format(u"[%ls|%ws|%S|%hs]", W(u"a"), W(u"b"), "c", "d"));
  EXPECT_EQ(Units(W(u"[  ab|ab  |abc]")),
            Format(u"[%4s|%-4s|%.3s]", W(u"ab"), W(u"ab"), W(u"abcdef")));
  // The precision bounds the narrow bytes read and never cuts a character.
  EXPECT_EQ(Units(W(u"[ä|ä€]")),
            Format(u"[%.3hs|%.5hs]", "\xC3\xA4\xE2\x82\xAC", "\xC3\xA4\xE2\x82\xAC"));
  EXPECT_EQ(Units(W(u"[   ä]")), Format(u"[%4hs]", "\xC3\xA4"));
  EXPECT_EQ(Units(W(u"(null)|(null)")),
            Format(u"%s|%hs", static_cast<const unsigned short*>(nullptr),
                   static_cast<const char*>(nullptr)));
  EXPECT_EQ(Units(W(u"€|x|?|𝄞| y")),
            Format(u"%c|%hc|%hc|%lc|%2C", 0x20AC, 'x', 0xE9, 0x1D11E, 'y'));
}

TEST(Format16, CountsPercentsAndUnknownDirectives) {
  int count = -1;
  long long wide = -1;
  EXPECT_EQ(Units(W(u"ab€%cd%y")), Format(u"ab%s%%%n%lln%hs%y", W(u"€"), &count, &wide, "cd"));
  EXPECT_EQ(4, count);
  EXPECT_EQ(4, wide);
  EXPECT_EQ(Units(W(u"tail%")), Format(u"tail%"));
}

TEST(Format16, ReportsTheWholeLengthWhenTheBufferIsShort) {
  unsigned short buffer[8];
  for (unsigned short& u : buffer) u = 0xFFFF;
  EXPECT_EQ(11, platform::Utf16Format(buffer, 5, W(u"%s-%d"), W(u"hello"), 12345));
  EXPECT_EQ(Units(W(u"hell")), Units(buffer));
  EXPECT_EQ(0xFFFF, buffer[5]);
  // A narrow piece cut in the middle keeps the part that fits.
  EXPECT_EQ(5,
            platform::Utf16Format(buffer, 4, W(u"%hs"), "\xC3\xA4\xC3\xB6\xC3\xBC\xE2\x82\xAC!"));
  EXPECT_EQ(Units(W(u"äöü")), Units(buffer));
  buffer[0] = 0xFFFF;
  EXPECT_EQ(3, platform::Utf16Format(buffer, 0, W(u"abc")));
  EXPECT_EQ(0xFFFF, buffer[0]);
  EXPECT_EQ(3, platform::Utf16Format(nullptr, 0, W(u"%hs"),
                                     "\xC3\xA4"
                                     "bc"));
  EXPECT_EQ(0, platform::Utf16Format(buffer, 8, nullptr));
  EXPECT_EQ(0, buffer[0]);
}

TEST(Format16, FailsCleanlyWhenAScratchBlockIsRefused) {
  unsigned short buffer[4];
  long live = platform::LiveAllocations();
  platform::FailAllocationAt(1);
  int n = platform::Utf16Format(buffer, 4, W(u"%.400f"), 1.0);
  platform::FailAllocationAt(0);
  EXPECT_EQ(-1, n);
  EXPECT_EQ(live, platform::LiveAllocations());
}

}  // namespace
