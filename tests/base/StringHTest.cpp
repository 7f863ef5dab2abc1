#include <string>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/StringH.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
namespace platform = vesk::platform;
using vesk::testing::ExpectThrow;
using vesk::testing::ExpectThrowIfAllocationFails;
using vesk::testing::FaultGuard;

namespace {

TEST(StringH, CopiesOwnTheirHandles) {
  CStringH a("first");
  CStringH b(a);
  EXPECT_NE(static_cast<const char*>(a), static_cast<const char*>(b));
  EXPECT_STREQ("first", b);
  b = "second, longer than the first";
  EXPECT_STREQ("first", a);
  EXPECT_EQ(29u, b.GetLength());
  a = b;
  EXPECT_TRUE(a == b);
  a = a;
  EXPECT_STREQ("second, longer than the first", a);
  a = CString("from a string");
  EXPECT_STREQ("from a string", a);
  CStringH c(CString("ctor"));
  EXPECT_STREQ("ctor", c);
  // Assigning a tail of its own text.
  a = static_cast<const char*>(a) + 5;
  EXPECT_STREQ("a string", a);
  a.Empty();
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_STREQ("", a);
}

// The empty handle string has no text at all, yet compares as the empty
// string does; the handle counts its locks.
TEST(StringH, CompareFollowsTheStringRules) {
  CStringH empty;
  EXPECT_EQ(nullptr, static_cast<const char*>(empty));
  EXPECT_EQ(nullptr, static_cast<const char*>(CStringH(static_cast<const char*>(nullptr))));
  EXPECT_EQ(-1, empty.Compare(""));
  EXPECT_EQ(0, empty.Compare(static_cast<const char*>(nullptr)));
  EXPECT_TRUE(empty == "" && empty == CString());
  CStringH h("abc");
  EXPECT_EQ(0, h.Compare("abc"));
  EXPECT_LT(h.Compare("abd"), 0);
  EXPECT_EQ(1, h.Compare(""));
  EXPECT_GT(h.Compare(CString("ab")), 0);
  EXPECT_EQ(1, h.Compare(empty));
  EXPECT_EQ(-1, empty.Compare(h));
  EXPECT_TRUE(h == "abc" && "abc" == h && CString("abc") == h && h != CString("abd"));
  CString s(h);
  EXPECT_STREQ("abc", s);
  s = CStringH();
  EXPECT_TRUE(s.IsEmpty());
  EXPECT_EQ(2u, (h.Lock(), h.Lock()));
  EXPECT_EQ(1u, h.Unlock());
  EXPECT_EQ(0u, (h.Unlock(), h.Unlock()));
}

TEST(StringH, HandleFailuresThrowAndLeakNothing) {
  FaultGuard guard;
  long live = platform::LiveAllocations();
  for (unsigned long n = 1; n <= 2; ++n) {  // the handle, then its block
    platform::FailAllocationAt(n);
    ExpectThrow<CMemoryException>([] { CStringH h("text"); }, nullptr, "vesk/base/StringH");
    platform::FailAllocationAt(0);
    EXPECT_EQ(live, platform::LiveAllocations());
  }
  CStringH h("short");
  ExpectThrowIfAllocationFails([&] { h = std::string(100, 'x').c_str(); });
  EXPECT_STREQ("short", h);
}

}  // namespace
