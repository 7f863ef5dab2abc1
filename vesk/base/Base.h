/// \file
/// CBase: the empty root of every library class. It gives all of them the
/// same class-level allocation, which turns a failed allocation into a
/// CMemoryException instead of returning null.
#ifndef VESK_BASE_BASE_H
#define VESK_BASE_BASE_H

#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// Allocation base of every library class. Carries no data.
class VESK_API CBase {
 public:
  /// Copies nothing: there is no data.
  CBase(const CBase&) {}
  /// Assigns nothing: there is no data.
  CBase& operator=(const CBase&) { return *this; }

  ///@{
  /// Allocates from the library heap; throws CMemoryException (source
  /// "vesk/base/Base") when the heap refuses.
  static void* operator new(std::size_t size);
  static void* operator new[](std::size_t size);
  ///@}
  ///@{
  /// Same, but a failure reports the caller's file and line (see VESK_NEW).
  static void* operator new(std::size_t size, const char* file, int line);
  static void* operator new[](std::size_t size, const char* file, int line);
  ///@}
  ///@{
  /// Placement forms: return place.
  static void* operator new(std::size_t size, void* place) noexcept;
  static void* operator new[](std::size_t size, void* place) noexcept;
  static void* operator new(std::size_t size, void* place, const char* file, int line) noexcept;
  static void* operator new[](std::size_t size, void* place, const char* file, int line) noexcept;
  ///@}

  ///@{
  /// Returns a block to the library heap; null is ignored.
  static void operator delete(void* p) noexcept;
  static void operator delete[](void* p) noexcept;
  ///@}
  ///@{
  /// Called by the compiler when a constructor throws after the matching
  /// operator new: returns the block to the library heap.
  static void operator delete(void* p, const char* file, int line) noexcept;
  static void operator delete[](void* p, const char* file, int line) noexcept;
  ///@}
  ///@{
  /// Called by the compiler when a constructor throws after a placement
  /// new: does nothing, the storage belongs to the caller.
  static void operator delete(void* p, void* place) noexcept;
  static void operator delete[](void* p, void* place) noexcept;
  static void operator delete(void* p, void* place, const char* file, int line) noexcept;
  static void operator delete[](void* p, void* place, const char* file, int line) noexcept;
  ///@}

 protected:
  /// Builds nothing: there is no data.
  CBase() {}
  /// Not virtual: CBase is never deleted through a CBase pointer.
  ~CBase() {}

 private:
  [[noreturn]] static void _ThrowMemoryException(const char* file, int line);
};

}  // namespace base
}  // namespace vesk

/// Allocates a library object so that an allocation failure reports this
/// call site: VESK_NEW CFoo(args).
#define VESK_NEW new (__FILE__, __LINE__)

#endif
