/// \file
/// The counter record shared by the CRef<T> handles of one object. The count
/// lives here, beside the object, so any type can be held.
#ifndef VESK_BASE_REFCOUNTEDPTR_H
#define VESK_BASE_REFCOUNTEDPTR_H

#include "vesk/base/Export.h"
#include "vesk/base/IllegalArgumentException.h"

namespace vesk {
namespace base {

/// Counter record: the owned pointer, whether it must be deleted on the last
/// release, and the count (starting at 1). The deleter deletes the object as
/// the type it was handed over as, so the last release is right whichever
/// handle type performs it.
struct CRefCountedPtr {
  /// Deletes the object as the type it was handed over as.
  typedef void (*Deleter)(void* object);

  /// The object; never null.
  void* m_pointer;
  /// Whether the last release deletes the object.
  bool m_owns;
  /// Handles sharing the record.
  unsigned int m_count;
  /// Called with m_pointer on the last release when m_owns is set.
  Deleter m_deleter;

  /// A record with count 1. Throws CIllegalArgumentException "Invalid
  /// pointer." for a null pointer.
  CRefCountedPtr(void* pointer, bool owns, Deleter deleter)
      : m_pointer(pointer), m_owns(owns), m_count(1), m_deleter(deleter) {
    if (!pointer) throw CIllegalArgumentException("vesk/base/RefCountedPtr", __LINE__, "Invalid pointer.");
  }
};

}  // namespace base
}  // namespace vesk

#endif
