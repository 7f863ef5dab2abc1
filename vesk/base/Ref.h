/// \file
/// CRef<T>: a shared-ownership handle. Copies share one counter record; the
/// last release deletes the object. Counts are plain integers: a handle and
/// its copies belong to one thread at a time.
#ifndef VESK_BASE_REF_H
#define VESK_BASE_REF_H

#include <new>
#include <type_traits>

#include "vesk/base/ClassCastException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/Null.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/base/RefCountedPtr.h"

namespace vesk {
namespace base {

/// Raw counter-record memory from the library heap (null on failure).
VESK_API void* AllocRefRecord();
/// Returns a counter record's memory to the library heap.
VESK_API void FreeRefRecord(void* record);

/// A shared-ownership handle to a T. Copies share one counter record; the
/// last release deletes the object as the type it was handed over as. Counts
/// are plain integers: a handle and its copies belong to one thread at a
/// time.
template <class T>
class CRef {
 public:
  /// An empty handle.
  CRef() : m_record(nullptr), m_pointer(nullptr) {}
  /// An empty handle: `CRef<T> r = vesk::null;`.
  CRef(const CNull&) : m_record(nullptr), m_pointer(nullptr) {}

  /// Takes ownership of p (null gives an empty handle). When the counter
  /// record cannot be allocated, p is deleted and CMemoryException thrown,
  /// so the object is never leaked.
  CRef(T* p) : m_record(nullptr), m_pointer(nullptr) {
    if (!p) return;
    void* memory = AllocRefRecord();
    if (!memory) {
      Destroy(p);
      throw CMemoryException("vesk/base/Ref", __LINE__);
    }
    m_record = new (memory) CRefCountedPtr(p, true, &Destroy);
    m_pointer = p;
  }

  /// Shares other's object and counts one more handle.
  CRef(const CRef& other) : m_record(other.m_record), m_pointer(other.m_pointer) {
    if (m_record) ++m_record->m_count;
  }

  /// Checked conversion: the object must be a U that is also a T, else
  /// CClassCastException is thrown and nothing is counted.
  template <class U>
  CRef(const CRef<U>& other) : m_record(nullptr), m_pointer(nullptr) {
    T* converted = Convert(other.m_pointer);
    if (other.m_pointer && !converted) throw CClassCastException("vesk/base/Ref", __LINE__);
    m_record = other.m_record;
    m_pointer = converted;
    if (m_record) ++m_record->m_count;
  }

  /// Releases this handle; the last one deletes the object. An exception from
  /// the object's destructor is discarded.
  ~CRef() { Release(); }

  /// Releases the current object and shares other's; assigning a handle of
  /// the same object does nothing.
  CRef& operator=(const CRef& other) {
    if (m_record != other.m_record || m_pointer != other.m_pointer) {
      CRef copy(other);
      Swap(copy);
    }
    return *this;
  }
  /// Checked conversion as in the converting constructor; on
  /// CClassCastException the handle is unchanged.
  template <class U>
  CRef& operator=(const CRef<U>& other) {
    CRef copy(other);
    Swap(copy);
    return *this;
  }
  /// Releases the object; the handle becomes empty.
  CRef& operator=(const CNull&) {
    CRef empty;
    Swap(empty);
    return *this;
  }
  /// Releases the current object and takes ownership of p, as CRef(T*) does.
  CRef& operator=(T* p) {
    CRef fresh(p);
    Swap(fresh);
    return *this;
  }

  ///@{
  /// The object. Throws CNullReferenceException on an empty handle.
  T* operator->() {
    if (!m_pointer) throw CNullReferenceException("vesk/base/Ref", __LINE__);
    return m_pointer;
  }
  const T* operator->() const {
    if (!m_pointer) throw CNullReferenceException("vesk/base/Ref", __LINE__);
    return m_pointer;
  }
  T& operator*() {
    if (!m_pointer) throw CNullReferenceException("vesk/base/Ref", __LINE__);
    return *m_pointer;
  }
  const T& operator*() const {
    if (!m_pointer) throw CNullReferenceException("vesk/base/Ref", __LINE__);
    return *m_pointer;
  }
  ///@}

  /// The object, or null; never throws.
  T* Get() const { return m_pointer; }
  /// True for an empty handle.
  bool IsNull() const { return m_pointer == nullptr; }
  /// Number of handles sharing the object (0 for an empty handle).
  unsigned int GetRefCount() const { return m_record ? m_record->m_count : 0; }

  ///@{
  /// Comparison with vesk::null: whether the handle is empty (or not).
  bool operator==(const CNull&) const { return m_pointer == nullptr; }
  bool operator!=(const CNull&) const { return m_pointer != nullptr; }
  ///@}
  ///@{
  /// Whether both handles point at the same object (or not); two empty
  /// handles are equal.
  template <class U>
  bool operator==(const CRef<U>& other) const {
    return m_pointer == other.Get();
  }
  template <class U>
  bool operator!=(const CRef<U>& other) const {
    return m_pointer != other.Get();
  }
  ///@}

 private:
  template <class U>
  friend class CRef;

  static void Destroy(void* object) { delete static_cast<T*>(object); }

  template <class U>
  static T* Convert(U* p) {
    if constexpr (std::is_convertible<U*, T*>::value) {
      return p;
    } else {
      return dynamic_cast<T*>(p);
    }
  }

  void Swap(CRef& other) {
    CRefCountedPtr* record = m_record;
    T* pointer = m_pointer;
    m_record = other.m_record;
    m_pointer = other.m_pointer;
    other.m_record = record;
    other.m_pointer = pointer;
  }

  // A count already at 0 stays 0 and releases nothing.
  void Release() {
    CRefCountedPtr* record = m_record;
    m_record = nullptr;
    m_pointer = nullptr;
    if (!record || record->m_count == 0) return;
    if (--record->m_count != 0) return;
    if (record->m_owns) {
      try {
        record->m_deleter(record->m_pointer);
      } catch (...) {
        // an exception from the object's destructor is discarded
      }
    }
    record->~CRefCountedPtr();
    FreeRefRecord(record);
  }

  CRefCountedPtr* m_record;
  T* m_pointer;
};

}  // namespace base
}  // namespace vesk

#endif
