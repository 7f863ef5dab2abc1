/// \file
/// CXMLAttributeList: the attributes of a start element, in document order.
#ifndef VESK_IO_XMLATTRIBUTELIST_H
#define VESK_IO_XMLATTRIBUTELIST_H

#include "vesk/base/Base.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/io/XMLAttribute.h"

namespace vesk {
namespace io {

namespace internal {
class CXMLTextTokenizer;
}

/// An ordered list of attribute records as a reader found them. Duplicates
/// are kept; every lookup scans from the first record and answers the first
/// match. Names compare exactly, unit by unit. Capacity grows in multiples of
/// ten records; a failed allocation throws CMemoryException and leaves the
/// list as it was.
///
/// Lookups throw CXMLException (source "vesk/io/XMLAttributeList"): a null or
/// empty qualified name "Invalid qualified name.", a null or empty namespace
/// URI "Invalid namespace URI." (checked before the local name), a null or
/// empty local name "Invalid local name.", and Get without a match "No such
/// attribute.". Contains answers false for "not found". An attribute without
/// namespace is found by its qualified name only, since an empty URI is
/// refused.
class VESK_API CXMLAttributeList : public vesk::base::CBase {
 public:
  /// An empty list; nothing is allocated until the first Add.
  CXMLAttributeList();
  /// A copy of other's records (the strings are shared, not copied);
  /// CMemoryException when the array cannot be allocated.
  CXMLAttributeList(const CXMLAttributeList& other);
  /// Replaces the records by a copy of other's; on failure the list is
  /// unchanged.
  CXMLAttributeList& operator=(const CXMLAttributeList& other);
  /// Destroys the records and frees the array.
  ~CXMLAttributeList();

  /// Appends a record. A null value is stored as the empty string; an
  /// attribute whose qualified name is null or empty is not added (readers
  /// hand every parser attribute over and empty ones are dropped here).
  void Add(const unsigned short* qualifiedName, const unsigned short* localName,
           const unsigned short* namespaceURI, const unsigned short* value);
  /// Appends a record that shares the given strings instead of copying them
  /// (a reader that hands the same names out again saves a copy of each).
  /// As above, a record whose qualified name is empty is not added.
  void Add(const vesk::base::CUnicodeString& qualifiedName,
           const vesk::base::CUnicodeString& localName,
           const vesk::base::CUnicodeString& namespaceURI, const vesk::base::CUnicodeString& value);

  /// Whether some record has this qualified name.
  bool Contains(const unsigned short* qualifiedName) const;
  /// Whether some record has this local name and namespace URI.
  bool Contains(const unsigned short* namespaceURI, const unsigned short* localName) const;
  /// The value of the first record with this qualified name.
  const vesk::base::CUnicodeString& Get(const unsigned short* qualifiedName) const;
  /// The value of the first record with this local name and namespace URI.
  const vesk::base::CUnicodeString& Get(const unsigned short* namespaceURI,
                                        const unsigned short* localName) const;

  /// Number of records.
  unsigned int GetCount() const { return m_count; }
  /// The record at index; CArrayIndexOutOfBoundsException (source
  /// "vesk/util/Vector") when index >= GetCount().
  const CXMLAttribute& GetAt(unsigned int index) const;

 private:
  /// The XML reader empties the list of a token it fills again.
  friend class internal::CXMLTextTokenizer;
  /// Slots the list holds.
  unsigned int GetSlotCount() const { return m_capacity; }

  /// Index of the first match, -1 when none; throws the argument messages.
  int IndexOf(const unsigned short* qualifiedName) const;
  int IndexOf(const unsigned short* namespaceURI, const unsigned short* localName) const;
  const vesk::base::CUnicodeString& ValueAt(int index) const;
  void Clear();

  CXMLAttribute* m_attributes;
  unsigned int m_count;
  unsigned int m_capacity;
};

}  // namespace io
}  // namespace vesk

#endif
