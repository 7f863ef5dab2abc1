/// \file
/// CSyncObjectImpl: the host object behind a CMutex or CEvent, and the waits
/// on one or several of them. Each host supplies it in its own folder.
#ifndef VESK_BASE_WIN_INTERNAL_SYNCOBJECTIMPL_H
#define VESK_BASE_WIN_INTERNAL_SYNCOBJECTIMPL_H

#include "vesk/base/Base.h"

namespace vesk {
namespace base {
namespace win {

/// Wait results, with the values every host gives them.
constexpr unsigned int kWaitObject0 = 0;
constexpr unsigned int kWaitAbandoned0 = 0x80;
constexpr unsigned int kWaitTimeout = 0x102;
constexpr unsigned int kWaitFailed = 0xFFFFFFFFu;
/// A timeout that never runs out.
constexpr unsigned int kWaitInfinite = 0xFFFFFFFFu;
/// The most objects one wait takes.
constexpr unsigned int kMaxWaitObjects = 64;

class CSyncObjectImpl : public CBase {
 public:
  virtual ~CSyncObjectImpl() {}

  /// A mutex (recursive for its owner thread), shared by every holder of a
  /// non-empty name; with initiallyOwned the calling thread owns a mutex it
  /// creates. Null when the system cannot make or open it, or when the name
  /// belongs to an event.
  static CSyncObjectImpl* NewMutex(const char* name, bool initiallyOwned) noexcept;
  /// An event, shared like a mutex; an existing one keeps its state and
  /// kind. Null as for NewMutex.
  static CSyncObjectImpl* NewEvent(const char* name, bool initiallySignalled, bool manualReset) noexcept;

  /// Waits for one handle: kWaitObject0, kWaitAbandoned0, kWaitTimeout or
  /// kWaitFailed (for a handle that is not one of these objects).
  static unsigned int WaitOne(void* handle, unsigned int timeout) noexcept;
  /// Waits for any (the lowest signalled index wins) or all of count
  /// handles; all are taken in one step or none. kWaitFailed for a count
  /// above kMaxWaitObjects, a bad handle, or one object twice in a wait
  /// for all.
  static unsigned int WaitMany(unsigned int count, void* const* handles, bool waitAll,
                               unsigned int timeout) noexcept;

  /// The wait handle the public classes hand out.
  virtual void* GetHandle() noexcept = 0;
  /// Mutex: gives up one hold; false when the caller does not own it.
  virtual bool ReleaseMutex() noexcept = 0;
  /// Event: signals it, waking what it can satisfy; false for a mutex.
  virtual bool SetEvent() noexcept = 0;
  /// Event: clears it; false for a mutex.
  virtual bool ResetEvent() noexcept = 0;

 protected:
  CSyncObjectImpl() {}

 private:
  CSyncObjectImpl(const CSyncObjectImpl&);
  CSyncObjectImpl& operator=(const CSyncObjectImpl&);
};

namespace internal {
/// Waits for one handle as CMutex and CEvent acquire: true when taken (also
/// abandoned), false when the time ran out; any other result throws
/// CWinSystemErrorException with source and the failure text.
bool TakeOrThrow(void* handle, unsigned int timeout, const char* source, const char* failure);
}  // namespace internal

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
