/// \file
/// CPosixThreadImpl: a thread of the POSIX host.
#ifndef VESK_BASE_POSIX_POSIXTHREADIMPL_H
#define VESK_BASE_POSIX_POSIXTHREADIMPL_H

#include "vesk/base/internal/ThreadImpl.h"

namespace vesk {
namespace base {
namespace posix {

/// The threads are detached: their end is kept in a record shared by the
/// implementation and the running thread, so a thread can be joined any
/// number of times, by any number of threads, with or without a time-out.
class CPosixThreadImpl : public CThreadImpl {
 public:
  struct Run;

  CPosixThreadImpl();
  ~CPosixThreadImpl() override;

  int GetPriority() override;
  void SetPriority(int priority) override;
  bool IsAlive() override;
  void Start(CThread* thread) override;
  bool Join(unsigned int timeout) override;
  void Join() override;
  void Destroy() override;
  [[noreturn]] void Exit(unsigned int code) override;

 private:
  Run* m_run;  // the newest thread's record; null until started
  int m_priority;
};

}  // namespace posix
}  // namespace base
}  // namespace vesk

#endif
