/// \file
/// CStringVectorH: strings packed into relocatable memory.
#ifndef VESK_UTIL_STRINGVECTORH_H
#define VESK_UTIL_STRINGVECTORH_H

#include "vesk/base/Base.h"
#include "vesk/base/String.h"

namespace vesk {
namespace util {

/// Keeps its strings one after another, each with its NUL, in one
/// relocatable data buffer, and the byte offset of each string in a
/// relocatable index buffer. Both grow in multiples of their growth steps.
/// When growing either buffer fails during AddElement, the vector is
/// emptied (the other buffer released, count and used bytes set to 0)
/// before the CMemoryException passes on.
class VESK_API CStringVectorH : public vesk::base::CBase {
 public:
  /// A data growth step of 0 becomes 256, an index growth step of 0
  /// becomes 1. Non-zero initial capacities are allocated at once.
  explicit CStringVectorH(unsigned int initialDataCapacity = 0, unsigned int dataGrowthStep = 256,
                          unsigned int initialIndexCapacity = 0,
                          unsigned int indexGrowthStep = 16);
  /// A copy of other's strings and growth steps. A failed allocation leaves
  /// nothing behind and passes CMemoryException on.
  CStringVectorH(const CStringVectorH& other);
  /// Replaces the contents by a copy of other's; on failure nothing changes.
  CStringVectorH& operator=(const CStringVectorH& other);
  /// Releases both buffers.
  ~CStringVectorH();

  /// Number of strings.
  unsigned int GetSize() const { return m_count; }
  /// Whether there are no strings.
  bool IsEmpty() const { return m_count == 0; }
  /// Bytes of the data buffer in use (every string with its NUL).
  unsigned int GetDataSize() const { return m_dataUsed; }
  /// Bytes of the data buffer.
  unsigned int GetDataCapacity() const { return m_dataCapacity; }
  /// The step the data buffer grows in, in bytes.
  unsigned int GetDataGrowthStep() const { return m_dataGrowthStep; }
  /// Offsets the index buffer holds without growing.
  unsigned int GetIndexCapacity() const { return m_indexCapacity; }
  /// The step the index buffer grows in, in offsets.
  unsigned int GetIndexGrowthStep() const { return m_indexGrowthStep; }

  /// Appends a copy of the text (the empty string stores an empty text).
  void AddElement(const vesk::base::CString& text);

  ///@{
  /// A copy of string index; CArrayIndexOutOfBoundsException when
  /// index >= size.
  vesk::base::CString GetElementAt(unsigned int index) const;
  void GetElementAt(unsigned int index, vesk::base::CString& target) const;
  ///@}
  /// GetElementAt(index).
  vesk::base::CString operator[](unsigned int index) const { return GetElementAt(index); }
  ///@{
  /// A copy of the first string (GetElementAt(0)).
  vesk::base::CString GetFirstElement() const { return GetElementAt(0); }
  void GetFirstElement(vesk::base::CString& target) const { GetElementAt(0, target); }
  ///@}
  ///@{
  /// A copy of the last string (GetElementAt(size - 1)).
  vesk::base::CString GetLastElement() const { return GetElementAt(m_count - 1); }
  void GetLastElement(vesk::base::CString& target) const { GetElementAt(m_count - 1, target); }
  ///@}

  /// Whether a string has the text; false for null.
  bool Contains(const char* text) const { return GetIndexOf(text) >= 0; }
  ///@{
  /// First (last) index of a string with the text, else -1 (also for null).
  int GetIndexOf(const char* text) const;
  int GetLastIndexOf(const char* text) const;
  ///@}

  /// Forgets every string and releases both buffers.
  void RemoveAllElements();

  /// Makes room for n bytes of strings (rounded up to the data growth step).
  void EnsureStringDataCapacity(unsigned int n);
  /// Makes room for n offsets (rounded up to the index growth step).
  void EnsureStringIndexCapacity(unsigned int n);
  ///@{
  /// Shrink a buffer to its contents rounded up to its step, at least one
  /// step even when it holds nothing (ReleaseString...Buffer frees it).
  void CompactStringDataBuffer();
  void CompactStringIndexBuffer();
  ///@}
  /// Frees the data buffer; the strings it held are forgotten (the size
  /// becomes 0).
  void ReleaseStringDataBuffer();
  /// Frees the index buffer; the strings are forgotten (the size becomes 0).
  void ReleaseStringIndexBuffer();

 private:
  const char* TextAt(unsigned int index) const;
  void CopyFrom(const CStringVectorH& other);

  unsigned int m_count;
  char** m_data;
  unsigned int m_dataUsed;
  unsigned int m_dataCapacity;
  unsigned int m_dataGrowthStep;
  char** m_index;
  unsigned int m_indexCapacity;
  unsigned int m_indexGrowthStep;
};

}  // namespace util
}  // namespace vesk

#endif
