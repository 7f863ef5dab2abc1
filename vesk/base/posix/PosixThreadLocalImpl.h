/// \file
/// CPosixThreadLocalImpl: a thread-local slot of the POSIX host.
#ifndef VESK_BASE_POSIX_POSIXTHREADLOCALIMPL_H
#define VESK_BASE_POSIX_POSIXTHREADLOCALIMPL_H

#include <pthread.h>

#include "vesk/base/internal/ThreadImpl.h"

namespace vesk {
namespace base {
namespace posix {

/// A pthread key. Like the slot index of other hosts, it is never freed.
class CPosixThreadLocalImpl : public CThreadLocalImpl {
 public:
  CPosixThreadLocalImpl() : m_key(), m_allocated(false) {}

  void Allocate() override;
  void* GetValue() override;
  void SetValue(void* value) override;

 private:
  pthread_key_t m_key;
  bool m_allocated;
};

}  // namespace posix
}  // namespace base
}  // namespace vesk

#endif
