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

  /// Writes the host name of the semaphore called name into buffer: a '/'
  /// followed by the name, with '%' and '/' written as %25 and %2F. False
  /// when it does not fit size bytes (with its terminating NUL) or the host
  /// allows no name that long.
  static bool HostName(const char* name, char* buffer, unsigned int size);

 private:
  sem_t* m_semaphore;
};

}  // namespace posix
}  // namespace base
}  // namespace vesk

#endif
