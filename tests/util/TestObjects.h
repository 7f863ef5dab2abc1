// Helpers shared by the collection tests.
#ifndef VESK_TESTS_UTIL_TESTOBJECTS_H
#define VESK_TESTS_UTIL_TESTOBJECTS_H

#include <gtest/gtest.h>

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

// Runs body once for every allocation it makes, failing that allocation, and
// once more without failure (after a first run that warms up shared pools).
// body must leave nothing allocated when it ends by an exception; the loop
// checks the heap is back where it started.
template <class Body>
int RunWithEveryAllocationFailing(Body body) {
  body();  // lets shared pools reach their working size first
  int failures = 0;
  for (unsigned long n = 1;; ++n) {
    long before = vesk::platform::LiveAllocations();
    vesk::platform::FailAllocationAt(n);
    bool failed = false;
    try {
      body();
    } catch (const vesk::base::CMemoryException&) {
      failed = true;
    }
    vesk::platform::FailAllocationAt(0);
    // A run that completes may leave blocks in the string pools; a run that
    // failed must give back everything it took.
    if (!failed) return failures;
    if (vesk::platform::LiveAllocations() != before) return -1;
    ++failures;
  }
}

// Runs call and expects an E thrown at source, with description when one is
// given.
template <class E, class Call>
void ExpectThrowFrom(Call call, const char* source, const char* description = nullptr) {
  try {
    call();
    ADD_FAILURE() << "no exception from " << source;
  } catch (const E& e) {
    EXPECT_STREQ(source, e.GetSourceFile());
    if (description) EXPECT_STREQ(description, e.GetErrorDescription());
  }
}

}  // namespace vesk_test

#endif
