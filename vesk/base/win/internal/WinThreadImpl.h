/// \file
/// CWinThreadImpl: a thread of the Windows host.
#ifndef VESK_BASE_WIN_INTERNAL_WINTHREADIMPL_H
#define VESK_BASE_WIN_INTERNAL_WINTHREADIMPL_H

#include "vesk/base/internal/ThreadImpl.h"

namespace vesk {
namespace base {
namespace win {

/// A thread started with _beginthreadex. Its handle is never closed: the
/// kernel object, and with it the thread's end, can be waited for any
/// number of times until the process ends.
class CWinThreadImpl : public CThreadImpl {
 public:
  CWinThreadImpl() : m_id(0), m_handle(nullptr), m_priority(0) {}

  int GetPriority() override;
  void SetPriority(int priority) override;
  bool IsAlive() override;
  void Start(CThread* thread) override;
  bool Join(unsigned int timeout) override;
  void Join() override;
  void Destroy() override;
  [[noreturn]] void Exit(unsigned int code) override;

 private:
  unsigned int m_id;
  void* m_handle;  // a HANDLE; null until started
  int m_priority;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
