/// \file
/// CWinThreadLocalImpl: a thread-local slot of the Windows host.
#ifndef VESK_BASE_WIN_INTERNAL_WINTHREADLOCALIMPL_H
#define VESK_BASE_WIN_INTERNAL_WINTHREADLOCALIMPL_H

#include "vesk/base/internal/ThreadImpl.h"

namespace vesk {
namespace base {
namespace win {

/// A TLS index (TlsAlloc). Like the slot of other hosts, it is never freed.
class CWinThreadLocalImpl : public CThreadLocalImpl {
 public:
  CWinThreadLocalImpl() : m_index(0), m_allocated(false) {}

  void Allocate() override;
  void* GetValue() override;
  void SetValue(void* value) override;

 private:
  unsigned long m_index;
  bool m_allocated;
};

}  // namespace win
}  // namespace base
}  // namespace vesk

#endif
