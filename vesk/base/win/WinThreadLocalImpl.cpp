#include "vesk/base/win/internal/WinThreadLocalImpl.h"

#include "vesk/base/win/WinSystemErrorException.h"
#include "vesk/platform/Throw.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace vesk {
namespace base {

CThreadLocalImpl* CThreadLocalImpl::Create() { return new win::CWinThreadLocalImpl; }

namespace win {

namespace {
const char* const kSource = "vesk/base/win/WinThreadLocalImpl";
}

void CWinThreadLocalImpl::Allocate() {
  DWORD index = TlsAlloc();
  if (index == TLS_OUT_OF_INDEXES) {
    VESK_THROW(kSource, CWinSystemErrorException, "There is no available free TLS slot.",
               GetLastError());
  }
  m_index = index;
  m_allocated = true;
}

// A slot never allocated reads as empty.
void* CWinThreadLocalImpl::GetValue() { return m_allocated ? TlsGetValue(m_index) : nullptr; }

void CWinThreadLocalImpl::SetValue(void* value) {
  if (!m_allocated || !TlsSetValue(m_index, value)) {
    VESK_THROW(kSource, CWinSystemErrorException, "Failed to set the value of the TLS slot.",
               m_allocated ? GetLastError() : ERROR_INVALID_PARAMETER);
  }
}

}  // namespace win
}  // namespace base
}  // namespace vesk
