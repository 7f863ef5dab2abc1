#include "vesk/base/posix/PosixThreadLocalImpl.h"

#include <errno.h>

#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

CThreadLocalImpl* CThreadLocalImpl::Create() { return new posix::CPosixThreadLocalImpl; }

namespace posix {

namespace {
const char* const kSource = "vesk/base/win/WinThreadLocalImpl";
}

void CPosixThreadLocalImpl::Allocate() {
  int error = pthread_key_create(&m_key, nullptr);
  if (error != 0) {
    VESK_THROW(kSource, win::CWinSystemErrorException, "There is no available free TLS slot.", error);
  }
  m_allocated = true;
}

// pthread_getspecific cannot fail on a key that exists; a slot never
// allocated reads as empty.
void* CPosixThreadLocalImpl::GetValue() { return m_allocated ? pthread_getspecific(m_key) : nullptr; }

void CPosixThreadLocalImpl::SetValue(void* value) {
  int error = m_allocated ? pthread_setspecific(m_key, value) : EINVAL;
  if (error != 0) {
    VESK_THROW(kSource, win::CWinSystemErrorException, "Failed to set the value of the TLS slot.", error);
  }
}

}  // namespace posix
}  // namespace base
}  // namespace vesk
