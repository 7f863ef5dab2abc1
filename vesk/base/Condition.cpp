#include "vesk/base/Condition.h"

#include <new>

#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/CriticalSection.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Semaphore.h"
#include "vesk/platform/Throw.h"

// The condition keeps three counters under its unblock section: blocked
// (threads past the gate that may sleep), gone (threads that gave up by
// timeout and are not yet subtracted from blocked) and to-unblock (threads a
// notify released that have not left yet). The gate semaphore lets waiters in
// one at a time and stays closed while a notify is in progress, so a thread
// that starts waiting during it is not woken by it; the queue semaphore is
// where the waiters sleep.

namespace vesk {
namespace base {

struct CCondition::Record {
  unsigned int blocked;
  unsigned int gone;
  unsigned int toUnblock;
  platform::Semaphore queue;
  platform::Semaphore gate;
  platform::CriticalSection unblock;
  ILockable_* lock;
};

namespace {

const char* const kSource = "vesk/base/ConditionImplWin";
const char* const kAcquireGate = "Failed to acquire the underlying gate semaphore.";
const char* const kReleaseGate = "Failed to release the underlying gate semaphore.";
const char* const kAcquireQueue = "Failed to acquire the underlying queue semaphore.";
const char* const kReleaseQueue = "Failed to release the underlying queue semaphore.";
const char* const kReleaseLock = "Failed to release the specified lock.";
// When this many timed-out waiters pile up they are folded into blocked, so
// neither counter overflows.
const unsigned int kFoldGone = 0x3FFFFFFF;

// Holds the unblock section for a scope, also when an exception passes.
class SectionGuard {
 public:
  explicit SectionGuard(platform::CriticalSection* section) : m_section(section) {
    if (!platform::SectionEnter(section)) {
      VESK_THROW(kSource, CSynchronizationException, "Failed to enter critical section.");
    }
  }
  ~SectionGuard() { platform::SectionLeave(m_section); }

 private:
  SectionGuard(const SectionGuard&);
  SectionGuard& operator=(const SectionGuard&);
  platform::CriticalSection* m_section;
};

void AcquireGate(platform::Semaphore* gate) {
  if (platform::SemaphoreWait(gate, platform::kWaitInfinite) != platform::kWaitSignalled) {
    VESK_THROW(kSource, CSynchronizationException, kAcquireGate);
  }
}

void ReleaseGate(platform::Semaphore* gate) {
  if (!platform::SemaphoreRelease(gate, 1)) {
    VESK_THROW(kSource, CSynchronizationException, kReleaseGate);
  }
}

}  // namespace

CCondition::CCondition(ILockable_& lock) : m_record(nullptr) {
  void* block = platform::Alloc(sizeof(Record));
  if (!block) VESK_THROW("vesk/base/Base", CMemoryException);
  Record* record = new (block) Record;
  record->blocked = 0;
  record->gone = 0;
  record->toUnblock = 0;
  if (!platform::SectionInit(&record->unblock)) {
    platform::Free(block);
    VESK_THROW(kSource, CSynchronizationException, "Failed to create critical section.");
  }
  record->lock = &lock;
  if (!platform::SemaphoreInit(&record->queue, 0, platform::kMaxSemaphoreCount)) {
    platform::SectionDelete(&record->unblock);
    platform::Free(block);
    VESK_THROW(kSource, CMemoryException);
  }
  if (!platform::SemaphoreInit(&record->gate, 1, 1)) {
    platform::SemaphoreDelete(&record->queue);
    platform::SectionDelete(&record->unblock);
    platform::Free(block);
    VESK_THROW(kSource, CMemoryException);
  }
  m_record = record;
}

CCondition::~CCondition() {
  platform::SemaphoreDelete(&m_record->queue);
  platform::SemaphoreDelete(&m_record->gate);
  platform::SectionDelete(&m_record->unblock);
  platform::Free(m_record);
}

bool CCondition::Wait(unsigned int timeout) { return WaitFor(timeout); }

void CCondition::Wait() { WaitFor(platform::kWaitInfinite); }

void CCondition::Notify() { Signal(false); }

void CCondition::NotifyAll() { Signal(true); }

bool CCondition::WaitFor(unsigned int timeout) {
  Record* record = m_record;
  // The caller holds its lock here, which keeps blocked from racing with a
  // notify's reading of it.
  AcquireGate(&record->gate);
  ++record->blocked;
  ReleaseGate(&record->gate);

  try {
    record->lock->Release();
  } catch (const CException& e) {
    LeaveWait();
    throw CSynchronizationException(kSource, __LINE__, kReleaseLock, e.GetMessage());
  }

  platform::WaitResult result = platform::SemaphoreWait(&record->queue, timeout);
  if (result == platform::kWaitFailed) {
    LeaveWait();
    VESK_THROW(kSource, CSynchronizationException, kAcquireQueue);
  }
  LeaveWait();
  return result == platform::kWaitSignalled;
}

void CCondition::LeaveWait() {
  Record* record = m_record;
  unsigned int signalsWereLeft;
  {
    SectionGuard guard(&record->unblock);
    signalsWereLeft = record->toUnblock;
    if (signalsWereLeft != 0) {
      --record->toUnblock;
    } else if (++record->gone == kFoldGone) {
      AcquireGate(&record->gate);
      record->blocked -= record->gone;
      ReleaseGate(&record->gate);
      record->gone = 0;
    }
  }
  // The last released waiter opens the gate for the next notify or wait.
  if (signalsWereLeft == 1) ReleaseGate(&record->gate);
  record->lock->Acquire();
}

void CCondition::Signal(bool all) {
  Record* record = m_record;
  unsigned int signals = 0;
  {
    SectionGuard guard(&record->unblock);
    if (record->toUnblock != 0) {
      // A notify is in progress (the gate is closed): add to it.
      if (record->blocked != 0) {
        signals = all ? record->blocked : 1;
        record->toUnblock += signals;
        record->blocked -= signals;
      }
    } else if (record->blocked > record->gone) {
      // Close the gate until the released waiters have left.
      AcquireGate(&record->gate);
      if (record->gone != 0) {
        record->blocked -= record->gone;
        record->gone = 0;
      }
      signals = all ? record->blocked : 1;
      record->toUnblock = signals;
      record->blocked -= signals;
    }
  }
  if (signals != 0 && !platform::SemaphoreRelease(&record->queue, signals)) {
    VESK_THROW(kSource, CSynchronizationException, kReleaseQueue);
  }
}

}  // namespace base
}  // namespace vesk
