/// \file
/// CSyncObject: the root of the native synchronisation objects.
#ifndef VESK_BASE_WIN_SYNCOBJECT_H
#define VESK_BASE_WIN_SYNCOBJECT_H

#include "vesk/base/Object.h"
#include "vesk/base/String.h"

namespace vesk {
namespace base {
namespace win {

/// A synchronisation object that threads acquire and release, with an
/// optional system-wide name and the handle that the static waits take.
/// Wait results: the index of the signalled object (0 for one object),
/// 0x80 plus the index for a mutex whose owner ended while holding it (the
/// waiter owns it now), 0x102 when the time ran out, 0xFFFFFFFF for a
/// failure. A timeout of 0xFFFFFFFF waits without limit.
class VESK_API CSyncObject : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CSyncObject);

  /// Releases the name.
  ~CSyncObject() override;

  /// Whether TryAcquire honours its timeout.
  virtual bool IsTimeoutSupported() const;
  /// Acquires the object, waiting as long as it takes.
  virtual void Acquire() = 0;
  /// True when acquired within timeout milliseconds.
  virtual bool TryAcquire(unsigned int timeout) = 0;
  /// Gives the object up.
  virtual void Release() = 0;

  /// The wait handle; null for objects that have none.
  void* GetHandle() const { return m_handle; }
  /// Whether the object carries a (system-wide) name.
  bool IsNamed() const { return !m_name.IsEmpty(); }
  /// The name; empty for an unnamed object.
  const vesk::base::CString& GetName() const { return m_name; }

  /// Waits for one handle. Throws CIllegalArgumentException "Invalid wait
  /// handle." for null.
  static unsigned int WaitForSingleSyncObject(void* handle, unsigned int timeout);
  /// Waits for any (the lowest signalled index wins) or all of count
  /// handles; a wait for all takes every object or none. Throws
  /// CIllegalArgumentException "Invalid wait handle count." for a count
  /// below 2, "Invalid wait handle array." for a null array. At most 64
  /// handles; more, a null handle or one object twice in a wait for all
  /// give 0xFFFFFFFF.
  static unsigned int WaitForMultipleSyncObject(unsigned int count, void* const* handles, bool waitAll,
                                                unsigned int timeout);

 protected:
  /// An unnamed object without handle.
  CSyncObject();
  /// Keeps name when it is not null.
  explicit CSyncObject(const char* name);
  /// Copies name and handle.
  CSyncObject(const CSyncObject& other);
  /// Sets the wait handle (for the subclasses that have one).
  void SetHandle(void* handle) { m_handle = handle; }

 private:
  CSyncObject& operator=(const CSyncObject&);

  vesk::base::CString m_name;
  void* m_handle;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
