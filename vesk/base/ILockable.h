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
  virtual ~ILockable() {}
  virtual unsigned int Lock() const = 0;
  virtual unsigned int Unlock() const = 0;

  ILockable& operator=(const ILockable&) { return *this; }

 protected:
  ILockable() {}
  ILockable(const ILockable&) {}
};

}  // namespace base
}  // namespace vesk

#endif
