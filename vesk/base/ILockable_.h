/// \file
/// ILockable_: the lock contract shared by CLock, CReentrantLock, CLazyLock
/// and CSemaphore.
#ifndef VESK_BASE_ILOCKABLE__H
#define VESK_BASE_ILOCKABLE__H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// Something a thread can hold: acquire it, try to acquire it, release it.
class VESK_API ILockable_ {
 public:
  /// Virtual: implementations may be deleted through the interface.
  virtual ~ILockable_() {}
  /// Blocks until the calling thread holds the object.
  virtual void Acquire() = 0;
  /// True when the calling thread holds the object within timeout
  /// milliseconds (0xFFFFFFFF: no limit). Implementations may try only once.
  virtual bool TryAcquire(unsigned int timeout) = 0;
  /// Gives up one hold of the calling thread.
  virtual void Release() = 0;

  /// Assigns nothing: the interface has no data.
  ILockable_& operator=(const ILockable_&) { return *this; }

 protected:
  /// Only implementations are built.
  ILockable_() {}
  /// Copies nothing: the interface has no data.
  ILockable_(const ILockable_&) {}
};

}  // namespace base
}  // namespace vesk

#endif
