/// \file
/// CThreadEndKey: a thread key whose end function runs, with the thread's
/// value, when a thread that set a value ends. The library's per-thread
/// records (the string blocks a thread keeps, its allocation counts) go back
/// through one. Internal to the library.
#ifndef VESK_PLATFORM_THREADENDKEY_H
#define VESK_PLATFORM_THREADENDKEY_H

#include <pthread.h>

namespace vesk {
namespace platform {

/// Kept by its user in a function-local static, so it is made on first use,
/// before or after static constructors. An end function found in a thread
/// key is the module's code: Delete it when the module unloads.
struct CThreadEndKey {
  /// Makes the key; IsMade tells whether the host gave one.
  explicit CThreadEndKey(void (*end)(void*)) noexcept
      : m_key(), m_made(pthread_key_create(&m_key, end) == 0) {}

  bool IsMade() const noexcept { return m_made; }
  /// Sets the calling thread's value; false when there is no key or the
  /// host refuses.
  bool Set(void* value) noexcept { return m_made && pthread_setspecific(m_key, value) == 0; }
  /// Deletes the key: no thread that ends later calls its end function.
  void Delete() noexcept {
    if (m_made) pthread_key_delete(m_key);
    m_made = false;
  }

 private:
  pthread_key_t m_key;
  bool m_made;
};

}  // namespace platform
}  // namespace vesk

#endif
