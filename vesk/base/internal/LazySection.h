/// \file
/// The double-checked creation that CLazyLock and CLazyCriticalSection share.
#ifndef VESK_BASE_INTERNAL_LAZYSECTION_H
#define VESK_BASE_INTERNAL_LAZYSECTION_H

#include <atomic>

#include "vesk/base/SpinLock.h"
#include "vesk/platform/CriticalSection.h"

namespace vesk {
namespace base {
namespace internal {

/// The section in slot; when there is none yet, one is made under guard and
/// stored (racing first users share one, none is replaced). Throws as
/// platform::NewCriticalSection, with source for a refused section; the
/// guard is released in every case.
platform::CriticalSection* EnsureSection(CSpinLock& guard, std::atomic<platform::CriticalSection*>& slot,
                                         const char* source);

}  // namespace internal
}  // namespace base
}  // namespace vesk

#endif
