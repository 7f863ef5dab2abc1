#include <string>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/FormattedString.h"
#include "vesk/base/FormattedUnicodeString.h"
#include "vesk/base/IllegalArgumentException.h"

using namespace vesk::base;
using namespace vesk::testing;

// The formatting itself, long results included, is the strings' Format.
TEST(FormattedString, FormatsInOneExpression) {
  EXPECT_STREQ("7-x", CFormattedString("%d-%s", 7, "x"));
  EXPECT_EQ(Units(W(u"7-x \u00e9t\u00e9")),
            Units(CFormattedUnicodeString(W(u"%d-%s %hs"), 7, W(u"x"), "\u00e9t\u00e9")));
  CFormattedString a("%s", "shared");
  CFormattedString b(a);
  EXPECT_EQ(static_cast<const char*>(a), static_cast<const char*>(b));
}

TEST(FormattedString, RefusesAMissingFormat) {
  const unsigned short empty[] = {0};
  const char* narrow = "vesk/base/FormattedString";
  const char* wide = "vesk/base/FormattedUnicodeString";
  ExpectThrow<CIllegalArgumentException>([] { CFormattedString(""); }, "Invalid format string.",
                                         narrow);
  ExpectThrow<CIllegalArgumentException>([] { CFormattedString(nullptr); },
                                         "Invalid format string.", narrow);
  ExpectThrow<CIllegalArgumentException>([&] { (void)CFormattedUnicodeString(empty); },
                                         "Invalid format string.", wide);
  ExpectThrow<CIllegalArgumentException>([] { CFormattedUnicodeString(nullptr); },
                                         "Invalid format string.", wide);
}

TEST(FormattedString, AllocationFailuresLeaveNothingBehind) {
  std::string text(5000, 'z');
  EXPECT_GT(FailEachAllocationInTurn([&] {
              CFormattedString narrow("%s-%d", text.c_str(), 1);
              CFormattedUnicodeString wide(W(u"%hs-%d"), text.c_str(), 2);
            }),
            0);
}
