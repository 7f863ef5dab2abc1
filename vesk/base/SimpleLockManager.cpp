#include "vesk/base/SimpleLockManager.h"

namespace vesk {
namespace base {

CSimpleLockManager::CSimpleLockManager() : m_handle(nullptr), m_lockCount(0) {}

CSimpleLockManager::CSimpleLockManager(char** const& handle) : m_handle(handle), m_lockCount(0) {}

CSimpleLockManager::~CSimpleLockManager() {}

unsigned int CSimpleLockManager::Lock() const { return ++m_lockCount; }

unsigned int CSimpleLockManager::Unlock() const {
  if (m_lockCount != 0) --m_lockCount;
  return m_lockCount;
}

void CSimpleLockManager::SetManagedHandle(char** const& handle) {
  if (handle == m_handle) return;
  m_handle = handle;
  m_lockCount = 0;
}

char** CSimpleLockManager::DetachManagedHandle() {
  char** handle = m_handle;
  m_handle = nullptr;
  return handle;
}

}  // namespace base
}  // namespace vesk
