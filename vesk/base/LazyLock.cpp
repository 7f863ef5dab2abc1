#include "vesk/base/LazyLock.h"

#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
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

// Double-checked creation: the callers saw no section; under the spin lock
// the pointer is tested again and a section made only while it is still
// null, so racing first users share one section and none is replaced.
platform::CriticalSection* CLazyLock::Create() {
  m_creationLock.Acquire();
  platform::CriticalSection* section = m_section.load(std::memory_order_acquire);
  try {
    if (!section) {
      section = platform::NewCriticalSection(kSource);
      m_section.store(section, std::memory_order_release);
    }
  } catch (const CMemoryException&) {
    m_creationLock.Release();
    VESK_THROW(kSource, CSynchronizationException, "Failed to create lock.");
  } catch (...) {
    m_creationLock.Release();
    throw;
  }
  m_creationLock.Release();
  return section;
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
