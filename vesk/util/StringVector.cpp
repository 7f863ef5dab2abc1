#include "vesk/util/StringVector.h"

#include <utility>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/StringVectorEnumeration.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CString;

namespace {
const char* const kSource = "vesk/util/StringVector";
}

CStringVector::CStringVector(unsigned int initialCapacity, unsigned int growthStep)
    : m_elements(nullptr), m_size(0), m_capacity(0), m_growthStep(growthStep == 0 ? 10 : growthStep) {
  internal::AllocSlots(m_elements, m_capacity, initialCapacity, m_growthStep, kSource, __LINE__);
}

CStringVector::CStringVector(const CStringVector& other)
    : CBase(other), m_elements(nullptr), m_size(0), m_capacity(0), m_growthStep(other.m_growthStep) {
  internal::CopyStrings(m_elements, m_size, m_capacity, m_growthStep, other.m_elements,
                        other.m_size, kSource, __LINE__);
}

CStringVector& CStringVector::operator=(const CStringVector& other) {
  if (this == &other) return *this;
  CStringVector copy(other);
  std::swap(m_elements, copy.m_elements);
  std::swap(m_size, copy.m_size);
  std::swap(m_capacity, copy.m_capacity);
  std::swap(m_growthStep, copy.m_growthStep);
  return *this;
}

CStringVector::~CStringVector() {
  internal::DestroyStrings(m_elements, m_size);
  internal::FreeSlots(m_elements, m_capacity);
}

void CStringVector::CheckIndex(unsigned int index, int line) const {
  if (index >= m_size) throw CArrayIndexOutOfBoundsException(kSource, static_cast<unsigned>(line));
}

void CStringVector::AddElement(const char* text) {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  internal::InsertString(m_elements, m_size, m_capacity, m_growthStep, m_size, text, kSource,
                         __LINE__);
}

void CStringVector::InsertElementAt(const char* text, unsigned int index) {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  if (index > m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  internal::InsertString(m_elements, m_size, m_capacity, m_growthStep, index, text, kSource,
                         __LINE__);
}

void CStringVector::SetElementAt(const char* text, unsigned int index) {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  CheckIndex(index, __LINE__);
  m_elements[index] = text;
}

CString& CStringVector::GetElementAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  return m_elements[index];
}

const CString& CStringVector::GetElementAt(unsigned int index) const {
  CheckIndex(index, __LINE__);
  return m_elements[index];
}

bool CStringVector::Contains(const char* text) const {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  return internal::FindString(m_elements, m_size, text, false) >= 0;
}

int CStringVector::GetIndexOf(const char* text) const {
  return text ? internal::FindString(m_elements, m_size, text, false) : -1;
}

int CStringVector::GetLastIndexOf(const char* text) const {
  return text ? internal::FindString(m_elements, m_size, text, true) : -1;
}

void CStringVector::RemoveElement(const char* text) {
  int index = GetIndexOf(text);
  if (index >= 0)
    internal::RemoveStringAt(m_elements, m_size, m_capacity, m_growthStep,
                             static_cast<unsigned int>(index));
}

void CStringVector::RemoveElementAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  internal::RemoveStringAt(m_elements, m_size, m_capacity, m_growthStep, index);
}

void CStringVector::RemoveAllElements() {
  internal::DestroyStrings(m_elements, m_size);
  internal::CompactSlots(m_elements, m_size, m_capacity, m_growthStep);
}

void CStringVector::EnsureCapacity(unsigned int n) {
  internal::EnsureSlots(m_elements, m_capacity, n, m_growthStep, kSource, __LINE__);
}

void CStringVector::TrimToSize() { internal::TrimSlots(m_elements, m_size, m_capacity); }

void CStringVector::Sort(int (*compare)(const void*, const void*)) {
  if (!compare) VESK_THROW(kSource, CIllegalArgumentException, "Invalid compare function.");
  internal::SortStrings(m_elements, m_size, compare);
}

CEnumeration<CString> CStringVector::GetElements() const {
  return CEnumeration<CString>(VESK_NEW CStringVectorEnumeration(this));
}

bool CStringVector::operator==(const CStringVector& other) const {
  return internal::EqualStrings(m_elements, m_size, other.m_elements, other.m_size);
}

}  // namespace util
}  // namespace vesk
