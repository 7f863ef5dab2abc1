/// \file
/// CLazyLock: a lock that creates its critical section on first use, so
/// objects that rarely lock pay for no section until they do.
#ifndef VESK_BASE_LAZYLOCK_H
#define VESK_BASE_LAZYLOCK_H

#include <atomic>

#include "vesk/base/Base.h"
#include "vesk/base/ILockable_.h"
#include "vesk/base/NonCopyable.h"
#include "vesk/base/SpinLock.h"

namespace vesk {
namespace platform {
struct CriticalSection;
}
namespace base {

/// Behaves as CLock once created. Constructing one allocates nothing; the
/// first Acquire or TryAcquire (from any number of threads at once) creates
/// exactly one section.
class VESK_API CLazyLock : public CBase, public ILockable_, public CNonCopyable {
 public:
  /// An unlocked lock; nothing is allocated until first use.
  CLazyLock();
  /// Deletes the section, if one was created.
  ~CLazyLock() override;

  /// Creates the section when there is none yet, then blocks until held.
  /// Throws CSynchronizationException "Failed to create lock." when the
  /// section's block cannot be allocated, "Failed to create critical
  /// section." when the system refuses it and "Failed to enter critical
  /// section." when the enter fails.
  void Acquire() override;
  /// Creates the section when needed (failures as Acquire), then makes one
  /// attempt; the timeout is ignored.
  bool TryAcquire(unsigned int timeout) override;
  /// Leaves the section; does nothing before the first acquire.
  void Release() override;

 private:
  platform::CriticalSection* Create();

  CSpinLock m_creationLock;
  std::atomic<platform::CriticalSection*> m_section;
};

}  // namespace base
}  // namespace vesk

#endif
