#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/ClassCastException.h"
#include "vesk/base/Exception.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/base/Ref.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
using vesk::testing::ExpectThrow;
using vesk::testing::ExpectThrowIfAllocationFails;

namespace {

int g_destroyed = 0;

class CCounted : public CObject {
 public:
  explicit CCounted(int value = 0) : m_value(value) {}
  ~CCounted() override { ++g_destroyed; }
  int m_value;
};

class CDerived : public CCounted {
 public:
  CDerived() : CCounted(7) {}
};

// Only a type outside the object tree can declare a throwing destructor.
struct ThrowsOnDestruction {
  ~ThrowsOnDestruction() noexcept(false) { throw CException("test", 1); }
};

// Not a CObject: handles hold any type.
struct Plain {
  explicit Plain(int* counter) : m_counter(counter) {}
  ~Plain() { ++*m_counter; }
  int* m_counter;
};

class RefTest : public ::testing::Test {
 protected:
  void SetUp() override {
    g_destroyed = 0;
    m_live = vesk::platform::LiveAllocations();
  }
  void TearDown() override {
    vesk::platform::FailAllocationAt(0);
    EXPECT_EQ(m_live, vesk::platform::LiveAllocations());
  }
  long m_live = 0;
};

}  // namespace

TEST_F(RefTest, EmptyHandlesThrowNullReferenceOnDereference) {
  CRef<CCounted> empty;
  CRef<CCounted> fromNull(vesk::null);
  CRef<CCounted> fromNullPointer(static_cast<CCounted*>(nullptr));
  EXPECT_TRUE(empty.IsNull());
  EXPECT_TRUE(fromNull == vesk::null);
  EXPECT_EQ(0u, fromNullPointer.GetRefCount());
  ExpectThrow<CNullReferenceException>([&] { empty->m_value = 1; }, nullptr, "vesk/base/Ref");
  const CRef<CCounted>& constEmpty = empty;
  EXPECT_THROW((void)(*constEmpty).m_value, CNullReferenceException);
}

TEST_F(RefTest, LastReleaseDeletesExactlyOnce) {
  {
    CRef<CCounted> a(new CCounted(3));
    {
      CRef<CCounted> b(a);
      CRef<CCounted> c;
      c = b;
      EXPECT_EQ(3u, a.GetRefCount());
      EXPECT_EQ(3, c->m_value);
      c = c;  // self-assignment keeps the count
      EXPECT_EQ(3u, a.GetRefCount());
    }
    EXPECT_EQ(1u, a.GetRefCount());
    EXPECT_EQ(0, g_destroyed);
    a = new CCounted(2);  // reassignment releases the replaced object
    EXPECT_EQ(1, g_destroyed);
    EXPECT_EQ(2, a->m_value);
    a = vesk::null;
    EXPECT_EQ(2, g_destroyed);
  }
  EXPECT_EQ(2, g_destroyed);
}

TEST_F(RefTest, CheckedConversionBetweenHandleTypes) {
  CRef<CCounted> base(new CDerived);
  CRef<CDerived> down(base);  // down-cast that holds
  EXPECT_EQ(7, down->m_value);
  EXPECT_EQ(2u, base.GetRefCount());
  CRef<CObject> up(down);
  EXPECT_EQ(3u, base.GetRefCount());

  CRef<CCounted> plain(new CCounted(1));
  ExpectThrow<CClassCastException>([&] { CRef<CDerived> wrong(plain); }, nullptr, "vesk/base/Ref");
  EXPECT_EQ(1u, plain.GetRefCount());  // nothing counted by the failed cast

  CRef<CCounted> none;
  CRef<CDerived> stillNone(none);
  EXPECT_TRUE(stillNone.IsNull());

  // The last release may come from any handle type; the object is deleted as
  // what it was handed over as.
  base = vesk::null;
  down = vesk::null;
  EXPECT_EQ(0, g_destroyed);
  up = vesk::null;
  EXPECT_EQ(1, g_destroyed);
}

TEST_F(RefTest, HoldsTypesOutsideTheObjectTreeAndSwallowsTheirDestructorsExceptions) {
  int destroyed = 0;
  {
    CRef<Plain> a(new Plain(&destroyed));
    CRef<Plain> b = a;
  }
  EXPECT_EQ(1, destroyed);
  CRef<ThrowsOnDestruction> c(new ThrowsOnDestruction);
  EXPECT_NO_THROW(c = vesk::null);
}

// A record that cannot be allocated deletes the object it was handed; a
// null one is refused; VESK_NEW names the call site.
TEST_F(RefTest, FailuresThrowAndLeaveNothing) {
  CCounted* object = new CCounted;
  ExpectThrowIfAllocationFails([&] { CRef<CCounted> a(object); }, nullptr, "vesk/base/Ref");
  EXPECT_EQ(1, g_destroyed);
  ExpectThrow<CIllegalArgumentException>([&] { CRefCountedPtr record(nullptr, true, nullptr); },
                                         "Invalid pointer.", "vesk/base/RefCountedPtr");
  vesk::platform::FailAllocationAt(1);
  try {
    CRef<CCounted> a(VESK_NEW CCounted);
    FAIL();
  } catch (const CMemoryException& e) {
    EXPECT_STREQ("tests/base/RefTest.cpp", e.GetSourceFile());
    EXPECT_EQ(static_cast<unsigned int>(__LINE__ - 4), e.GetSourceLine());
  }
  ExpectThrowIfAllocationFails([] { delete new CCounted; }, nullptr, "vesk/base/Base");
}
