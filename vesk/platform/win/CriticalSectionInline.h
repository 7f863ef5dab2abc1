/// \file
/// The Windows critical section: a CRITICAL_SECTION in the section's storage.
/// Included by vesk/platform/CriticalSection.h only. The calls stay out of
/// line so that the headers of the lock classes never see <windows.h> and its
/// macros (GetMessage, CreateMutex, ...), which would rename members.
#ifndef VESK_PLATFORM_WIN_CRITICALSECTIONINLINE_H
#define VESK_PLATFORM_WIN_CRITICALSECTIONINLINE_H

namespace vesk {
namespace platform {

/// EnterCriticalSection; true.
bool WinSectionEnter(CriticalSection* section) noexcept;
/// TryEnterCriticalSection.
bool WinSectionTryEnter(CriticalSection* section) noexcept;
/// LeaveCriticalSection, when the calling thread holds the section.
void WinSectionLeave(CriticalSection* section) noexcept;

inline bool SectionEnter(CriticalSection* section) noexcept { return WinSectionEnter(section); }

inline bool SectionTryEnter(CriticalSection* section) noexcept {
  return WinSectionTryEnter(section);
}

inline void SectionLeave(CriticalSection* section) noexcept { WinSectionLeave(section); }

}  // namespace platform
}  // namespace vesk

#endif
