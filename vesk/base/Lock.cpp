#include "vesk/base/Lock.h"

#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/CriticalSection.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

namespace {
const char* const kSource = "vesk/base/LockImplWin";
}

CLock::CLock() : m_section(platform::NewCriticalSection(kSource)) {}

CLock::~CLock() { platform::DeleteCriticalSection(m_section); }

void CLock::Acquire() {
  if (!platform::SectionEnter(m_section)) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to enter critical section.");
  }
}

bool CLock::TryAcquire(unsigned int) { return platform::SectionTryEnter(m_section); }

void CLock::Release() { platform::SectionLeave(m_section); }

}  // namespace base
}  // namespace vesk
