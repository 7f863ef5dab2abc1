#include "vesk/base/win/CriticalSection.h"

#include "vesk/platform/CriticalSection.h"

namespace vesk {
namespace base {
namespace win {

VESK_IMPLEMENT_CLASS(CCriticalSection, CCriticalSection, "vesk::base::win::CCriticalSection",
                     "vesk::base::win::CSyncObject")

CCriticalSection::CCriticalSection() : m_section(platform::NewCriticalSection("vesk/base/win/CriticalSection")) {}

CCriticalSection::~CCriticalSection() { platform::DeleteCriticalSection(m_section); }

void CCriticalSection::Acquire() { platform::SectionEnter(m_section); }

bool CCriticalSection::TryAcquire(unsigned int) { return platform::SectionTryEnter(m_section); }

void CCriticalSection::Release() { platform::SectionLeave(m_section); }

}  // namespace win
}  // namespace base
}  // namespace vesk
