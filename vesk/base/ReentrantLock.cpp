#include "vesk/base/ReentrantLock.h"

#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/CriticalSection.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

namespace {
const char* const kSource = "vesk/base/ReentrantLockImplWin";
}

CReentrantLock::CReentrantLock() : m_section(platform::NewCriticalSection(kSource)) {}

CReentrantLock::~CReentrantLock() { platform::DeleteCriticalSection(m_section); }

// The enter is not guarded against system exceptions, but a failure the host
// reports as a result must not look like success: the caller would run
// unprotected. It throws like CLock's.
void CReentrantLock::Acquire() {
  if (!platform::SectionEnter(m_section)) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to enter critical section.");
  }
}

bool CReentrantLock::TryAcquire(unsigned int) { return platform::SectionTryEnter(m_section); }

void CReentrantLock::Release() { platform::SectionLeave(m_section); }

}  // namespace base
}  // namespace vesk
