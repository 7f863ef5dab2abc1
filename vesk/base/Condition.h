/// \file
/// CCondition: a condition variable bound to any ILockable_.
#ifndef VESK_BASE_CONDITION_H
#define VESK_BASE_CONDITION_H

#include "vesk/base/Base.h"
#include "vesk/base/ILockable_.h"
#include "vesk/base/IWaitable.h"

namespace vesk {
namespace base {

/// Threads wait on the condition until another thread notifies it. The
/// caller holds the bound lock around Wait, Notify and NotifyAll; Wait gives
/// it up while sleeping and holds it again on return. A notify that finds no
/// waiter is lost. The condition must not outlive its lock.
class VESK_API CCondition : public CBase, public IWaitable {
 public:
  /// Binds the condition to lock. Throws CMemoryException when its record or
  /// semaphores cannot be had, CSynchronizationException "Failed to create
  /// critical section." when the system refuses its section.
  explicit CCondition(ILockable_& lock);
  /// Frees the condition's semaphores and section; the lock stays the
  /// caller's.
  ~CCondition() override;

  /// Waits at most timeout milliseconds (0xFFFFFFFF: no limit): true when
  /// notified, false when the time ran out.
  bool Wait(unsigned int timeout) override;
  /// Waits until notified.
  void Wait() override;
  /// Wakes one waiting thread, if any.
  void Notify();
  /// Wakes every thread waiting now; threads that start waiting later are
  /// not woken by this call.
  void NotifyAll();

 private:
  struct Record;

  CCondition(const CCondition&);
  CCondition& operator=(const CCondition&);
  bool WaitFor(unsigned int timeout);
  void LeaveWait();
  void Signal(bool all);

  Record* m_record;
};

}  // namespace base
}  // namespace vesk

#endif
