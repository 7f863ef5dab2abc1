/// \file
/// CSemaphore: a counting semaphore, process-local or shared system-wide by
/// name.
#ifndef VESK_BASE_SEMAPHORE_H
#define VESK_BASE_SEMAPHORE_H

#include "vesk/base/Base.h"
#include "vesk/base/ILockable_.h"
#include "vesk/base/NonCopyable.h"

namespace vesk {
namespace base {

class CSemaphoreImpl;

/// Acquire takes one count (waiting while there is none), Release gives one
/// back. Not owned by a thread: any thread may release. Any threads may share
/// one.
class VESK_API CSemaphore : public CBase, public ILockable_, public CNonCopyable {
 public:
  /// A binary semaphore, initially free: CSemaphore(1, 1).
  CSemaphore();
  /// A process-local semaphore holding initialCount of at most maxCount
  /// counts. Throws CIllegalArgumentException "Invalid initial count." when
  /// initialCount exceeds maxCount, CMemoryException when the system cannot
  /// make it (also for a maxCount of 0 or above 0x7FFFFFFF).
  CSemaphore(unsigned int initialCount, unsigned int maxCount);
  /// Opens the system-wide semaphore of that name, shared with every process
  /// that opens the same name, or creates it with initialCount counts (of at
  /// most 0x7FFFFFFF); initialCount is ignored when it exists already. Throws
  /// CIllegalArgumentException "Invalid semaphore name." for a null or empty
  /// name, CMemoryException when the system cannot open it.
  CSemaphore(const char* name, unsigned int initialCount);
  /// Releases the system semaphore (a named one is closed, not removed).
  ~CSemaphore() override;

  /// Takes one count, waiting as long as it takes. Throws
  /// CSynchronizationException "Failed to acquire the semaphore." when the
  /// system fails.
  void Acquire() override;
  /// Takes one count within timeout milliseconds (0: no wait, 0xFFFFFFFF: no
  /// limit); false when the time ran out.
  bool TryAcquire(unsigned int timeout) override;
  /// Gives one count back. Throws CSynchronizationException "Failed to
  /// release the semaphore." when that would pass the maximum.
  void Release() override;

  /// Whether the semaphore was opened by name.
  bool IsNamed() const;
  /// Whether other processes can share it.
  bool IsShared() const;

 private:
  CSemaphoreImpl* m_impl;
};

}  // namespace base
}  // namespace vesk

#endif
