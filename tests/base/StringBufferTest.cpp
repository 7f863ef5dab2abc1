#include <cstring>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/String.h"
#include "vesk/base/StringBuffer.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
namespace platform = vesk::platform;
using vesk::testing::ExpectThrowIfAllocationFails;

namespace {

TEST(StringBuffer, GrowthStepIsAtLeastEightAndRoundsUp) {
  CStringBuffer small(3);
  EXPECT_EQ(8u, small.GetGrowthStep());
  EXPECT_EQ(nullptr, static_cast<char*>(small));
  EXPECT_EQ(0u, small.GetCapacity());
  for (auto step : {std::make_pair(10u, 16u), {16u, 16u}, {17u, 24u}}) {
    small.EnsureCapacity(step.first);
    EXPECT_EQ(step.second, small.GetCapacity()) << step.first;
  }
  CStringBuffer odd(0, 10);
  odd.EnsureCapacity(21);
  EXPECT_EQ(30u, odd.GetCapacity());
  // An initial capacity is rounded the same way, allocated and zero-filled.
  CStringBuffer b(20, 8);
  ASSERT_EQ(24u, b.GetCapacity());
  EXPECT_EQ(std::string(24, '\0'), std::string(static_cast<const char*>(b), 24));
  EXPECT_EQ(0u, b.GetSize());
}

TEST(StringBuffer, AppendsAndAssigns) {
  CStringBuffer b(8);
  b += 'a';
  EXPECT_EQ(8u, b.GetCapacity());
  b += "bcdefgh";
  EXPECT_STREQ("abcdefgh", b);
  EXPECT_EQ(16u, b.GetCapacity());
  b += CString("ij");
  b += static_cast<const char*>(nullptr);
  const unsigned short euro[] = {0x20AC, 0xD800, 0};
  b += euro;
  EXPECT_STREQ("abcdefghij\xe2\x82\xac?", b);
  EXPECT_EQ(14u, b.GetSize());
  b = "new";
  EXPECT_STREQ("new", b);
  b = CString("str");
  EXPECT_STREQ("str", b);
  b = euro;
  EXPECT_STREQ("\xe2\x82\xac?", b);
  b = static_cast<const char*>(nullptr);
  EXPECT_TRUE(b.IsEmpty());
  EXPECT_EQ(16u, b.GetCapacity());  // the array is kept
  // Copies are independent and keep the growth step.
  CStringBuffer c(12);
  c += "original";
  CStringBuffer d(c);
  EXPECT_EQ(12u, d.GetGrowthStep());
  d += "!";
  EXPECT_STREQ("original", c);
  c = d;
  EXPECT_NE(static_cast<char*>(c), static_cast<char*>(d));
  EXPECT_STREQ("original!", c);
}

TEST(StringBuffer, AppendingItsOwnTextAcrossAGrowth) {
  CStringBuffer b(8);
  b += "abcdefg";  // capacity 8, full
  b += static_cast<char*>(b);
  EXPECT_STREQ("abcdefgabcdefg", b);
  b += static_cast<char*>(b) + 7;
  EXPECT_STREQ("abcdefgabcdefgabcdefg", b);
  b = static_cast<char*>(b) + 14;
  EXPECT_STREQ("abcdefg", b);
}

TEST(StringBuffer, GetBufferTrimToSizeAndEmpty) {
  CStringBuffer b(8);
  char* p = b.GetBuffer(30);
  EXPECT_EQ(32u, b.GetCapacity());
  std::strcpy(p, "written directly");
  EXPECT_EQ(16u, b.GetSize());
  b.TrimToSize();
  EXPECT_EQ(17u, b.GetCapacity());
  EXPECT_STREQ("written directly", b);
  b.TrimToSize();
  EXPECT_EQ(17u, b.GetCapacity());
  b.Empty();
  EXPECT_TRUE(b.IsEmpty());
  EXPECT_EQ(17u, b.GetCapacity());
  CStringBuffer unused(8);
  unused.Empty();
  unused.TrimToSize();
  EXPECT_EQ(nullptr, unused.GetBuffer(0));
}

TEST(StringBuffer, AllocationFailureThrowsAndKeepsTheText) {
  long live = platform::LiveAllocations();
  {
    CStringBuffer b(8);
    b += "kept";
    ExpectThrowIfAllocationFails([&] { b += "and a longer tail"; }, nullptr,
                                 "vesk/base/StringBuffer");
    EXPECT_STREQ("kept", b);
    ExpectThrowIfAllocationFails([] { CStringBuffer(100, 8); });
    ExpectThrowIfAllocationFails([&] { b.TrimToSize(); });
    EXPECT_STREQ("kept", b);
  }
  EXPECT_EQ(live, platform::LiveAllocations());
}

}  // namespace
