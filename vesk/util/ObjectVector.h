/// \file
/// CObjectVector: a growable array of owned CObject pointers.
#ifndef VESK_UTIL_OBJECTVECTOR_H
#define VESK_UTIL_OBJECTVECTOR_H

#include "vesk/base/Object.h"

namespace vesk {
namespace util {

/// An ordered array of CObject pointers that owns what it holds: removing,
/// replacing or destroying deletes the element unless it is detached first.
/// Slots below the size are never null. Capacity moves in multiples of the
/// growth step and shrinks back after every removal.
class VESK_API CObjectVector : public vesk::base::CBase {
 public:
  /// A non-zero initial capacity is allocated at once. A growth step of 0 is
  /// taken as 10.
  explicit CObjectVector(unsigned int initialCapacity = 0, unsigned int growthStep = 10);
  /// Deep copy: every element of other is cloned. When a clone fails with
  /// CMemoryException the copies made so far are deleted first.
  CObjectVector(const CObjectVector& other);
  /// Deletes the current elements, then clones other's, as the copy
  /// constructor does; the growth step is copied too.
  CObjectVector& operator=(const CObjectVector& other);
  /// Deletes every element and frees the array.
  ~CObjectVector();

  /// Number of elements.
  unsigned int GetSize() const { return m_size; }
  /// Whether there are no elements.
  bool IsEmpty() const { return m_size == 0; }
  /// Elements the array holds without growing.
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step the capacity moves in.
  unsigned int GetGrowthStep() const { return m_growthStep; }

  ///@{
  /// The element at index; the vector keeps ownership. Throws
  /// CArrayIndexOutOfBoundsException when index >= size.
  vesk::base::CObject* GetElementAt(unsigned int index) const;
  vesk::base::CObject* operator[](unsigned int index) const { return GetElementAt(index); }
  vesk::base::CObject* GetFirstElement() const { return GetElementAt(0); }
  vesk::base::CObject* GetLastElement() const { return GetElementAt(m_size - 1); }
  ///@}

  ///@{
  /// First (last) index whose element Equals object, else -1.
  int GetIndexOf(const vesk::base::CObject* object) const;
  int GetLastIndexOf(const vesk::base::CObject* object) const;
  ///@}

  /// Deletes the element at index and stores object in its place. Nothing
  /// changes (and object stays the caller's) when index >= size.
  void SetElementAt(vesk::base::CObject* object, unsigned int index);
  /// Appends object; the vector owns it from then on. When the array cannot
  /// grow the object stays the caller's.
  void AddElement(vesk::base::CObject* object);
  /// Inserts object before index (index == size appends).
  void InsertElementAt(vesk::base::CObject* object, unsigned int index);

  /// Deletes and removes the first element that Equals object; nothing when
  /// none does.
  void RemoveElement(const vesk::base::CObject* object);
  /// Deletes and removes the element at index;
  /// CArrayIndexOutOfBoundsException when index >= size.
  void RemoveElementAt(unsigned int index);
  /// Deletes and removes every element.
  void RemoveAllElements();
  /// Remove without deleting: ownership passes back to the caller. The
  /// by-value form returns the detached element, or null when none Equals.
  vesk::base::CObject* DetachElement(const vesk::base::CObject* object);
  /// Removes the element at index without deleting it and returns it;
  /// CArrayIndexOutOfBoundsException when index >= size.
  vesk::base::CObject* DetachElementAt(unsigned int index);
  /// Removes every element without deleting any.
  void DetachAllElements();

  /// Makes room for n elements (rounded up to the growth step).
  void EnsureCapacity(unsigned int n);
  /// Shrinks the array to exactly the size (frees it when empty).
  void TrimToSize();

  /// Sorts with the runtime's quicksort; compare receives pointers to the
  /// slots (CObject* const*). Null raises CIllegalArgumentException.
  void Sort(int (*compare)(const void*, const void*));

 private:
  void AllocBuffer(unsigned int n);
  void CompactBuffer();
  void Remove(unsigned int index, bool destroy);
  void CopyFrom(const CObjectVector& other);
  void DeleteAll();

  vesk::base::CObject** m_elements;
  unsigned int m_size;
  unsigned int m_capacity;
  unsigned int m_growthStep;
};

}  // namespace util
}  // namespace vesk

#endif
