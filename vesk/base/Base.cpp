#include "vesk/base/Base.h"

#include "vesk/base/MemoryException.h"
#include "vesk/platform/Memory.h"

namespace vesk {
namespace base {

namespace {
const char* const kSource = "vesk/base/Base";
}

void CBase::_ThrowMemoryException(const char* file, int line) {
  throw CMemoryException(file, static_cast<unsigned int>(line));
}

void* CBase::operator new(std::size_t size) {
  void* p = platform::Alloc(size);
  if (!p) _ThrowMemoryException(kSource, __LINE__);
  return p;
}

void* CBase::operator new[](std::size_t size) {
  void* p = platform::Alloc(size);
  if (!p) _ThrowMemoryException(kSource, __LINE__);
  return p;
}

void* CBase::operator new(std::size_t size, const char* file, int line) {
  void* p = platform::Alloc(size);
  if (!p) _ThrowMemoryException(file, line);
  return p;
}

void* CBase::operator new[](std::size_t size, const char* file, int line) {
  void* p = platform::Alloc(size);
  if (!p) _ThrowMemoryException(file, line);
  return p;
}

void* CBase::operator new(std::size_t, void* place) noexcept { return place; }
void* CBase::operator new[](std::size_t, void* place) noexcept { return place; }
void* CBase::operator new(std::size_t, void* place, const char*, int) noexcept { return place; }
void* CBase::operator new[](std::size_t, void* place, const char*, int) noexcept { return place; }

void CBase::operator delete(void* p) noexcept { platform::Free(p); }
void CBase::operator delete[](void* p) noexcept { platform::Free(p); }
void CBase::operator delete(void* p, const char*, int) noexcept { platform::Free(p); }
void CBase::operator delete[](void* p, const char*, int) noexcept { platform::Free(p); }
void CBase::operator delete(void*, void*) noexcept {}
void CBase::operator delete[](void*, void*) noexcept {}
void CBase::operator delete(void*, void*, const char*, int) noexcept {}
void CBase::operator delete[](void*, void*, const char*, int) noexcept {}

}  // namespace base
}  // namespace vesk
