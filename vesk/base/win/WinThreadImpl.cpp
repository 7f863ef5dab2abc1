#include "vesk/base/win/internal/WinThreadImpl.h"

#include <process.h>

#include "vesk/base/IllegalStateException.h"
#include "vesk/base/Thread.h"
#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/win/Wait.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace base {

CThreadImpl* CThreadImpl::Create() { return new win::CWinThreadImpl; }

// TerminateThread ends a thread at once; there is no request to honour.
void CThreadImpl::HonourDestroy() {}

namespace win {

namespace {

const char* const kSource = "vesk/base/win/WinThreadImpl";
const char* const kNotStarted = "Thread hasn't been started yet.";

unsigned __stdcall Entry(void* argument) {
  internal::RunThreadBody(static_cast<CThread*>(argument));
  return 0;
}

}  // namespace

int CWinThreadImpl::GetPriority() {
  if (!m_handle) return m_priority;
  int priority = GetThreadPriority(m_handle);
  return priority == THREAD_PRIORITY_ERROR_RETURN ? m_priority : priority;
}

void CWinThreadImpl::SetPriority(int priority) {
  m_priority = priority;
  if (m_handle && !SetThreadPriority(m_handle, priority)) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to set the priority of the thread.",
               GetLastError());
  }
}

bool CWinThreadImpl::IsAlive() {
  return m_handle && WaitForSingleObject(m_handle, 0) == WAIT_TIMEOUT;
}

// The thread is created suspended and its handle, id and priority are in
// place before it runs: an auto-deleted thread may delete this object as
// soon as it runs, so nothing touches the object after it is resumed.
void CWinThreadImpl::Start(CThread* thread) {
  if (!thread) return;
  unsigned int id = 0;
  HANDLE handle = reinterpret_cast<HANDLE>(
      _beginthreadex(nullptr, 0, &Entry, thread, CREATE_SUSPENDED, &id));
  if (!handle) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to create and start the thread.",
               GetLastError());
  }
  m_id = id;
  m_handle = handle;
  DWORD error = 0;
  if (m_priority != 0 && !SetThreadPriority(handle, m_priority)) error = GetLastError();
  ResumeThread(handle);
  if (error != 0) {
    VESK_THROW(kSource, CWinSystemErrorException,
               "Failed to set the initial priority of the thread.", error);
  }
}

void CWinThreadImpl::Join() {
  if (!m_handle) VESK_THROW(kSource, CIllegalStateException, kNotStarted, nullptr);
  Join(INFINITE);
}

bool CWinThreadImpl::Join(unsigned int timeout) {
  if (!m_handle) VESK_THROW(kSource, CIllegalStateException, kNotStarted, nullptr);
  platform::WaitResult result = platform::WaitForObject(m_handle, timeout);
  if (result == platform::kWaitFailed) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to join the thread.", GetLastError());
  }
  return result == platform::kWaitSignalled;
}

void CWinThreadImpl::Destroy() {
  if (!m_handle) VESK_THROW(kSource, CIllegalStateException, kNotStarted, nullptr);
  if (!TerminateThread(m_handle, 0)) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to destroy the thread.", GetLastError());
  }
}

void CWinThreadImpl::Exit(unsigned int code) { _endthreadex(code); }

}  // namespace win
}  // namespace base
}  // namespace vesk
