/// \file
/// CPosixNamedSemaphoreImpl: a system-wide semaphore of the POSIX host,
/// shared by name between processes.
#ifndef VESK_BASE_POSIX_POSIXNAMEDSEMAPHOREIMPL_H
#define VESK_BASE_POSIX_POSIXNAMEDSEMAPHOREIMPL_H

#include <semaphore.h>

#include "vesk/base/internal/SemaphoreImpl.h"

namespace vesk {
namespace base {
namespace posix {

/// A named POSIX semaphore; its maximum is the host's (0x7FFFFFFF).
class CPosixNamedSemaphoreImpl : public CSemaphoreImpl {
 public:
  CPosixNamedSemaphoreImpl(const char* name, unsigned int initialCount);
  ~CPosixNamedSemaphoreImpl() override;

  bool IsNamed() const override { return true; }
  bool IsShared() const override { return true; }
  void Acquire() override;
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;

 private:
  sem_t* m_semaphore;
};

}  // namespace posix
}  // namespace base
}  // namespace vesk

#endif
