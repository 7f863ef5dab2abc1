/// \file
/// CPosixSyncObjectImpl: a mutex or event of the POSIX host. Its state is a
/// small record: in process memory for an unnamed object, in a POSIX
/// shared-memory segment named after the object for a named one.
#ifndef VESK_BASE_WIN_POSIX_POSIXSYNCOBJECTIMPL_H
#define VESK_BASE_WIN_POSIX_POSIXSYNCOBJECTIMPL_H

#include "vesk/base/win/internal/SyncObjectImpl.h"

namespace vesk {
namespace base {
namespace win {
namespace posix {

struct SyncRecord;

class CPosixSyncObjectImpl : public CSyncObjectImpl {
 public:
  /// Makes or opens the object; null when the system refuses.
  static CPosixSyncObjectImpl* Open(const char* name, bool isMutex, bool initially, bool manualReset) noexcept;
  ~CPosixSyncObjectImpl() override;

  void* GetHandle() noexcept override { return &m_handle; }
  bool ReleaseMutex() noexcept override;
  bool SetEvent() noexcept override;
  bool ResetEvent() noexcept override;

  /// The object behind a handle; null when the handle is not one.
  static CPosixSyncObjectImpl* FromHandle(void* handle) noexcept;

  SyncRecord* Record() const { return m_record; }
  bool IsMutex() const;
  bool IsShared() const { return m_fd >= 0; }
  /// Orders the objects of a wait for all; equal only for one object.
  unsigned long long OrderKey() const { return m_key; }
  /// Wakes the waiters that sleep on the record's generation.
  void Bump() noexcept;

 private:
  CPosixSyncObjectImpl();

  // What a handle points at: a plain record, so a handle that is none can
  // be told by its mark without treating it as an object.
  struct Handle {
    unsigned int mark;
    CPosixSyncObjectImpl* object;
  };

  Handle m_handle;
  SyncRecord* m_record;
  int m_fd;                 // the segment of a named object, else -1
  char* m_hostName;         // the segment's name, else null
  unsigned long long m_key;
};

}  // namespace posix
}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
