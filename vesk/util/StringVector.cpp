#include "vesk/util/StringVector.h"

#include "vesk/util/StringVectorEnumeration.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {

using vesk::base::CString;

namespace {
const char* const kSource = "vesk/util/StringVector";
}

// The members seen through the implementation the two string vectors share.
// Const members only read through it.
#define VESK_BODY_OF(vector)                   \
  (internal::CStringVectorBody<CString, char>{ \
      (vector).m_elements, (vector).m_size, (vector).m_capacity, (vector).m_growthStep, kSource})
#define VESK_BODY VESK_BODY_OF(*const_cast<CStringVector*>(this))

CStringVector::CStringVector(unsigned int initialCapacity, unsigned int growthStep) {
  VESK_BODY.Init(initialCapacity, growthStep, __LINE__);
}

// A failed copy leaves the vector empty, and the finished delegated
// constructor then lets the destructor run.
CStringVector::CStringVector(const CStringVector& other) : CStringVector(0, other.m_growthStep) {
  VESK_BODY.CopyFrom(other.m_elements, other.m_size, __LINE__);
}

CStringVector& CStringVector::operator=(const CStringVector& other) {
  if (this == &other) return *this;
  CStringVector copy(other);
  VESK_BODY.Swap(VESK_BODY_OF(copy));
  return *this;
}

CStringVector::~CStringVector() { VESK_BODY.Destroy(); }

void CStringVector::CheckIndex(unsigned int index, int line) const {
  internal::CheckIndex(index, m_size, kSource, line);
}

void CStringVector::AddElement(const char* text) { VESK_BODY.Insert(text, m_size, __LINE__); }

void CStringVector::InsertElementAt(const char* text, unsigned int index) {
  VESK_BODY.Insert(text, index, __LINE__);
}

void CStringVector::SetElementAt(const char* text, unsigned int index) {
  VESK_BODY.Set(text, index, __LINE__);
}

CString& CStringVector::GetElementAt(unsigned int index) { return VESK_BODY.At(index, __LINE__); }

const CString& CStringVector::GetElementAt(unsigned int index) const {
  return VESK_BODY.At(index, __LINE__);
}

bool CStringVector::Contains(const char* text) const { return VESK_BODY.Contains(text, __LINE__); }

int CStringVector::GetIndexOf(const char* text) const { return VESK_BODY.IndexOf(text, false); }

int CStringVector::GetLastIndexOf(const char* text) const { return VESK_BODY.IndexOf(text, true); }

void CStringVector::RemoveElement(const char* text) { VESK_BODY.RemoveFirst(text); }

void CStringVector::RemoveElementAt(unsigned int index) { VESK_BODY.RemoveAt(index, __LINE__); }

void CStringVector::RemoveAllElements() { VESK_BODY.RemoveAll(); }

void CStringVector::EnsureCapacity(unsigned int n) { VESK_BODY.Ensure(n, __LINE__); }

void CStringVector::TrimToSize() { VESK_BODY.Trim(); }

void CStringVector::Sort(int (*compare)(const void*, const void*)) {
  VESK_BODY.Sort(compare, __LINE__);
}

CEnumeration<CString> CStringVector::GetElements() const {
  return CEnumeration<CString>(VESK_NEW CStringVectorEnumeration(this));
}

bool CStringVector::operator==(const CStringVector& other) const {
  return VESK_BODY.Equals(other.m_elements, other.m_size);
}

#undef VESK_BODY_OF
#undef VESK_BODY

}  // namespace util
}  // namespace vesk
