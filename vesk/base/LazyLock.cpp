#include "vesk/base/LazyLock.h"

#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/base/internal/LazySection.h"
#include "vesk/platform/CriticalSection.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

namespace {
const char* const kSource = "vesk/base/LazyLock";
}

CLazyLock::CLazyLock() : m_section(nullptr) {}

CLazyLock::~CLazyLock() {
  platform::DeleteCriticalSection(m_section.load(std::memory_order_acquire));
}

// Double-checked creation (the shared EnsureSection): racing first users
// share one section and none is replaced. A block that cannot be had is
// reported as a lock that could not be made.
platform::CriticalSection* CLazyLock::Create() {
  try {
    return internal::EnsureSection(m_creationLock, m_section, kSource);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to create lock.");
  }
}

void CLazyLock::Acquire() {
  platform::CriticalSection* section = m_section.load(std::memory_order_acquire);
  if (!section) section = Create();
  if (!platform::SectionEnter(section)) {
    VESK_THROW(kSource, CSynchronizationException, "Failed to enter critical section.");
  }
}

bool CLazyLock::TryAcquire(unsigned int) {
  platform::CriticalSection* section = m_section.load(std::memory_order_acquire);
  if (!section) section = Create();
  return platform::SectionTryEnter(section);
}

void CLazyLock::Release() {
  platform::CriticalSection* section = m_section.load(std::memory_order_acquire);
  if (section) platform::SectionLeave(section);
}

}  // namespace base
}  // namespace vesk
