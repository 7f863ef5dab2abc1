/// \file
/// CCriticalSection: a lock within one process, as a synchronisation object.
#ifndef VESK_BASE_WIN_CRITICALSECTION_H
#define VESK_BASE_WIN_CRITICALSECTION_H

#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace platform {
struct CriticalSection;
}
namespace base {
namespace win {

/// Re-entrant for its owner thread; no wait handle, so the static waits and
/// the dual and multi locks do not take it.
class VESK_API CCriticalSection : public CSyncObject {
  VESK_DECLARE_CLASS(CCriticalSection);

  /// Throws CMemoryException when its block cannot be had,
  /// CSynchronizationException "Failed to create critical section." when
  /// the system refuses it.
  CCriticalSection();
  /// Deletes the section, which no thread may hold.
  ~CCriticalSection() override;

  /// Enters the section, waiting as long as it takes.
  void Acquire() override;
  /// One attempt; the timeout is ignored.
  bool TryAcquire(unsigned int timeout) override;
  /// Leaves the section once.
  void Release() override;

 private:
  CCriticalSection(const CCriticalSection&);
  CCriticalSection& operator=(const CCriticalSection&);

  platform::CriticalSection* m_section;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
