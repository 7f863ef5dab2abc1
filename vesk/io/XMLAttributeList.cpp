#include "vesk/io/XMLAttributeList.h"

#include <new>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/io/XMLException.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/internal/SlotArray.h"

namespace vesk {
namespace io {

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CUnicodeString;

namespace {

const char kSource[] = "vesk/io/XMLAttributeList";
const unsigned int kGrowthStep = 10;

inline bool IsEmptyText(const unsigned short* text) { return !text || !*text; }

}  // namespace

CXMLAttributeList::CXMLAttributeList() : m_attributes(nullptr), m_count(0), m_capacity(0) {}

CXMLAttributeList::CXMLAttributeList(const CXMLAttributeList& other)
    : vesk::base::CBase(other), m_attributes(nullptr), m_count(0), m_capacity(0) {
  util::internal::AllocSlots(m_attributes, m_capacity, other.m_count, kGrowthStep, kSource,
                             __LINE__);
  // Records only share their strings' buffers: copying cannot fail here.
  for (; m_count < other.m_count; ++m_count)
    ::new (m_attributes + m_count) CXMLAttribute(other.m_attributes[m_count]);
}

CXMLAttributeList& CXMLAttributeList::operator=(const CXMLAttributeList& other) {
  if (this == &other) return *this;
  CXMLAttributeList copy(other);
  Clear();
  util::internal::FreeSlots(m_attributes, m_capacity);
  m_attributes = copy.m_attributes;
  m_count = copy.m_count;
  m_capacity = copy.m_capacity;
  copy.m_attributes = nullptr;
  copy.m_count = copy.m_capacity = 0;
  return *this;
}

CXMLAttributeList::~CXMLAttributeList() {
  Clear();
  util::internal::FreeSlots(m_attributes, m_capacity);
}

void CXMLAttributeList::Clear() {
  for (unsigned int i = 0; i < m_count; ++i) m_attributes[i].~CXMLAttribute();
  m_count = 0;
}

void CXMLAttributeList::Add(const unsigned short* qualifiedName, const unsigned short* localName,
                            const unsigned short* namespaceURI, const unsigned short* value) {
  if (IsEmptyText(qualifiedName)) return;
  // The record is made before the array grows, so a failure of either
  // leaves the list unchanged. Records move bitwise: a string is a pointer.
  CXMLAttribute record(qualifiedName, localName, namespaceURI, value);
  util::internal::EnsureSlots(m_attributes, m_capacity, m_count + 1, kGrowthStep, kSource,
                              __LINE__);
  ::new (m_attributes + m_count) CXMLAttribute(record);
  ++m_count;
}

void CXMLAttributeList::Add(const CUnicodeString& qualifiedName, const CUnicodeString& localName,
                            const CUnicodeString& namespaceURI, const CUnicodeString& value) {
  if (qualifiedName.IsEmpty()) return;
  // Sharing the strings cannot fail, so only the array can: it grows first.
  util::internal::EnsureSlots(m_attributes, m_capacity, m_count + 1, kGrowthStep, kSource,
                              __LINE__);
  ::new (m_attributes + m_count) CXMLAttribute(qualifiedName, localName, namespaceURI, value);
  ++m_count;
}

const CXMLAttribute& CXMLAttributeList::GetAt(unsigned int index) const {
  if (index >= m_count) VESK_THROW("vesk/util/Vector", CArrayIndexOutOfBoundsException);
  return m_attributes[index];
}

int CXMLAttributeList::IndexOf(const unsigned short* qualifiedName) const {
  if (IsEmptyText(qualifiedName)) VESK_THROW(kSource, CXMLException, "Invalid qualified name.");
  for (unsigned int i = 0; i < m_count; ++i)
    if (m_attributes[i].GetQualifiedName().Compare(qualifiedName) == 0) return static_cast<int>(i);
  return -1;
}

int CXMLAttributeList::IndexOf(const unsigned short* namespaceURI,
                               const unsigned short* localName) const {
  if (IsEmptyText(namespaceURI)) VESK_THROW(kSource, CXMLException, "Invalid namespace URI.");
  if (IsEmptyText(localName)) VESK_THROW(kSource, CXMLException, "Invalid local name.");
  for (unsigned int i = 0; i < m_count; ++i) {
    const CXMLAttribute& a = m_attributes[i];
    if (a.GetLocalName().Compare(localName) == 0 && a.GetNamespaceURI().Compare(namespaceURI) == 0)
      return static_cast<int>(i);
  }
  return -1;
}

// The record is fetched through the checked index access; should that ever
// fail, Get reports it as the list's own failure.
const CUnicodeString& CXMLAttributeList::ValueAt(int index) const {
  if (index < 0) VESK_THROW(kSource, CXMLException, "No such attribute.");
  try {
    return GetAt(static_cast<unsigned int>(index)).GetValue();
  } catch (const CArrayIndexOutOfBoundsException&) {
    VESK_THROW(kSource, CXMLException, "Failed to get the specified attribute of attribute list.");
  }
}

bool CXMLAttributeList::Contains(const unsigned short* qualifiedName) const {
  return IndexOf(qualifiedName) >= 0;
}

bool CXMLAttributeList::Contains(const unsigned short* namespaceURI,
                                 const unsigned short* localName) const {
  return IndexOf(namespaceURI, localName) >= 0;
}

const CUnicodeString& CXMLAttributeList::Get(const unsigned short* qualifiedName) const {
  return ValueAt(IndexOf(qualifiedName));
}

const CUnicodeString& CXMLAttributeList::Get(const unsigned short* namespaceURI,
                                             const unsigned short* localName) const {
  return ValueAt(IndexOf(namespaceURI, localName));
}

}  // namespace io
}  // namespace vesk
