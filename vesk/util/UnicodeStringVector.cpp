#include "vesk/util/UnicodeStringVector.h"

#include "vesk/util/UnicodeStringVectorEnumeration.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {

using vesk::base::CUnicodeString;

namespace {
const char* const kSource = "vesk/util/UnicodeStringVector";
}

// The members seen through the implementation the two string vectors share.
// Const members only read through it.
#define VESK_BODY_OF(vector)                                    \
  (internal::CStringVectorBody<CUnicodeString, unsigned short>{ \
      (vector).m_elements, (vector).m_size, (vector).m_capacity, (vector).m_growthStep, kSource})
#define VESK_BODY VESK_BODY_OF(*const_cast<CUnicodeStringVector*>(this))

CUnicodeStringVector::CUnicodeStringVector(unsigned int initialCapacity, unsigned int growthStep) {
  VESK_BODY.Init(initialCapacity, growthStep, __LINE__);
}

// A failed copy leaves the vector empty, and the finished delegated
// constructor then lets the destructor run.
CUnicodeStringVector::CUnicodeStringVector(const CUnicodeStringVector& other)
    : CUnicodeStringVector(0, other.m_growthStep) {
  VESK_BODY.CopyFrom(other.m_elements, other.m_size, __LINE__);
}

CUnicodeStringVector& CUnicodeStringVector::operator=(const CUnicodeStringVector& other) {
  if (this == &other) return *this;
  CUnicodeStringVector copy(other);
  VESK_BODY.Swap(VESK_BODY_OF(copy));
  return *this;
}

CUnicodeStringVector::~CUnicodeStringVector() { VESK_BODY.Destroy(); }

void CUnicodeStringVector::CheckIndex(unsigned int index, int line) const {
  internal::CheckIndex(index, m_size, kSource, line);
}

void CUnicodeStringVector::AddElement(const unsigned short* text) {
  VESK_BODY.Insert(text, m_size, __LINE__);
}

void CUnicodeStringVector::InsertElementAt(const unsigned short* text, unsigned int index) {
  VESK_BODY.Insert(text, index, __LINE__);
}

void CUnicodeStringVector::SetElementAt(const unsigned short* text, unsigned int index) {
  VESK_BODY.Set(text, index, __LINE__);
}

CUnicodeString& CUnicodeStringVector::GetElementAt(unsigned int index) {
  return VESK_BODY.At(index, __LINE__);
}

const CUnicodeString& CUnicodeStringVector::GetElementAt(unsigned int index) const {
  return VESK_BODY.At(index, __LINE__);
}

bool CUnicodeStringVector::Contains(const unsigned short* text) const {
  return VESK_BODY.Contains(text, __LINE__);
}

int CUnicodeStringVector::GetIndexOf(const unsigned short* text) const {
  return VESK_BODY.IndexOf(text, false);
}

int CUnicodeStringVector::GetLastIndexOf(const unsigned short* text) const {
  return VESK_BODY.IndexOf(text, true);
}

void CUnicodeStringVector::RemoveElement(const unsigned short* text) {
  VESK_BODY.RemoveFirst(text);
}

void CUnicodeStringVector::RemoveElementAt(unsigned int index) {
  VESK_BODY.RemoveAt(index, __LINE__);
}

void CUnicodeStringVector::RemoveAllElements() { VESK_BODY.RemoveAll(); }

void CUnicodeStringVector::EnsureCapacity(unsigned int n) { VESK_BODY.Ensure(n, __LINE__); }

void CUnicodeStringVector::TrimToSize() { VESK_BODY.Trim(); }

void CUnicodeStringVector::Sort(int (*compare)(const void*, const void*)) {
  VESK_BODY.Sort(compare, __LINE__);
}

CEnumeration<CUnicodeString> CUnicodeStringVector::GetElements() const {
  return CEnumeration<CUnicodeString>(VESK_NEW CUnicodeStringVectorEnumeration(this));
}

bool CUnicodeStringVector::operator==(const CUnicodeStringVector& other) const {
  return VESK_BODY.Equals(other.m_elements, other.m_size);
}

#undef VESK_BODY_OF
#undef VESK_BODY

}  // namespace util
}  // namespace vesk
