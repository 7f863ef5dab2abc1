/// \file
/// CWinSyncObjectImpl: a mutex or event of the Windows host, a kernel object
/// named in the session's namespace when the object has a name.
#ifndef VESK_BASE_WIN_INTERNAL_WINSYNCOBJECTIMPL_H
#define VESK_BASE_WIN_INTERNAL_WINSYNCOBJECTIMPL_H

#include "vesk/base/win/internal/SyncObjectImpl.h"

namespace vesk {
namespace base {
namespace win {
namespace host {

class CWinSyncObjectImpl : public CSyncObjectImpl {
 public:
  /// Makes or opens the object; null when the system refuses.
  static CWinSyncObjectImpl* Open(const char* name, bool isMutex, bool initially,
                                  bool manualReset) noexcept;
  ~CWinSyncObjectImpl() override;

  /// The kernel object's handle is the wait handle.
  void* GetHandle() noexcept override { return m_handle; }
  bool ReleaseMutex() noexcept override;
  bool SetEvent() noexcept override;
  bool ResetEvent() noexcept override;

 private:
  CWinSyncObjectImpl(void* handle, bool isMutex) : m_handle(handle), m_isMutex(isMutex) {}

  void* m_handle;  // a HANDLE
  bool m_isMutex;
};

}  // namespace host
}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
