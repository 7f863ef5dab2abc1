#include "vesk/util/UnicodeStringVector.h"

#include <utility>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/UnicodeStringVectorEnumeration.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CUnicodeString;

namespace {
const char* const kSource = "vesk/util/UnicodeStringVector";
}

CUnicodeStringVector::CUnicodeStringVector(unsigned int initialCapacity, unsigned int growthStep)
    : m_elements(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(growthStep == 0 ? 10 : growthStep) {
  internal::AllocSlots(m_elements, m_capacity, initialCapacity, m_growthStep, kSource, __LINE__);
}

CUnicodeStringVector::CUnicodeStringVector(const CUnicodeStringVector& other)
    : CBase(other),
      m_elements(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(other.m_growthStep) {
  internal::CopyStrings(m_elements, m_size, m_capacity, m_growthStep, other.m_elements,
                        other.m_size, kSource, __LINE__);
}

CUnicodeStringVector& CUnicodeStringVector::operator=(const CUnicodeStringVector& other) {
  if (this == &other) return *this;
  CUnicodeStringVector copy(other);
  std::swap(m_elements, copy.m_elements);
  std::swap(m_size, copy.m_size);
  std::swap(m_capacity, copy.m_capacity);
  std::swap(m_growthStep, copy.m_growthStep);
  return *this;
}

CUnicodeStringVector::~CUnicodeStringVector() {
  internal::DestroyStrings(m_elements, m_size);
  internal::FreeSlots(m_elements, m_capacity);
}

void CUnicodeStringVector::CheckIndex(unsigned int index, int line) const {
  if (index >= m_size) throw CArrayIndexOutOfBoundsException(kSource, static_cast<unsigned>(line));
}

void CUnicodeStringVector::AddElement(const unsigned short* text) {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  internal::InsertString(m_elements, m_size, m_capacity, m_growthStep, m_size, text, kSource,
                         __LINE__);
}

void CUnicodeStringVector::InsertElementAt(const unsigned short* text, unsigned int index) {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  if (index > m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  internal::InsertString(m_elements, m_size, m_capacity, m_growthStep, index, text, kSource,
                         __LINE__);
}

void CUnicodeStringVector::SetElementAt(const unsigned short* text, unsigned int index) {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  CheckIndex(index, __LINE__);
  m_elements[index] = text;
}

CUnicodeString& CUnicodeStringVector::GetElementAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  return m_elements[index];
}

const CUnicodeString& CUnicodeStringVector::GetElementAt(unsigned int index) const {
  CheckIndex(index, __LINE__);
  return m_elements[index];
}

bool CUnicodeStringVector::Contains(const unsigned short* text) const {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid element.");
  return internal::FindString(m_elements, m_size, text, false) >= 0;
}

int CUnicodeStringVector::GetIndexOf(const unsigned short* text) const {
  return text ? internal::FindString(m_elements, m_size, text, false) : -1;
}

int CUnicodeStringVector::GetLastIndexOf(const unsigned short* text) const {
  return text ? internal::FindString(m_elements, m_size, text, true) : -1;
}

void CUnicodeStringVector::RemoveElement(const unsigned short* text) {
  int index = GetIndexOf(text);
  if (index >= 0)
    internal::RemoveStringAt(m_elements, m_size, m_capacity, m_growthStep,
                             static_cast<unsigned int>(index));
}

void CUnicodeStringVector::RemoveElementAt(unsigned int index) {
  CheckIndex(index, __LINE__);
  internal::RemoveStringAt(m_elements, m_size, m_capacity, m_growthStep, index);
}

void CUnicodeStringVector::RemoveAllElements() {
  internal::DestroyStrings(m_elements, m_size);
  internal::CompactSlots(m_elements, m_size, m_capacity, m_growthStep);
}

void CUnicodeStringVector::EnsureCapacity(unsigned int n) {
  internal::EnsureSlots(m_elements, m_capacity, n, m_growthStep, kSource, __LINE__);
}

void CUnicodeStringVector::TrimToSize() { internal::TrimSlots(m_elements, m_size, m_capacity); }

void CUnicodeStringVector::Sort(int (*compare)(const void*, const void*)) {
  if (!compare) VESK_THROW(kSource, CIllegalArgumentException, "Invalid compare function.");
  internal::SortStrings(m_elements, m_size, compare);
}

CEnumeration<CUnicodeString> CUnicodeStringVector::GetElements() const {
  return CEnumeration<CUnicodeString>(VESK_NEW CUnicodeStringVectorEnumeration(this));
}

bool CUnicodeStringVector::operator==(const CUnicodeStringVector& other) const {
  return internal::EqualStrings(m_elements, m_size, other.m_elements, other.m_size);
}

}  // namespace util
}  // namespace vesk
