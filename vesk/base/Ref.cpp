#include "vesk/base/Ref.h"

#include "vesk/platform/Memory.h"

namespace vesk {
namespace base {

void* AllocRefRecord() { return platform::Alloc(sizeof(CRefCountedPtr)); }

void FreeRefRecord(void* record) { platform::Free(record); }

}  // namespace base
}  // namespace vesk
