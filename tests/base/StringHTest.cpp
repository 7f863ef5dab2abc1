#include <string>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/StringH.h"
#include "vesk/platform/Memory.h"

using vesk::base::CMemoryException;
using vesk::base::CString;
using vesk::base::CStringH;
namespace platform = vesk::platform;
using vesk::testing::FaultGuard;

namespace {

TEST(StringH, EmptyHandleStringHasNoText) {
  CStringH h;
  EXPECT_EQ(nullptr, static_cast<const char*>(h));
  EXPECT_TRUE(h.IsEmpty());
  EXPECT_EQ(nullptr, static_cast<const char*>(CStringH(static_cast<const char*>(nullptr))));
  EXPECT_EQ(-1, h.Compare(""));
  EXPECT_EQ(0, h.Compare(static_cast<const char*>(nullptr)));
  EXPECT_EQ(0, h.Compare(CString()));
  EXPECT_TRUE(h == "");
  EXPECT_TRUE(h == CString());
}

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

TEST(StringH, CompareFollowsTheStringRules) {
  CStringH h("abc");
  EXPECT_EQ(0, h.Compare("abc"));
  EXPECT_LT(h.Compare("abd"), 0);
  EXPECT_EQ(1, h.Compare(""));
  EXPECT_EQ(1, h.Compare(static_cast<const char*>(nullptr)));
  EXPECT_GT(h.Compare(CString("ab")), 0);
  EXPECT_EQ(1, h.Compare(CStringH()));
  EXPECT_EQ(-1, CStringH().Compare(h));
  EXPECT_TRUE(h == "abc");
  EXPECT_TRUE("abc" == h);
  EXPECT_TRUE(h != CString("abd"));
  EXPECT_TRUE(CString("abc") == h);
  CString s(h);
  EXPECT_STREQ("abc", s);
  s = CStringH("other");
  EXPECT_STREQ("other", s);
  s = CStringH();
  EXPECT_TRUE(s.IsEmpty());
}

TEST(StringH, LockCounting) {
  CStringH h("x");
  EXPECT_EQ(1u, h.Lock());
  EXPECT_EQ(2u, h.Lock());
  EXPECT_EQ(1u, h.Unlock());
  EXPECT_EQ(0u, h.Unlock());
  EXPECT_EQ(0u, h.Unlock());
}

TEST(StringH, HandleFailuresThrowAndLeakNothing) {
  FaultGuard guard;
  long live = platform::LiveAllocations();
  for (unsigned long n = 1; n <= 2; ++n) {  // the handle, then its block
    platform::FailAllocationAt(n);
    try {
      CStringH h("text");
      FAIL() << "no exception at " << n;
    } catch (const CMemoryException& e) {
      EXPECT_STREQ("vesk/base/StringH", e.GetSourceFile());
    }
    platform::FailAllocationAt(0);
    EXPECT_EQ(live, platform::LiveAllocations());
  }
  CStringH h("short");
  platform::FailAllocationAt(1);
  EXPECT_THROW(h = std::string(100, 'x').c_str(), CMemoryException);
  platform::FailAllocationAt(0);
  EXPECT_STREQ("short", h);
}

}  // namespace
