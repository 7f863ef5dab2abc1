// Helpers shared by the collection tests.
#ifndef VESK_TESTS_UTIL_TESTOBJECTS_H
#define VESK_TESTS_UTIL_TESTOBJECTS_H

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/Object.h"
#include "vesk/platform/Memory.h"

namespace vesk_test {

// A cloneable value object that counts its live instances. Equal values are
// equal objects; a clone can be made to fail.
class CNumber : public vesk::base::CObject {
 public:
  explicit CNumber(int value) : m_value(value) { ++s_live; }
  CNumber(const CNumber& other) : CObject(other), m_value(other.m_value) { ++s_live; }
  ~CNumber() override { --s_live; }

  bool Equals(const vesk::base::CObject* other) const override {
    const CNumber* number = dynamic_cast<const CNumber*>(other);
    return number && number->m_value == m_value;
  }
  vesk::base::CObject* Clone() const override {
    if (s_clonesBeforeFailure == 0) throw vesk::base::CMemoryException("test", 0);
    if (s_clonesBeforeFailure > 0) --s_clonesBeforeFailure;
    return VESK_NEW CNumber(*this);
  }
  int GetValue() const { return m_value; }

  static int s_live;
  // -1: clones never fail; n >= 0: the clone after n more clones fails.
  static int s_clonesBeforeFailure;

 private:
  int m_value;
};

// The allocation-failure sweep of the string tests (TestSupport.h), after a
// first run that lets shared pools reach their working size.
template <class Body>
int RunWithEveryAllocationFailing(Body body) {
  body();
  return vesk::testing::FailEachAllocationInTurn(body);
}

}  // namespace vesk_test

#endif
