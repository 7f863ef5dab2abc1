/// \file
/// CPosixSemaphoreImpl: a process-local semaphore of the POSIX host.
#ifndef VESK_BASE_POSIX_POSIXSEMAPHOREIMPL_H
#define VESK_BASE_POSIX_POSIXSEMAPHOREIMPL_H

#include "vesk/base/internal/SemaphoreImpl.h"
#include "vesk/platform/Semaphore.h"

namespace vesk {
namespace base {
namespace posix {

/// A count with an enforced maximum, on the platform semaphore.
class CPosixSemaphoreImpl : public CSemaphoreImpl {
 public:
  CPosixSemaphoreImpl(unsigned int initialCount, unsigned int maxCount);
  ~CPosixSemaphoreImpl() override;

  bool IsNamed() const override { return false; }
  bool IsShared() const override { return false; }
  void Acquire() override;
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;

 private:
  platform::Semaphore m_semaphore;
};

}  // namespace posix
}  // namespace base
}  // namespace vesk

#endif
