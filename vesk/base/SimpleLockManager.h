/// \file
/// CSimpleLockManager: the lock count of a movable memory handle.
#ifndef VESK_BASE_SIMPLELOCKMANAGER_H
#define VESK_BASE_SIMPLELOCKMANAGER_H

#include "vesk/base/Base.h"
#include "vesk/base/ILockable.h"

namespace vesk {
namespace base {

/// Counts Lock and Unlock calls for a handle (a pointer to the current
/// address of a movable block); it locks nothing itself. Not thread-safe.
class VESK_API CSimpleLockManager : public CBase, public ILockable {
 public:
  /// No handle; count 0.
  CSimpleLockManager();
  /// Manages handle (may be null); count 0.
  explicit CSimpleLockManager(char** const& handle);
  /// Nothing to release: the handle stays the caller's.
  ~CSimpleLockManager() override;

  /// Adds one to the count and returns it.
  unsigned int Lock() const override;
  /// Takes one from the count unless it is 0, and returns it.
  unsigned int Unlock() const override;

  /// The managed handle, null when none.
  char** GetManagedHandle() const { return m_handle; }
  /// Manages handle instead; when it differs from the current one the count
  /// starts again at 0.
  void SetManagedHandle(char** const& handle);
  /// Returns the handle and forgets it; the count is kept.
  char** DetachManagedHandle();

 private:
  char** m_handle;
  mutable unsigned int m_lockCount;
};

}  // namespace base
}  // namespace vesk

#endif
