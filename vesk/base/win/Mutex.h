/// \file
/// CMutex: a mutex owned by a thread, optionally shared system-wide by name.
#ifndef VESK_BASE_WIN_MUTEX_H
#define VESK_BASE_WIN_MUTEX_H

#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace base {
namespace win {

class CSyncObjectImpl;

/// Recursive for its owner thread: each acquire needs its release, and only
/// the owner may release. A non-empty name makes it system-wide: mutexes of
/// that name in every process of the user share one state. When the owner
/// thread or process ends while holding it, the mutex is abandoned: the next
/// wait succeeds with the abandoned result (0x80 plus the index) and owns it.
class VESK_API CMutex : public CSyncObject {
  VESK_DECLARE_CLASS(CMutex);

  /// Opens the mutex of that name or creates it (a null or empty name makes
  /// a mutex of this process alone); with initiallyOwned the calling thread
  /// owns a mutex this call creates. Throws CMemoryException when the system
  /// cannot make it or the name belongs to an event.
  CMutex(const char* name, bool initiallyOwned);
  /// A named mutex is not released: one still owned is abandoned when its
  /// owner thread ends, and its memory lasts until the process ends. An
  /// unnamed one owned by the calling thread is released and freed.
  ~CMutex() override;

  bool IsTimeoutSupported() const override;
  /// Waits without limit. Throws CWinSystemErrorException "Failed to acquire
  /// the underlying mutex object." when the wait fails.
  void Acquire() override;
  /// True when owned within timeout milliseconds (also when abandoned).
  bool TryAcquire(unsigned int timeout) override;
  /// Throws CWinSystemErrorException "Failed to release the underlying mutex
  /// object." when the calling thread does not own it.
  void Release() override;

 private:
  CMutex(const CMutex&);
  CMutex& operator=(const CMutex&);

  CSyncObjectImpl* m_impl;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
