#include <string>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "util/TestObjects.h"
#include "vesk/base/FormattedString.h"
#include "vesk/base/FormattedUnicodeString.h"
#include "vesk/base/IllegalArgumentException.h"

using vesk::base::CFormattedString;
using vesk::base::CFormattedUnicodeString;
using vesk::base::CIllegalArgumentException;
using vesk::testing::Units;
using vesk::testing::W;
using vesk_test::ExpectThrowFrom;

TEST(FormattedString, FormatsInOneExpression) {
  EXPECT_STREQ("7-x", CFormattedString("%d-%s", 7, "x"));
  EXPECT_EQ(Units(W(u"7-x \u00e9t\u00e9")),
            Units(CFormattedUnicodeString(W(u"%d-%s %hs"), 7, W(u"x"), "\u00e9t\u00e9")));
  CFormattedString a("%s", "shared");
  CFormattedString b(a);
  EXPECT_EQ(static_cast<const char*>(a), static_cast<const char*>(b));
}

TEST(FormattedString, LongResultsComeOutWhole) {
  for (std::size_t length : {1023u, 1024u, 1025u, 2047u, 100000u}) {
    SCOPED_TRACE(length);
    std::string text(length - 1, 'x');
    text += 'y';
    CFormattedString narrow("%s", text.c_str());
    EXPECT_EQ(text, std::string(narrow, narrow.GetString().GetLength()));
    Units units(text.begin(), text.end());
    CFormattedUnicodeString wide(W(u"%s"), units.c_str());
    EXPECT_EQ(units, Units(wide, wide.GetString().GetLength()));
  }
}

TEST(FormattedString, RefusesAMissingFormat) {
  const unsigned short empty[] = {0};
  ExpectThrowFrom<CIllegalArgumentException>([] { CFormattedString(""); },
                                             "vesk/base/FormattedString", "Invalid format string.");
  ExpectThrowFrom<CIllegalArgumentException>([] { CFormattedString(nullptr); },
                                             "vesk/base/FormattedString", "Invalid format string.");
  ExpectThrowFrom<CIllegalArgumentException>([&] { (void)CFormattedUnicodeString(empty); },
                                             "vesk/base/FormattedUnicodeString",
                                             "Invalid format string.");
  ExpectThrowFrom<CIllegalArgumentException>([] { CFormattedUnicodeString(nullptr); },
                                             "vesk/base/FormattedUnicodeString",
                                             "Invalid format string.");
}

TEST(FormattedString, AllocationFailuresLeaveNothingBehind) {
  std::string text(5000, 'z');
  EXPECT_GT(vesk::testing::FailEachAllocationInTurn([&] {
              CFormattedString narrow("%s-%d", text.c_str(), 1);
              CFormattedUnicodeString wide(W(u"%hs-%d"), text.c_str(), 2);
            }),
            0);
}
