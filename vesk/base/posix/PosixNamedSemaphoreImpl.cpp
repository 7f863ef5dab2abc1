#include "vesk/base/posix/PosixNamedSemaphoreImpl.h"

#include <errno.h>
#include <fcntl.h>
#include <limits.h>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Semaphore.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/posix/Deadline.h"

namespace vesk {
namespace base {

CSemaphoreImpl* CSemaphoreImpl::CreateNamed(const char* name, unsigned int initialCount) {
  return new posix::CPosixNamedSemaphoreImpl(name, initialCount);
}

namespace posix {

namespace {
const char* const kSource = "vesk/base/win/WinNamedSemaphoreImpl";
// Waits, posts and their failures report as the unnamed semaphore does.
const char* const kWaitSource = "vesk/base/win/WinSemaphoreImpl";
// glibc keeps a named semaphore as the file "sem." + name in its shm folder.
const unsigned int kLongestName = NAME_MAX - 4;

// Writes the host name of the semaphore called name into buffer: a '/'
// followed by the name, with '%' and '/' written as %25 and %2F so that
// distinct names stay distinct. False when it does not fit size bytes (with
// its terminating NUL) or the host allows no name that long.
bool HostName(const char* name, char* buffer, unsigned int size) {
  unsigned int length = 0;
  auto put = [&](char c) {
    if (length + 1 >= size) return false;
    buffer[length++] = c;
    return true;
  };
  if (!put('/')) return false;
  for (const char* p = name; *p; ++p) {
    bool fits = true;
    if (*p == '/') {
      fits = put('%') && put('2') && put('F');
    } else if (*p == '%') {
      fits = put('%') && put('2') && put('5');
    } else {
      fits = put(*p);
    }
    if (!fits) return false;
  }
  buffer[length] = '\0';
  return length - 1 <= kLongestName;
}

}  // namespace

// The name is used as it stands, in the host's narrow encoding (UTF-8): POSIX
// names are bytes, so no conversion to 16-bit text is needed. A named
// semaphore outlives its last holder on this host until it is unlinked.
CPosixNamedSemaphoreImpl::CPosixNamedSemaphoreImpl(const char* name, unsigned int initialCount)
    : m_semaphore(SEM_FAILED) {
  if (!name || !*name) VESK_THROW(kSource, CIllegalArgumentException, "Invalid semaphore name.");
  char hostName[NAME_MAX + 2];
  if (!HostName(name, hostName, sizeof(hostName))) VESK_THROW(kSource, CMemoryException);
  m_semaphore = sem_open(hostName, O_CREAT, 0600, initialCount);
  if (m_semaphore == SEM_FAILED) VESK_THROW(kSource, CMemoryException);
}

CPosixNamedSemaphoreImpl::~CPosixNamedSemaphoreImpl() { sem_close(m_semaphore); }

void CPosixNamedSemaphoreImpl::Acquire() {
  while (sem_wait(m_semaphore) != 0) {
    if (errno != EINTR) {
      VESK_THROW(kWaitSource, CSynchronizationException, "Failed to acquire the semaphore.");
    }
  }
}

bool CPosixNamedSemaphoreImpl::TryAcquire(unsigned int timeout) {
  if (timeout == platform::kWaitInfinite) {
    Acquire();
    return true;
  }
  timespec deadline = platform::MonotonicDeadline(timeout);
  for (;;) {
    int result = timeout == 0 ? sem_trywait(m_semaphore)
                              : sem_clockwait(m_semaphore, CLOCK_MONOTONIC, &deadline);
    if (result == 0) return true;
    if (errno == EAGAIN || errno == ETIMEDOUT) return false;
    if (errno != EINTR) {
      VESK_THROW(kWaitSource, CSynchronizationException, "Failed to acquire the semaphore.");
    }
  }
}

// sem_post refuses (EOVERFLOW) a count beyond the host's maximum, 0x7FFFFFFF.
void CPosixNamedSemaphoreImpl::Release() {
  if (sem_post(m_semaphore) != 0) {
    VESK_THROW(kWaitSource, CSynchronizationException, "Failed to release the semaphore.");
  }
}

}  // namespace posix
}  // namespace base
}  // namespace vesk
