/// \file
/// CThreadImpl and CThreadLocalImpl: what CThread needs from the host. Each
/// host supplies one implementation of each, and the factories below, in its
/// own folder.
#ifndef VESK_BASE_INTERNAL_THREADIMPL_H
#define VESK_BASE_INTERNAL_THREADIMPL_H

#include "vesk/base/Base.h"

namespace vesk {
namespace base {

class CThread;

/// One host thread, owned by one CThread (through a CRef).
class CThreadImpl : public CBase {
 public:
  virtual ~CThreadImpl() {}
  /// Not started: the requested priority; else the running thread's level.
  virtual int GetPriority() = 0;
  /// Stores the level and, once started, applies it (failure:
  /// CWinSystemErrorException "Failed to set the priority of the thread.").
  virtual void SetPriority(int priority) = 0;
  virtual bool IsAlive() = 0;
  /// Starts a thread running internal::RunThreadBody(thread); null is
  /// ignored. Starting again starts another thread.
  virtual void Start(CThread* thread) = 0;
  /// Waits at most timeout milliseconds for the thread to end; false when
  /// the time ran out.
  virtual bool Join(unsigned int timeout) = 0;
  virtual void Join() = 0;
  /// Ends the thread.
  virtual void Destroy() = 0;
  /// Ends the calling thread.
  [[noreturn]] virtual void Exit(unsigned int code) = 0;

  /// A new implementation of this host.
  static CThreadImpl* Create();
  /// Lets a Destroy requested for the calling thread take effect now.
  static void HonourDestroy();

 protected:
  CThreadImpl() {}

 private:
  CThreadImpl(const CThreadImpl&);
  CThreadImpl& operator=(const CThreadImpl&);
};

/// One host thread-local slot; its index is never freed.
class CThreadLocalImpl : public CBase {
 public:
  virtual ~CThreadLocalImpl() {}
  /// Reserves the slot (failure: CWinSystemErrorException "There is no
  /// available free TLS slot.").
  virtual void Allocate() = 0;
  virtual void* GetValue() = 0;
  virtual void SetValue(void* value) = 0;

  static CThreadLocalImpl* Create();

 protected:
  CThreadLocalImpl() {}

 private:
  CThreadLocalImpl(const CThreadLocalImpl&);
  CThreadLocalImpl& operator=(const CThreadLocalImpl&);
};

namespace internal {
/// The process-wide slot whose value is the CThread running each thread;
/// null when it could not be made at load or after unload.
CThreadLocalImpl* CurrentThreadSlot() noexcept;
}  // namespace internal

}  // namespace base
}  // namespace vesk

#endif
