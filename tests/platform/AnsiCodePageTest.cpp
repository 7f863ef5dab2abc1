// Narrow text in a process whose ANSI code page is not UTF-8 (this program
// has no UTF-8 manifest; under Wine's default English locale the code page is
// 1252): conversions follow the code page, what it lacks becomes '?'.
#include <gtest/gtest.h>

#include "io/TestStreams.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"

using vesk::base::CString;
using vesk::base::CUnicodeString;

namespace {

TEST(AnsiCodePageTest, NarrowTextIsInTheAnsiCodePage) {
  // Code page 1252 has the euro sign at 0x80.
  if (vesk_test::ToU16(CUnicodeString("\x80")) != u"\u20AC") {
    GTEST_SKIP() << "the ANSI code page is not 1252";
  }
  EXPECT_EQ(vesk_test::ToU16(CUnicodeString("caf\xE9 \x80")), u"caf\u00E9 \u20AC");
  CUnicodeString wide = vesk_test::FromU16(u"\u00E9\u20AC\u65E5\U0001F600");
  EXPECT_STREQ(static_cast<const char*>(CString(static_cast<const unsigned short*>(wide))),
               "\xE9\x80??");
  // A UTF-8 sequence is two characters of the code page, not one.
  EXPECT_EQ(CUnicodeString("\xC3\xA9").GetLength(), 2u);
}

}  // namespace
