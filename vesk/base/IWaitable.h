/// \file
/// IWaitable: the contract of things a thread can wait on.
#ifndef VESK_BASE_IWAITABLE_H
#define VESK_BASE_IWAITABLE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// A wait that another thread ends.
class VESK_API IWaitable {
 public:
  /// Virtual: implementations may be deleted through the interface.
  virtual ~IWaitable() {}
  /// Waits at most timeout milliseconds (0xFFFFFFFF: no limit); true when
  /// woken, false when the time ran out.
  virtual bool Wait(unsigned int timeout) = 0;
  /// Waits until woken.
  virtual void Wait() = 0;

  /// Assigns nothing: the interface has no data.
  IWaitable& operator=(const IWaitable&) { return *this; }

 protected:
  /// Only implementations are built.
  IWaitable() {}
  /// Copies nothing: the interface has no data.
  IWaitable(const IWaitable&) {}
};

}  // namespace base
}  // namespace vesk

#endif
