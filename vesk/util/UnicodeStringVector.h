/// \file
/// CUnicodeStringVector: a growable array of CUnicodeString values.
#ifndef VESK_UTIL_UNICODESTRINGVECTOR_H
#define VESK_UTIL_UNICODESTRINGVECTOR_H

#include "vesk/base/UnicodeString.h"
#include "vesk/util/Enumeration.h"

namespace vesk {
namespace util {

/// An ordered array of strings with the growth rules of CObjectVector:
/// capacity moves in multiples of the growth step and shrinks back after
/// removals. Searches compare by text.
class VESK_API CUnicodeStringVector : public vesk::base::CBase {
 public:
  /// A non-zero initial capacity is allocated at once; a growth step of 0 is
  /// taken as 10.
  explicit CUnicodeStringVector(unsigned int initialCapacity = 0, unsigned int growthStep = 10);
  /// A copy of other's elements and growth step.
  CUnicodeStringVector(const CUnicodeStringVector& other);
  /// Replaces the contents by a copy of other's; on failure nothing changes.
  CUnicodeStringVector& operator=(const CUnicodeStringVector& other);
  /// Destroys the strings and frees the array.
  ~CUnicodeStringVector();

  /// Number of elements.
  unsigned int GetSize() const { return m_size; }
  /// Whether there are no elements.
  bool IsEmpty() const { return m_size == 0; }
  /// Elements the array holds without growing.
  unsigned int GetCapacity() const { return m_capacity; }
  /// The step the capacity moves in.
  unsigned int GetGrowthStep() const { return m_growthStep; }

  /// Appends a copy of text; null raises CIllegalArgumentException.
  void AddElement(const unsigned short* text);
  /// Inserts before index (index == size appends).
  void InsertElementAt(const unsigned short* text, unsigned int index);
  /// Replaces the element at index by a copy of text; null raises
  /// CIllegalArgumentException, index >= size
  /// CArrayIndexOutOfBoundsException.
  void SetElementAt(const unsigned short* text, unsigned int index);

  ///@{
  /// The stored string; CArrayIndexOutOfBoundsException when index >= size.
  vesk::base::CUnicodeString& GetElementAt(unsigned int index);
  const vesk::base::CUnicodeString& GetElementAt(unsigned int index) const;
  vesk::base::CUnicodeString& operator[](unsigned int index) { return GetElementAt(index); }
  const vesk::base::CUnicodeString& operator[](unsigned int index) const {
    return GetElementAt(index);
  }
  vesk::base::CUnicodeString& GetFirstElement() { return GetElementAt(0); }
  const vesk::base::CUnicodeString& GetFirstElement() const { return GetElementAt(0); }
  vesk::base::CUnicodeString& GetLastElement() { return GetElementAt(m_size - 1); }
  const vesk::base::CUnicodeString& GetLastElement() const { return GetElementAt(m_size - 1); }
  ///@}

  /// Whether an element has the text; null raises CIllegalArgumentException.
  bool Contains(const unsigned short* text) const;
  ///@{
  /// First (last) index of an element with the text, else -1 (also for null).
  int GetIndexOf(const unsigned short* text) const;
  int GetLastIndexOf(const unsigned short* text) const;
  ///@}

  /// Removes the first element with the text; nothing when none has it.
  void RemoveElement(const unsigned short* text);
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
  /// CUnicodeString*) and returns a negative, zero or positive order. The order
  /// of equal elements is not promised. Null raises CIllegalArgumentException.
  void Sort(int (*compare)(const void*, const void*));

  /// A pass over the elements (see CUnicodeStringVectorEnumeration).
  CEnumeration<vesk::base::CUnicodeString> GetElements() const;

  /// Same size and equal texts at every index.
  bool operator==(const CUnicodeStringVector& other) const;
  /// Not operator==.
  bool operator!=(const CUnicodeStringVector& other) const { return !(*this == other); }

 private:
  void CheckIndex(unsigned int index, int line) const;

  vesk::base::CUnicodeString* m_elements;
  unsigned int m_size;
  unsigned int m_capacity;
  unsigned int m_growthStep;
};

}  // namespace util
}  // namespace vesk

#endif
