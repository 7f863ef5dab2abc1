/// \file
/// CLazyCriticalSection: a critical section made on first use.
#ifndef VESK_BASE_WIN_LAZYCRITICALSECTION_H
#define VESK_BASE_WIN_LAZYCRITICALSECTION_H

#include <atomic>

#include "vesk/base/SpinLock.h"
#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace platform {
struct CriticalSection;
}
namespace base {
namespace win {

/// Behaves as CCriticalSection once made; constructing one allocates
/// nothing, and the first Acquire or TryAcquire (from any number of threads
/// at once) makes exactly one section.
class VESK_API CLazyCriticalSection : public CSyncObject {
  VESK_DECLARE_CLASS(CLazyCriticalSection);

  /// Makes nothing yet.
  CLazyCriticalSection();
  /// Deletes the section when one was made.
  ~CLazyCriticalSection() override;

  /// Makes the section when there is none yet (CMemoryException when its
  /// block cannot be had, CSynchronizationException "Failed to create
  /// critical section." when the system refuses it), then enters it.
  void Acquire() override;
  /// Makes the section as Acquire does, then makes one attempt; the timeout
  /// is ignored.
  bool TryAcquire(unsigned int timeout) override;
  /// Leaves the section; does nothing before the first acquire.
  void Release() override;

 private:
  CLazyCriticalSection(const CLazyCriticalSection&);
  CLazyCriticalSection& operator=(const CLazyCriticalSection&);
  platform::CriticalSection* Create();

  vesk::base::CSpinLock m_creationLock;
  std::atomic<platform::CriticalSection*> m_section;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
