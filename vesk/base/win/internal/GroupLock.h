/// \file
/// What CDualLock and CMultiLock share: a wait on their objects that marks
/// the ones it took, and the release of the marked ones.
#ifndef VESK_BASE_WIN_INTERNAL_GROUPLOCK_H
#define VESK_BASE_WIN_INTERNAL_GROUPLOCK_H

namespace vesk {
namespace base {
namespace win {

class CSyncObject;

namespace internal {

/// Waits for any or all of the handles. A result below count marks every
/// object (waitAll) or the signalled one; other results mark nothing. A
/// CIllegalArgumentException from the wait is reported on the debug output
/// stream and thrown on. Returns the wait result.
unsigned int LockGroup(unsigned int count, void* const* handles, bool* locked, bool waitAll,
                       unsigned int timeout);
/// Releases every marked object, in order, and clears its mark.
void UnlockGroup(unsigned int count, CSyncObject* const* objects, bool* locked);

}  // namespace internal
}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
