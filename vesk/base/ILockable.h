/// \file
/// ILockable: the lock-count contract of objects whose memory can be locked
/// in place.
#ifndef VESK_BASE_ILOCKABLE_H
#define VESK_BASE_ILOCKABLE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// Counts locks on something; both operations return the count after the
/// change.
class VESK_API ILockable {
 public:
  /// Virtual: implementations may be deleted through the interface.
  virtual ~ILockable() {}
  /// Adds a lock; returns the count after it.
  virtual unsigned int Lock() const = 0;
  /// Removes a lock; returns the count after it.
  virtual unsigned int Unlock() const = 0;

  /// Assigns nothing: the interface has no data.
  ILockable& operator=(const ILockable&) { return *this; }

 protected:
  /// Only implementations are built.
  ILockable() {}
  /// Copies nothing: the interface has no data.
  ILockable(const ILockable&) {}
};

}  // namespace base
}  // namespace vesk

#endif
