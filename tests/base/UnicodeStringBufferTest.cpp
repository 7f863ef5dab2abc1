#include <string>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/String.h"
#include "vesk/base/StringBuffer.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/base/UnicodeStringBuffer.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
namespace platform = vesk::platform;
using namespace vesk::testing;

namespace {

Units UnitsOf(const CUnicodeStringBuffer& b) {
  const unsigned short* p = b;
  return p ? Units(p) : Units();
}

// The growth, trimming and aliasing rules are one body shared with the narrow
// buffer and checked there; these tests cover the 16-bit instantiation (sizes
// in units, not bytes), the conversions and the class's own members.
TEST(UnicodeStringBuffer, GrowsInStepsOfAtLeastEight) {
  CUnicodeStringBuffer b(3);
  EXPECT_EQ(8u, b.GetGrowthStep());
  EXPECT_EQ(nullptr, b.GetBuffer(0));
  b.SetCapacityIncrement(20);
  b.EnsureCapacity(25);
  EXPECT_EQ(40u, b.GetCapacity());
  b.SetCapacityIncrement(1);
  EXPECT_EQ(8u, b.GetGrowthStep());
  // The initial capacity is allocated at once, rounded and zero-filled.
  CUnicodeStringBuffer sized(12, 8);
  EXPECT_EQ(16u, sized.GetCapacity());
  EXPECT_EQ(Units(16, 0), Units(static_cast<unsigned short*>(sized), 16));
}

TEST(UnicodeStringBuffer, AssignsAndAppendsEveryKindOfText) {
  CUnicodeStringBuffer b;
  b = "gr\xC3\xBC\xC3\x9F";
  EXPECT_EQ(Units(W(u"grüß")), UnitsOf(b));
  b += W(u" €");
  b += static_cast<unsigned short>('!');
  b += CString(" \xF0\x9D\x84\x9E");
  b += CUnicodeString(W(u"."));
  b += static_cast<const char*>(nullptr);
  b += "\xFF";  // not UTF-8: '?'
  EXPECT_EQ(Units(W(u"grüß €! 𝄞.?")), UnitsOf(b));
  EXPECT_EQ(12u, b.GetSize());
  b.TrimToSize();
  EXPECT_EQ(13u, b.GetCapacity());
  EXPECT_EQ(Units(W(u"grüß €! 𝄞.?")), UnitsOf(b));
  b = CUnicodeString(W(u"wide"));
  EXPECT_EQ(Units(W(u"wide")), UnitsOf(b));
  b = CString("narrow");
  EXPECT_EQ(Units(W(u"narrow")), UnitsOf(b));
  b = W(u"");
  EXPECT_TRUE(b.IsEmpty());
  b = static_cast<const char*>(nullptr);
  EXPECT_TRUE(b.IsEmpty());
}

TEST(UnicodeStringBuffer, FailedGrowthThrowsAndKeepsTheText) {
  CUnicodeStringBuffer b;
  b = W(u"keep");
  long live = platform::LiveAllocations();
  ExpectThrowIfAllocationFails([&] { b += Units(500, 'x').c_str(); }, nullptr,
                               "vesk/base/UnicodeStringBuffer");
  ExpectThrowIfAllocationFails([] { CUnicodeStringBuffer(64, 8); });
  EXPECT_EQ(live, platform::LiveAllocations());
  EXPECT_EQ(Units(W(u"keep")), UnitsOf(b));
}

TEST(UnicodeStringBuffer, NarrowBufferTakesSixteenBitStrings) {
  CStringBuffer narrow;
  narrow = CUnicodeString(W(u"grüß"));
  EXPECT_STREQ("gr\xC3\xBC\xC3\x9F", static_cast<char*>(narrow));
  const unsigned short loneHigh[] = {' ', 0xD800, 0};
  narrow += CUnicodeString(loneHigh);
  narrow += CUnicodeString();
  EXPECT_STREQ("gr\xC3\xBC\xC3\x9F ?", static_cast<char*>(narrow));
  narrow = CUnicodeString();
  EXPECT_TRUE(narrow.IsEmpty());
}

}  // namespace
