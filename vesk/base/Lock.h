/// \file
/// CLock: the library's ordinary lock, a critical section owned by the
/// object.
#ifndef VESK_BASE_LOCK_H
#define VESK_BASE_LOCK_H

#include "vesk/base/Base.h"
#include "vesk/base/ILockable_.h"
#include "vesk/base/NonCopyable.h"

namespace vesk {
namespace platform {
struct CriticalSection;
}
namespace base {

/// A lock that the owning thread may acquire again (each Acquire needs its
/// Release). Any threads may share one.
class VESK_API CLock : public CBase, public ILockable_, public CNonCopyable {
 public:
  /// Creates the section. Throws CMemoryException when its block cannot be
  /// allocated, CSynchronizationException "Failed to create critical
  /// section." when the system refuses it.
  CLock();
  /// Deletes the critical section.
  ~CLock() override;

  /// Blocks until held; a system failure throws CSynchronizationException
  /// "Failed to enter critical section.".
  void Acquire() override;
  /// One attempt, never a wait: false at once when another thread holds the
  /// lock, whatever the timeout.
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;

 private:
  platform::CriticalSection* m_section;
};

}  // namespace base
}  // namespace vesk

#endif
