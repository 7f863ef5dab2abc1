/// \file
/// CWinNamedSemaphoreImpl: a system-wide semaphore of the Windows host,
/// shared by name between processes.
#ifndef VESK_BASE_WIN_INTERNAL_WINNAMEDSEMAPHOREIMPL_H
#define VESK_BASE_WIN_INTERNAL_WINNAMEDSEMAPHOREIMPL_H

#include "vesk/base/win/internal/WinSemaphoreImpl.h"

namespace vesk {
namespace base {
namespace win {

/// A named kernel semaphore with the largest maximum (0x7FFFFFFF); waits
/// and releases are those of the unnamed semaphore.
class CWinNamedSemaphoreImpl : public CWinSemaphoreImpl {
 public:
  CWinNamedSemaphoreImpl(const char* name, unsigned int initialCount);

  bool IsNamed() const override { return true; }
  bool IsShared() const override { return true; }

 private:
  static void* Open(const char* name, unsigned int initialCount);
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
