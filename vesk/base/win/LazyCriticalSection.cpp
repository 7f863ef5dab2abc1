#include "vesk/base/win/LazyCriticalSection.h"

#include "vesk/base/MemoryException.h"
#include "vesk/base/internal/LazySection.h"
#include "vesk/platform/CriticalSection.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {
namespace win {

namespace {
const char* const kSource = "vesk/base/win/LazyCriticalSection";
}

VESK_IMPLEMENT_CLASS(CLazyCriticalSection, CLazyCriticalSection, "vesk::base::win::CLazyCriticalSection",
                     "vesk::base::win::CSyncObject")

CLazyCriticalSection::CLazyCriticalSection() : m_section(nullptr) {}

CLazyCriticalSection::~CLazyCriticalSection() {
  platform::DeleteCriticalSection(m_section.load(std::memory_order_acquire));
}

// Double-checked: made only while there is none, so racing first users
// share one section.
platform::CriticalSection* CLazyCriticalSection::Create() {
  try {
    return internal::EnsureSection(m_creationLock, m_section, kSource);
  } catch (const CMemoryException&) {
    VESK_THROW(kSource, CMemoryException);
  }
}

void CLazyCriticalSection::Acquire() { platform::SectionEnter(Create()); }

bool CLazyCriticalSection::TryAcquire(unsigned int) { return platform::SectionTryEnter(Create()); }

void CLazyCriticalSection::Release() {
  platform::CriticalSection* section = m_section.load(std::memory_order_acquire);
  if (section) platform::SectionLeave(section);
}

}  // namespace win
}  // namespace base
}  // namespace vesk
