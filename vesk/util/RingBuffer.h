/// \file
/// CRingBuffer<T>: the storage behind CStack and CQueue, a circular array
/// that grows and shrinks by the library's growth-step rules.
#ifndef VESK_UTIL_RINGBUFFER_H
#define VESK_UTIL_RINGBUFFER_H

#include <new>
#include <utility>

#include "vesk/base/Base.h"
#include "vesk/base/MemoryException.h"
#include "vesk/util/CollectionMemory.h"

namespace vesk {
namespace util {

/// A double-ended circular array of T. Growth ensures size + 1 rounded up to
/// a multiple of the growth step; after a removal the array shrinks to the
/// size rounded up to the step (at least one step) when that is smaller.
/// Callers check emptiness before removing or peeking.
template <class T>
class CRingBuffer : public vesk::base::CBase {
 public:
  /// source names the throwing file in CMemoryException; a growth step of 0
  /// is taken as 10.
  CRingBuffer(unsigned int initialCapacity, unsigned int growthStep, const char* source)
      : m_elements(nullptr),
        m_head(0),
        m_size(0),
        m_capacity(0),
        m_growthStep(growthStep == 0 ? 10 : growthStep),
        m_source(source) {
    if (initialCapacity > 0) Relocate(RoundUp(initialCapacity));
  }

  /// Copies other's elements in order into an array of their count rounded up
  /// to the step. A failed copy destroys what it made and passes the
  /// exception on.
  CRingBuffer(const CRingBuffer& other)
      : vesk::base::CBase(other),
        m_elements(nullptr),
        m_head(0),
        m_size(0),
        m_capacity(0),
        m_growthStep(other.m_growthStep),
        m_source(other.m_source) {
    if (other.m_size == 0) return;
    m_elements = Allocate(RoundUp(other.m_size));
    m_capacity = RoundUp(other.m_size);
    try {
      for (; m_size < other.m_size; ++m_size) ::new (m_elements + m_size) T(other.At(m_size));
    } catch (...) {
      Clear();
      FreeBlock(m_elements);
      throw;
    }
  }

  /// Replaces the contents by a copy of other's; on failure nothing changes.
  CRingBuffer& operator=(const CRingBuffer& other) {
    if (this != &other) {
      CRingBuffer copy(other);
      Swap(copy);
    }
    return *this;
  }

  /// Destroys the elements and frees the array.
  ~CRingBuffer() {
    Clear();
    FreeBlock(m_elements);
  }

  /// Number of elements.
  unsigned int GetSize() const { return m_size; }
  /// Elements the array holds without growing.
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step the capacity moves in.
  unsigned int GetGrowthStep() const { return m_growthStep; }

  ///@{
  /// Element i counted from the front (0 = the oldest pushed at the back).
  T& At(unsigned int i) { return m_elements[Slot(i)]; }
  const T& At(unsigned int i) const { return m_elements[Slot(i)]; }
  ///@}

  /// Appends a copy of value at the back, growing first when full;
  /// CMemoryException (with the source given at construction) when the array
  /// cannot grow.
  void PushBack(const T& value) {
    if (m_size == m_capacity) {
      unsigned int wanted = RoundUp(m_size + 1);
      if (wanted <= m_size) throw vesk::base::CMemoryException(m_source, __LINE__);
      Relocate(wanted);
    }
    ::new (m_elements + Slot(m_size)) T(value);
    ++m_size;
  }

  /// Removes and returns the back element (the newest); the buffer must not
  /// be empty.
  T PopBack() {
    T& slot = At(m_size - 1);
    T value(std::move(slot));
    slot.~T();
    --m_size;
    Compact();
    return value;
  }

  /// Removes and returns the front element (the oldest); the buffer must not
  /// be empty.
  T PopFront() {
    T& slot = m_elements[m_head];
    T value(std::move(slot));
    slot.~T();
    m_head = m_head + 1 == m_capacity ? 0 : m_head + 1;
    --m_size;
    Compact();
    return value;
  }

  /// Destroys every element; the array shrinks to one step.
  void RemoveAll() {
    Clear();
    Compact();
  }

  /// Exchanges the whole contents with other; never throws.
  void Swap(CRingBuffer& other) {
    std::swap(m_elements, other.m_elements);
    std::swap(m_head, other.m_head);
    std::swap(m_size, other.m_size);
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_growthStep, other.m_growthStep);
    std::swap(m_source, other.m_source);
  }

 private:
  unsigned int Slot(unsigned int i) const {
    unsigned int slot = m_head + i;
    return slot >= m_capacity ? slot - m_capacity : slot;
  }

  unsigned int RoundUp(unsigned int n) const { return RoundUpToStep(n, m_growthStep); }

  T* Allocate(unsigned int count) const {
    void* block = AllocBlock(static_cast<std::size_t>(count) * sizeof(T));
    if (!block) throw vesk::base::CMemoryException(m_source, __LINE__);
    return static_cast<T*>(block);
  }

  void Clear() {
    while (m_size > 0) {
      At(m_size - 1).~T();
      --m_size;
    }
    m_head = 0;
  }

  // Moves the elements, front first, into a new array of capacity slots.
  // On failure the buffer is unchanged and the exception passes on.
  void Relocate(unsigned int capacity) {
    T* elements = Allocate(capacity);
    unsigned int moved = 0;
    try {
      for (; moved < m_size; ++moved) ::new (elements + moved) T(std::move_if_noexcept(At(moved)));
    } catch (...) {
      while (moved > 0) elements[--moved].~T();
      FreeBlock(elements);
      throw;
    }
    for (unsigned int i = 0; i < m_size; ++i) At(i).~T();
    FreeBlock(m_elements);
    m_elements = elements;
    m_head = 0;
    m_capacity = capacity;
  }

  // Shrinking is best effort: when it cannot allocate, the larger array stays.
  void Compact() {
    if (!m_elements) return;
    unsigned int target = RoundUp(m_size);
    if (target < m_growthStep) target = m_growthStep;
    if (target >= m_capacity) return;
    try {
      Relocate(target);
    } catch (...) {
    }
  }

  T* m_elements;
  unsigned int m_head;
  unsigned int m_size;
  unsigned int m_capacity;
  unsigned int m_growthStep;
  const char* m_source;
};

}  // namespace util
}  // namespace vesk

#endif
