/// \file
/// CSemaphoreImpl: what CSemaphore needs from the host. Each host supplies an
/// unnamed (process-local) and a named (system-wide) implementation and the
/// two factories below, in its own folder.
#ifndef VESK_BASE_INTERNAL_SEMAPHOREIMPL_H
#define VESK_BASE_INTERNAL_SEMAPHOREIMPL_H

#include "vesk/base/Base.h"

namespace vesk {
namespace base {

/// One host semaphore, owned by one CSemaphore.
class CSemaphoreImpl : public CBase {
 public:
  virtual ~CSemaphoreImpl() {}
  virtual bool IsNamed() const = 0;
  virtual bool IsShared() const = 0;
  /// Takes one count, waiting as long as it takes; a system failure throws
  /// CSynchronizationException "Failed to acquire the semaphore.".
  virtual void Acquire() = 0;
  /// Takes one count within timeout milliseconds (0xFFFFFFFF: no limit);
  /// false when the time ran out, failures as Acquire.
  virtual bool TryAcquire(unsigned int timeout) = 0;
  /// Adds one count; passing the maximum throws CSynchronizationException
  /// "Failed to release the semaphore.".
  virtual void Release() = 0;

  /// A process-local semaphore. Throws CIllegalArgumentException "Invalid
  /// initial count." when initialCount exceeds maxCount, CMemoryException
  /// when the system cannot make it.
  static CSemaphoreImpl* Create(unsigned int initialCount, unsigned int maxCount);
  /// Opens the system-wide semaphore of that name, creating it with
  /// initialCount (and the largest maximum) when it does not exist. Throws
  /// CIllegalArgumentException "Invalid semaphore name." for a null or empty
  /// name, CMemoryException when the system cannot open it.
  static CSemaphoreImpl* CreateNamed(const char* name, unsigned int initialCount);

 protected:
  CSemaphoreImpl() {}

 private:
  CSemaphoreImpl(const CSemaphoreImpl&);
  CSemaphoreImpl& operator=(const CSemaphoreImpl&);
};

}  // namespace base
}  // namespace vesk

#endif
