#include <cstring>

#include <gtest/gtest.h>

#include "TestObjects.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/util/ObjectVector.h"

using namespace vesk::base;
using vesk::util::CObjectVector;
using vesk::testing::ExpectThrow;
using vesk_test::CNumber;

int CNumber::s_live = 0;
int CNumber::s_clonesBeforeFailure = -1;

namespace {

int ValueAt(const CObjectVector& v, unsigned int i) {
  return static_cast<CNumber*>(v.GetElementAt(i))->GetValue();
}

class ObjectVectorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    CNumber::s_live = 0;
    CNumber::s_clonesBeforeFailure = -1;
  }
  void TearDown() override { EXPECT_EQ(0, CNumber::s_live); }
};

// Growth and shrinking on every change follow the slot rules the string
// vectors' random runs check at each step; here the object vector's own
// entry points.
TEST_F(ObjectVectorTest, CapacityRoundsToTheGrowthStep) {
  CObjectVector v(7, 5);
  EXPECT_EQ(10u, v.GetCapacity());
  v.EnsureCapacity(11);
  EXPECT_EQ(15u, v.GetCapacity());
  for (int i = 0; i < 3; ++i) v.AddElement(VESK_NEW CNumber(i));
  v.RemoveElementAt(0);
  EXPECT_EQ(5u, v.GetCapacity());
  EXPECT_EQ(1, ValueAt(v, 0));
  v.RemoveAllElements();
  EXPECT_EQ(5u, v.GetCapacity());
  v.TrimToSize();
  EXPECT_EQ(0u, v.GetCapacity());
}

TEST_F(ObjectVectorTest, OwnershipOfSetInsertRemoveAndDetach) {
  CObjectVector v(0, 3);
  v.AddElement(VESK_NEW CNumber(1));
  v.AddElement(VESK_NEW CNumber(3));
  v.InsertElementAt(VESK_NEW CNumber(2), 1);
  EXPECT_EQ(3, CNumber::s_live);
  EXPECT_EQ(2, ValueAt(v, 1));

  // Replacing deletes the old element.
  v.SetElementAt(VESK_NEW CNumber(20), 1);
  EXPECT_EQ(3, CNumber::s_live);
  EXPECT_EQ(20, ValueAt(v, 1));

  // An index == size is rejected and the object stays the caller's.
  CNumber* spare = VESK_NEW CNumber(99);
  EXPECT_THROW(v.SetElementAt(spare, 3), CArrayIndexOutOfBoundsException);
  EXPECT_EQ(3u, v.GetSize());
  delete spare;

  CObject* detached = v.DetachElementAt(0);
  EXPECT_EQ(1, static_cast<CNumber*>(detached)->GetValue());
  EXPECT_EQ(3, CNumber::s_live);
  delete detached;

  CNumber probe(3);
  CObject* byValue = v.DetachElement(&probe);
  ASSERT_NE(nullptr, byValue);
  EXPECT_NE(&probe, byValue);
  delete byValue;
  EXPECT_EQ(nullptr, v.DetachElement(&probe));

  v.AddElement(VESK_NEW CNumber(4));
  v.AddElement(VESK_NEW CNumber(5));
  CObject* kept[3] = {v[0], v[1], v[2]};
  v.DetachAllElements();
  EXPECT_EQ(0u, v.GetSize());
  EXPECT_EQ(4, CNumber::s_live);  // the three kept objects and the probe
  for (CObject* object : kept) delete object;
}

TEST_F(ObjectVectorTest, SearchesUseEquals) {
  CObjectVector v;
  for (int value : {7, 8, 7, 9}) v.AddElement(VESK_NEW CNumber(value));
  CNumber seven(7), eight(8), absent(1);
  EXPECT_EQ(0, v.GetIndexOf(&seven));
  EXPECT_EQ(2, v.GetLastIndexOf(&seven));
  EXPECT_EQ(-1, v.GetIndexOf(&absent));
  v.RemoveElement(&seven);
  EXPECT_EQ(3u, v.GetSize());
  EXPECT_EQ(8, ValueAt(v, 0));
  EXPECT_EQ(1, v.GetIndexOf(&seven));
  v.RemoveElement(&absent);
  EXPECT_EQ(3u, v.GetSize());
  EXPECT_EQ(9, static_cast<CNumber*>(v.GetLastElement())->GetValue());
}

