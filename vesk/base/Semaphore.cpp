#include "vesk/base/Semaphore.h"

#include "vesk/base/internal/SemaphoreImpl.h"

namespace vesk {
namespace base {

CSemaphore::CSemaphore() : m_impl(CSemaphoreImpl::Create(1, 1)) {}

CSemaphore::CSemaphore(unsigned int initialCount, unsigned int maxCount)
    : m_impl(CSemaphoreImpl::Create(initialCount, maxCount)) {}

CSemaphore::CSemaphore(const char* name, unsigned int initialCount)
    : m_impl(CSemaphoreImpl::CreateNamed(name, initialCount)) {}

CSemaphore::~CSemaphore() { delete m_impl; }

void CSemaphore::Acquire() { m_impl->Acquire(); }

bool CSemaphore::TryAcquire(unsigned int timeout) { return m_impl->TryAcquire(timeout); }

void CSemaphore::Release() { m_impl->Release(); }

bool CSemaphore::IsNamed() const { return m_impl->IsNamed(); }

bool CSemaphore::IsShared() const { return m_impl->IsShared(); }

}  // namespace base
}  // namespace vesk
