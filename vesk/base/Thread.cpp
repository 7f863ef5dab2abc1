#include "vesk/base/Thread.h"

#include <cxxabi.h>

#include "vesk/base/Exception.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/base/System.h"
#include "vesk/base/internal/ThreadImpl.h"
#include "vesk/platform/DebugSink.h"

namespace vesk {
namespace base {

namespace internal {

namespace {

// The process-wide current-thread slot: made while the library loads and
// dropped when it unloads. A slot that cannot be made leaves the library
// loaded, reports why and answers null from GetCurrentThread.
struct CCurrentThreadSlot {
  CThreadLocalImpl* slot = nullptr;
  CCurrentThreadSlot() {
    try {
      CThreadLocalImpl* made = CThreadLocalImpl::Create();
      try {
        made->Allocate();
        made->SetValue(nullptr);
      } catch (...) {
        delete made;
        throw;
      }
      slot = made;
    } catch (const CException& e) {
      platform::DebugPrintf("vesk: no current-thread slot: %s\n",
                            e.GetErrorDescription() ? e.GetErrorDescription() : "no memory");
    }
  }
  ~CCurrentThreadSlot() {
    CThreadLocalImpl* dying = slot;
    slot = nullptr;
    delete dying;
  }
};
CCurrentThreadSlot g_currentThread;

void Report(const CException& e) {
  try {
    e.Print(CSystem::debugOut);
  } catch (...) {
    // A closed debug stream leaves nothing to report to.
  }
}

}  // namespace

CThreadLocalImpl* CurrentThreadSlot() noexcept { return g_currentThread.slot; }

// Nothing leaves a thread body but the forced unwinding of a cancelled or
// exiting thread, which must pass on to the host. That unwinding carries no
// C++ object, so its handlers bind a null reference (never used): the
// null-reference check of the undefined-behaviour sanitizer is off here.
__attribute__((no_sanitize("null"))) void RunThreadBody(CThread* thread) {
  if (!thread) return;
  bool run = true;
  try {
    if (CThreadLocalImpl* slot = CurrentThreadSlot()) slot->SetValue(thread);
  } catch (const CException& e) {
    Report(e);
    run = false;
  } catch (abi::__forced_unwind&) {
    throw;
  } catch (...) {
    run = false;
  }
  if (run) {
    try {
      thread->Run();
    } catch (const CException& e) {
      Report(e);
    } catch (abi::__forced_unwind&) {
      throw;
    } catch (...) {
    }
  }
  if (thread->m_autoDeleted) {
    try {
      delete thread;
    } catch (abi::__forced_unwind&) {
      throw;
    } catch (...) {
    }
  }
}

}  // namespace internal

CThread::CThread()
    : m_implRef(CThreadImpl::Create()),
      m_impl(m_implRef.Get()),
      m_condition(m_lock),
      m_stopped(false),
      m_autoDeleted(false) {}

CThread::~CThread() {}

void CThread::Start() { m_impl->Start(this); }

bool CThread::Join(unsigned int timeout) { return m_impl->Join(timeout); }

void CThread::Join() { m_impl->Join(); }

void CThread::Stop() {
  m_lock.Acquire();
  m_stopped = true;
  try {
    m_condition.Notify();
  } catch (...) {
    m_lock.Release();
    throw;
  }
  try {
    m_lock.Release();
  } catch (const CSynchronizationException&) {
  }
}

// A thread sleeping in Wait is woken so that it reaches the cancellation
// point at the end of Wait.
void CThread::Destroy() {
  m_impl->Destroy();
  m_lock.Acquire();
  try {
    m_condition.NotifyAll();
  } catch (...) {
    m_lock.Release();
    throw;
  }
  m_lock.Release();
}

int CThread::GetPriority() const { return m_impl->GetPriority(); }

void CThread::SetPriority(int priority) { m_impl->SetPriority(priority); }

bool CThread::IsAlive() const { return m_impl->IsAlive(); }

CThread* CThread::GetCurrentThread() {
  CThreadLocalImpl* slot = internal::CurrentThreadSlot();
  return slot ? static_cast<CThread*>(slot->GetValue()) : nullptr;
}

bool CThread::IsStopped() {
  m_lock.Acquire();
  bool stopped = m_stopped;
  m_lock.Release();
  return stopped;
}

bool CThread::Wait(unsigned int timeout) {
  m_lock.Acquire();
  bool woken;
  try {
    woken = m_condition.Wait(timeout);
  } catch (...) {
    m_lock.Release();
    throw;
  }
  m_lock.Release();
  CThreadImpl::HonourDestroy();
  return woken;
}

void CThread::Exit(unsigned int code) {
  m_impl->Exit(code);
  __builtin_unreachable();
}

}  // namespace base
}  // namespace vesk
