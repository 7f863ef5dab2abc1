#include "vesk/base/win/internal/WinSyncObjectImpl.h"

#include <new>

#include "vesk/platform/Memory.h"
#include "vesk/platform/Utf16.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace base {
namespace win {

static_assert(kWaitObject0 == WAIT_OBJECT_0 && kWaitAbandoned0 == WAIT_ABANDONED_0 &&
                  kWaitTimeout == WAIT_TIMEOUT && kWaitFailed == WAIT_FAILED &&
                  kWaitInfinite == INFINITE && kMaxWaitObjects == MAXIMUM_WAIT_OBJECTS,
              "the wait results are the system's");

CSyncObjectImpl* CSyncObjectImpl::NewMutex(const char* name, bool initiallyOwned) noexcept {
  return host::CWinSyncObjectImpl::Open(name, true, initiallyOwned, false);
}

CSyncObjectImpl* CSyncObjectImpl::NewEvent(const char* name, bool initiallySignalled,
                                           bool manualReset) noexcept {
  return host::CWinSyncObjectImpl::Open(name, false, initiallySignalled, manualReset);
}

// The system's waits give the library's results as they stand: a handle that
// is no waitable object fails, and so does one object twice in a wait for
// all.
unsigned int CSyncObjectImpl::WaitOne(void* handle, unsigned int timeout) noexcept {
  if (!handle) return kWaitFailed;
  return WaitForSingleObject(handle, timeout);
}

unsigned int CSyncObjectImpl::WaitMany(unsigned int count, void* const* handles, bool waitAll,
                                       unsigned int timeout) noexcept {
  if (count == 0 || count > kMaxWaitObjects || !handles) return kWaitFailed;
  // Windows refuses one handle twice in a wait for all; Wine does not, so
  // the refusal is kept here for every Windows host alike.
  if (waitAll) {
    for (unsigned int i = 1; i < count; ++i) {
      for (unsigned int j = 0; j < i; ++j) {
        if (handles[i] == handles[j]) return kWaitFailed;
      }
    }
  }
  return WaitForMultipleObjects(count, handles, waitAll ? TRUE : FALSE, timeout);
}

namespace host {

// A named object's name is narrow text (the ANSI code page) and reaches the
// system as UTF-16; a mutex name that belongs to an event (or the reverse)
// is refused by the system, and so is a name beyond MAX_PATH characters,
// which is checked here because Wine accepts it.
CWinSyncObjectImpl* CWinSyncObjectImpl::Open(const char* name, bool isMutex, bool initially,
                                             bool manualReset) noexcept {
  wchar_t* wide = nullptr;
  if (name && *name) {
    std::size_t units = platform::NarrowToUtf16(name, -1, nullptr, 0);
    if (units > MAX_PATH) return nullptr;
    wide = static_cast<wchar_t*>(platform::Alloc((units + 1) * sizeof(wchar_t)));
    if (!wide) return nullptr;
    platform::NarrowToUtf16(name, -1, reinterpret_cast<unsigned short*>(wide), units);
    wide[units] = L'\0';
  }
  void* memory = platform::Alloc(sizeof(CWinSyncObjectImpl));
  HANDLE handle = nullptr;
  if (memory) {
    handle = isMutex ? CreateMutexW(nullptr, initially ? TRUE : FALSE, wide)
                     : CreateEventW(nullptr, manualReset ? TRUE : FALSE, initially ? TRUE : FALSE,
                                    wide);
  }
  platform::Free(wide);
  if (!handle) {
    platform::Free(memory);
    return nullptr;
  }
  return new (memory) CWinSyncObjectImpl(handle, isMutex);
}

CWinSyncObjectImpl::~CWinSyncObjectImpl() { CloseHandle(m_handle); }

bool CWinSyncObjectImpl::ReleaseMutex() noexcept {
  return m_isMutex && ::ReleaseMutex(m_handle) != FALSE;
}

bool CWinSyncObjectImpl::SetEvent() noexcept { return !m_isMutex && ::SetEvent(m_handle) != FALSE; }

bool CWinSyncObjectImpl::ResetEvent() noexcept {
  return !m_isMutex && ::ResetEvent(m_handle) != FALSE;
}

}  // namespace host
}  // namespace win
}  // namespace base
}  // namespace vesk
