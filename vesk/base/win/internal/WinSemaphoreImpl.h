/// \file
/// CWinSemaphoreImpl: a kernel semaphore of the Windows host, process-local
/// or (CWinNamedSemaphoreImpl) shared by name.
#ifndef VESK_BASE_WIN_INTERNAL_WINSEMAPHOREIMPL_H
#define VESK_BASE_WIN_INTERNAL_WINSEMAPHOREIMPL_H

#include "vesk/base/internal/SemaphoreImpl.h"

namespace vesk {
namespace base {
namespace win {

/// A semaphore handle; the system enforces the maximum count.
class CWinSemaphoreImpl : public CSemaphoreImpl {
 public:
  CWinSemaphoreImpl(unsigned int initialCount, unsigned int maxCount);
  ~CWinSemaphoreImpl() override;

  bool IsNamed() const override { return false; }
  bool IsShared() const override { return false; }
  void Acquire() override;
  bool TryAcquire(unsigned int timeout) override;
  void Release() override;

 protected:
  /// Takes over an open handle (a HANDLE).
  explicit CWinSemaphoreImpl(void* handle) : m_handle(handle) {}

 private:
  void* m_handle;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
