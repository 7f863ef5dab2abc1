#include "vesk/base/win/internal/GroupLock.h"

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/System.h"
#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace base {
namespace win {
namespace internal {

unsigned int LockGroup(unsigned int count, void* const* handles, bool* locked, bool waitAll,
                       unsigned int timeout) {
  unsigned int result;
  try {
    result = CSyncObject::WaitForMultipleSyncObject(count, handles, waitAll, timeout);
  } catch (const CIllegalArgumentException& e) {
    e.Print(CSystem::debugOut);
    throw;
  }
  if (result < count) {
    for (unsigned int i = 0; i < count; ++i) {
      if (waitAll || i == result) locked[i] = true;
    }
  }
  return result;
}

void UnlockGroup(unsigned int count, CSyncObject* const* objects, bool* locked) {
  for (unsigned int i = 0; i < count; ++i) {
    if (locked[i]) {
      locked[i] = false;
      objects[i]->Release();
    }
  }
}

}  // namespace internal
}  // namespace win
}  // namespace base
}  // namespace vesk
