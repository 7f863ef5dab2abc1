#include "vesk/platform/CriticalSection.h"

#include "vesk/base/MemoryException.h"
#include "vesk/base/SynchronizationException.h"
#include "vesk/platform/Memory.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace platform {

CriticalSection* NewCriticalSection(const char* source) {
  CriticalSection* section = static_cast<CriticalSection*>(Alloc(sizeof(CriticalSection)));
  if (!section) VESK_THROW("vesk/base/Base", base::CMemoryException);
  if (!SectionInit(section)) {
    Free(section);
    throw base::CSynchronizationException(source, __LINE__, "Failed to create critical section.");
  }
  return section;
}

void DeleteCriticalSection(CriticalSection* section) noexcept {
  if (!section) return;
  SectionDelete(section);
  Free(section);
}

}  // namespace platform
}  // namespace vesk
