#include "vesk/base/internal/LazySection.h"

namespace vesk {
namespace base {
namespace internal {

platform::CriticalSection* EnsureSection(CSpinLock& guard, std::atomic<platform::CriticalSection*>& slot,
                                         const char* source) {
  platform::CriticalSection* section = slot.load(std::memory_order_acquire);
  if (section) return section;
  guard.Acquire();
  section = slot.load(std::memory_order_acquire);
  try {
    if (!section) {
      section = platform::NewCriticalSection(source);
      slot.store(section, std::memory_order_release);
    }
  } catch (...) {
    guard.Release();
    throw;
  }
  guard.Release();
  return section;
}

}  // namespace internal
}  // namespace base
}  // namespace vesk
