#include "vesk/platform/CriticalSection.h"

#include <new>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace platform {

namespace {

static_assert(sizeof(CRITICAL_SECTION) <= sizeof(CriticalSection::opaque),
              "a critical section must fit the section storage");
static_assert(alignof(CRITICAL_SECTION) <= alignof(CriticalSection),
              "the section storage must be aligned for a critical section");

inline CRITICAL_SECTION* Native(CriticalSection* section) noexcept {
  return std::launder(reinterpret_cast<CRITICAL_SECTION*>(section->opaque));
}

}  // namespace

bool SectionInit(CriticalSection* section) noexcept {
  // No spinning before a waiter blocks, and no debug record: a section
  // costs the process nothing beyond its storage.
  return InitializeCriticalSectionEx(new (section->opaque) CRITICAL_SECTION, 0,
                                     CRITICAL_SECTION_NO_DEBUG_INFO) != FALSE;
}

void SectionDelete(CriticalSection* section) noexcept { ::DeleteCriticalSection(Native(section)); }

bool WinSectionEnter(CriticalSection* section) noexcept {
  EnterCriticalSection(Native(section));
  return true;
}

bool WinSectionTryEnter(CriticalSection* section) noexcept {
  return TryEnterCriticalSection(Native(section)) != FALSE;
}

// Leaving a section another thread holds (or nobody) would corrupt it on
// Windows; like the POSIX mutex, such a leave is refused and changes nothing.
void WinSectionLeave(CriticalSection* section) noexcept {
  CRITICAL_SECTION* native = Native(section);
  if (native->OwningThread != reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(GetCurrentThreadId())))
    return;
  LeaveCriticalSection(native);
}

}  // namespace platform
}  // namespace vesk
