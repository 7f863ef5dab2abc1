/// \file
/// CEvent: a manual- or auto-reset event, optionally shared system-wide by
/// name.
#ifndef VESK_BASE_WIN_EVENT_H
#define VESK_BASE_WIN_EVENT_H

#include "vesk/base/win/SyncObject.h"

namespace vesk {
namespace base {
namespace win {

class CSyncObjectImpl;

/// A signalled manual-reset event satisfies every wait until ResetEvent; an
/// auto-reset event satisfies exactly one wait and is cleared by it. A
/// non-empty name makes it system-wide, as for CMutex.
class VESK_API CEvent : public CSyncObject {
  VESK_DECLARE_CLASS(CEvent);

  /// Opens the event of that name (keeping its state and kind) or creates
  /// it. Throws CMemoryException when the system cannot make it or the name
  /// belongs to a mutex.
  CEvent(const char* name, bool initiallySignalled, bool manualReset);
  /// Closes this holder's view; a named event lives while others hold it.
  ~CEvent() override;

  /// Signals the event.
  void SetEvent();
  /// Clears the event.
  void ResetEvent();

  bool IsTimeoutSupported() const override;
  /// Waits without limit for the event.
  void Acquire() override;
  /// True when the event was signalled within timeout milliseconds.
  bool TryAcquire(unsigned int timeout) override;
  /// Does nothing: an event is released by SetEvent, not by its waiter.
  void Release() override;

 private:
  CEvent(const CEvent&);
  CEvent& operator=(const CEvent&);

  CSyncObjectImpl* m_impl;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
