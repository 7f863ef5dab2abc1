/// \file
/// CStringVector: a growable array of CString values.
#ifndef VESK_UTIL_STRINGVECTOR_H
#define VESK_UTIL_STRINGVECTOR_H

#include "vesk/base/String.h"
#include "vesk/util/Enumeration.h"

namespace vesk {
namespace util {

/// An ordered array of strings with the growth rules of CObjectVector:
/// capacity moves in multiples of the growth step and shrinks back after
/// removals. Searches compare by text.
class VESK_API CStringVector : public vesk::base::CBase {
 public:
  /// A non-zero initial capacity is allocated at once; a growth step of 0 is
  /// taken as 10.
  explicit CStringVector(unsigned int initialCapacity = 0, unsigned int growthStep = 10);
  /// A copy of other's elements and growth step.
  CStringVector(const CStringVector& other);
  /// Replaces the contents by a copy of other's; on failure nothing changes.
  CStringVector& operator=(const CStringVector& other);
  /// Destroys the strings and frees the array.
  ~CStringVector();

  /// Number of elements.
  unsigned int GetSize() const { return m_size; }
  /// Whether there are no elements.
  bool IsEmpty() const { return m_size == 0; }
  /// Elements the array holds without growing.
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step the capacity moves in.
  unsigned int GetGrowthStep() const { return m_growthStep; }

  /// Appends a copy of text; null raises CIllegalArgumentException.
  void AddElement(const char* text);
  /// Inserts before index (index == size appends).
  void InsertElementAt(const char* text, unsigned int index);
  /// Replaces the element at index by a copy of text; null raises
  /// CIllegalArgumentException, index >= size
  /// CArrayIndexOutOfBoundsException.
  void SetElementAt(const char* text, unsigned int index);

  ///@{
  /// The stored string; CArrayIndexOutOfBoundsException when index >= size.
  vesk::base::CString& GetElementAt(unsigned int index);
  const vesk::base::CString& GetElementAt(unsigned int index) const;
  vesk::base::CString& operator[](unsigned int index) { return GetElementAt(index); }
  const vesk::base::CString& operator[](unsigned int index) const { return GetElementAt(index); }
  vesk::base::CString& GetFirstElement() { return GetElementAt(0); }
  const vesk::base::CString& GetFirstElement() const { return GetElementAt(0); }
  vesk::base::CString& GetLastElement() { return GetElementAt(m_size - 1); }
  const vesk::base::CString& GetLastElement() const { return GetElementAt(m_size - 1); }
  ///@}

  /// Whether an element has the text; null raises CIllegalArgumentException.
  bool Contains(const char* text) const;
  ///@{
  /// First (last) index of an element with the text, else -1 (also for null).
  int GetIndexOf(const char* text) const;
  int GetLastIndexOf(const char* text) const;
  ///@}

  /// Removes the first element with the text; nothing when none has it.
  void RemoveElement(const char* text);
  /// Removes the element at index (later ones move up);
  /// CArrayIndexOutOfBoundsException when index >= size.
  void RemoveElementAt(unsigned int index);
  /// Removes every element; the array shrinks back to one growth step.
  void RemoveAllElements();

  /// Makes room for n elements (rounded up to the growth step).
  void EnsureCapacity(unsigned int n);
  /// Shrinks the array to exactly the size (frees it when empty).
  void TrimToSize();

  /// Sorts in place by compare, which receives pointers to strings (const
  /// CString*) and returns a negative, zero or positive order. The order
  /// of equal elements is not promised. Null raises CIllegalArgumentException.
  void Sort(int (*compare)(const void*, const void*));

  /// A pass over the elements (see CStringVectorEnumeration).
  CEnumeration<vesk::base::CString> GetElements() const;

  /// Same size and equal texts at every index.
  bool operator==(const CStringVector& other) const;
  /// Not operator==.
  bool operator!=(const CStringVector& other) const { return !(*this == other); }

 private:
  void CheckIndex(unsigned int index, int line) const;

  vesk::base::CString* m_elements;
  unsigned int m_size;
  unsigned int m_capacity;
  unsigned int m_growthStep;
};

}  // namespace util
}  // namespace vesk

#endif
