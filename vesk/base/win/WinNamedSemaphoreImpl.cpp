#include "vesk/base/win/internal/WinNamedSemaphoreImpl.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/platform/Throw.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace base {

CSemaphoreImpl* CSemaphoreImpl::CreateNamed(const char* name, unsigned int initialCount) {
  return new win::CWinNamedSemaphoreImpl(name, initialCount);
}

namespace win {

namespace {
const char* const kSource = "vesk/base/win/WinNamedSemaphoreImpl";
}

CWinNamedSemaphoreImpl::CWinNamedSemaphoreImpl(const char* name, unsigned int initialCount)
    : CWinSemaphoreImpl(Open(name, initialCount)) {}

// Opens the semaphore of that name, or creates it with initialCount. The
// name is narrow text (the ANSI code page) and goes to the system as UTF-16.
void* CWinNamedSemaphoreImpl::Open(const char* name, unsigned int initialCount) {
  if (!name || !*name) VESK_THROW(kSource, CIllegalArgumentException, "Invalid semaphore name.");
  CUnicodeString wide(name);
  // Windows refuses names longer than MAX_PATH characters; Wine does not,
  // so the limit is kept here for every Windows host alike.
  if (wide.GetLength() > MAX_PATH) VESK_THROW(kSource, CMemoryException);
  HANDLE handle =
      CreateSemaphoreW(nullptr, static_cast<LONG>(initialCount), 0x7FFFFFFF,
                       reinterpret_cast<const wchar_t*>(static_cast<const unsigned short*>(wide)));
  if (!handle) VESK_THROW(kSource, CMemoryException);
  return handle;
}

}  // namespace win
}  // namespace base
}  // namespace vesk