TEST_F(ObjectVectorTest, ArgumentAndIndexErrors) {
  CObjectVector v;
  EXPECT_THROW(v.GetFirstElement(), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.GetLastElement(), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.DetachElementAt(0), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.RemoveElementAt(0), CArrayIndexOutOfBoundsException);
  ExpectThrow<CIllegalArgumentException>([&] { v.AddElement(nullptr); }, "Invalid object.",
                                         "vesk/util/ObjectVector");
  EXPECT_THROW(v.GetIndexOf(nullptr), CIllegalArgumentException);
  EXPECT_THROW(v.RemoveElement(nullptr), CIllegalArgumentException);
  EXPECT_THROW(v.DetachElement(nullptr), CIllegalArgumentException);
  ExpectThrow<CIllegalArgumentException>([&] { v.Sort(nullptr); }, "Invalid compare function.",
                                         "vesk/util/ObjectVector");
}

int CompareNumbers(const void* a, const void* b) {
  int x = (*static_cast<CNumber* const*>(a))->GetValue();
  int y = (*static_cast<CNumber* const*>(b))->GetValue();
  return x < y ? -1 : x > y;
}

TEST_F(ObjectVectorTest, SortAndDeepCopy) {
  CObjectVector v(0, 4);
  for (int value : {5, 3, 9, 1, 3}) v.AddElement(VESK_NEW CNumber(value));
  v.Sort(&CompareNumbers);
  int sorted[] = {1, 3, 3, 5, 9};
  for (unsigned int i = 0; i < 5; ++i) EXPECT_EQ(sorted[i], ValueAt(v, i));

  CObjectVector copy(v);
  EXPECT_EQ(10, CNumber::s_live);
  EXPECT_EQ(4u, copy.GetGrowthStep());
  for (unsigned int i = 0; i < 5; ++i) {
    EXPECT_NE(v[i], copy[i]);
    EXPECT_TRUE(v[i]->Equals(copy[i]));
  }
  CObjectVector assigned(0, 2);
  assigned.AddElement(VESK_NEW CNumber(42));
  assigned = v;
  EXPECT_EQ(5u, assigned.GetSize());
  EXPECT_EQ(15, CNumber::s_live);
  assigned = assigned;
  EXPECT_EQ(5u, assigned.GetSize());
}

TEST_F(ObjectVectorTest, FailedCloneLeavesNothingBehind) {
  CObjectVector v;
  for (int i = 0; i < 6; ++i) v.AddElement(VESK_NEW CNumber(i));
  long before = vesk::platform::LiveAllocations();
  CNumber::s_clonesBeforeFailure = 3;
  EXPECT_THROW(CObjectVector copy(v), CMemoryException);
  EXPECT_EQ(6, CNumber::s_live);
  EXPECT_EQ(before, vesk::platform::LiveAllocations());

  // A failed assignment leaves the target empty, not half copied.
  CObjectVector target;
  target.AddElement(VESK_NEW CNumber(100));
  CNumber::s_clonesBeforeFailure = 2;
  EXPECT_THROW(target = v, CMemoryException);
  EXPECT_EQ(0u, target.GetSize());
  EXPECT_EQ(0u, target.GetCapacity());
  EXPECT_EQ(6, CNumber::s_live);
}

TEST_F(ObjectVectorTest, EveryFailedAllocationIsCleanedUp) {
  CObjectVector source(0, 2);
  for (int i = 0; i < 5; ++i) source.AddElement(VESK_NEW CNumber(i));
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CObjectVector copy(source);
    CNumber* inserted = VESK_NEW CNumber(-1);
    try {
      copy.InsertElementAt(inserted, 2);
    } catch (...) {
      delete inserted;
      throw;
    }
    copy.RemoveElementAt(0);
    copy.EnsureCapacity(40);
  });
  EXPECT_GT(failures, 5);
  EXPECT_EQ(5, CNumber::s_live);

  // A failed append leaves the vector and the object untouched.
  CObjectVector full(2, 2);
  full.AddElement(VESK_NEW CNumber(1));
  full.AddElement(VESK_NEW CNumber(2));
  CNumber* extra = VESK_NEW CNumber(3);
  vesk::testing::ExpectThrowIfAllocationFails([&] { full.AddElement(extra); });
  EXPECT_EQ(2u, full.GetSize());
  EXPECT_EQ(2u, full.GetCapacity());
  full.AddElement(extra);
  EXPECT_EQ(3, ValueAt(full, 2));
}

}  // namespace
