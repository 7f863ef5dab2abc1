#include <cstdint>

#include <gtest/gtest.h>

#include "vesk/base/Atomic.h"
#include "vesk/base/Exception.h"
#include "vesk/base/Object.h"
#include "vesk/base/TimeoutException.h"

using namespace vesk::base;

namespace {

class CPlain : public CObject {
 public:
  CPlain() {}
};

}  // namespace

TEST(ObjectTest, DefaultsAreIdentityNoCloneAndAddressHash) {
  CPlain a, b;
  EXPECT_TRUE(a.Equals(&a));
  EXPECT_FALSE(a.Equals(&b));
  EXPECT_FALSE(a.Equals(nullptr));
  EXPECT_EQ(nullptr, a.Clone());
  std::uint64_t address = reinterpret_cast<std::uintptr_t>(&a);
  EXPECT_EQ(static_cast<int>(static_cast<std::uint32_t>((address >> 32) + address)),
            a.GetHashCode());
  EXPECT_NE(a.GetHashCode(), b.GetHashCode());
}

// Chains through the exception tree: ExceptionTest.
TEST(ObjectTest, PlainObjectIsAnInstanceOfObjectOnly) {
  CPlain a;  // no descriptor of its own: reports CObject's
  EXPECT_EQ(&CObject::m_classCObject, a.GetClass());
  EXPECT_TRUE(a.IsInstanceOf(&CObject::m_classCObject));
  EXPECT_FALSE(a.IsInstanceOf(&CException::m_classCException));
  EXPECT_FALSE(a.IsInstanceOf(nullptr));
  EXPECT_FALSE(CException("here", 1).IsInstanceOf(&CTimeoutException::m_classCTimeoutException));
}

TEST(ObjectTest, AtomicsReturnNewValueAndFoundValue) {
  volatile int v = 5;
  EXPECT_EQ(6, AtomicIncrement(&v));
  EXPECT_EQ(5, AtomicDecrement(&v));
  EXPECT_EQ(5, AtomicCompareAndSwap(&v, 9, 5));  // swapped: returns what it found
  EXPECT_EQ(9, v);
  EXPECT_EQ(9, AtomicCompareAndSwap(&v, 1, 5));  // no swap
  EXPECT_EQ(9, v);
}
