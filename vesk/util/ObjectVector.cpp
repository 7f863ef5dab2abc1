#include "vesk/util/ObjectVector.h"

#include <cstdlib>
#include <cstring>

#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/platform/Throw.h"
#include "vesk/util/internal/SlotArray.h"

namespace vesk {
namespace util {

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CMemoryException;
using vesk::base::CObject;

namespace {
const char* const kSource = "vesk/util/ObjectVector";
const unsigned int kDefaultStep = 10;
}  // namespace

CObjectVector::CObjectVector(unsigned int initialCapacity, unsigned int growthStep)
    : m_elements(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(growthStep == 0 ? kDefaultStep : growthStep) {
  AllocBuffer(initialCapacity);
}

CObjectVector::CObjectVector(const CObjectVector& other)
    : CBase(other),
      m_elements(nullptr),
      m_size(0),
      m_capacity(0),
      m_growthStep(other.m_growthStep) {
  CopyFrom(other);
}

CObjectVector& CObjectVector::operator=(const CObjectVector& other) {
  if (this == &other) return *this;
  DeleteAll();
  internal::FreeSlots(m_elements, m_capacity);
  m_growthStep = other.m_growthStep;
  CopyFrom(other);
  return *this;
}

CObjectVector::~CObjectVector() {
  DeleteAll();
  internal::FreeSlots(m_elements, m_capacity);
}

// Called on an empty vector without storage.
void CObjectVector::CopyFrom(const CObjectVector& other) {
  AllocBuffer(other.m_size);
  try {
    for (unsigned int i = 0; i < other.m_size; ++i) {
      CObject* copy = other.m_elements[i]->Clone();
      // An element that cannot be cloned would leave a null slot.
      if (!copy) VESK_THROW(kSource, CMemoryException);
      m_elements[m_size++] = copy;
    }
  } catch (...) {
    DeleteAll();
    internal::FreeSlots(m_elements, m_capacity);
    throw;
  }
}

void CObjectVector::DeleteAll() {
  // Each element leaves the array before it is deleted, so a destructor that
  // looks at the vector never sees a dangling slot.
  while (m_size > 0) {
    CObject* element = m_elements[--m_size];
    delete element;
  }
}

CObject* CObjectVector::GetElementAt(unsigned int index) const {
  if (index >= m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  return m_elements[index];
}

int CObjectVector::GetIndexOf(const CObject* object) const {
  if (!object) VESK_THROW(kSource, CIllegalArgumentException, "Invalid object.");
  for (unsigned int i = 0; i < m_size; ++i) {
    if (m_elements[i] == object || m_elements[i]->Equals(object)) return static_cast<int>(i);
  }
  return -1;
}

int CObjectVector::GetLastIndexOf(const CObject* object) const {
  if (!object) VESK_THROW(kSource, CIllegalArgumentException, "Invalid object.");
  for (unsigned int i = m_size; i-- > 0;) {
    if (m_elements[i] == object || m_elements[i]->Equals(object)) return static_cast<int>(i);
  }
  return -1;
}

void CObjectVector::SetElementAt(CObject* object, unsigned int index) {
  if (!object) VESK_THROW(kSource, CIllegalArgumentException, "Invalid object.");
  if (index >= m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  CObject* old = m_elements[index];
  m_elements[index] = object;
  if (old != object) delete old;
}

void CObjectVector::AddElement(CObject* object) {
  if (!object) VESK_THROW(kSource, CIllegalArgumentException, "Invalid object.");
  EnsureCapacity(m_size + 1);
  m_elements[m_size++] = object;
}

void CObjectVector::InsertElementAt(CObject* object, unsigned int index) {
  if (!object) VESK_THROW(kSource, CIllegalArgumentException, "Invalid object.");
  if (index > m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  EnsureCapacity(m_size + 1);
  std::memmove(m_elements + index + 1, m_elements + index, (m_size - index) * sizeof(CObject*));
  m_elements[index] = object;
  ++m_size;
}

void CObjectVector::Remove(unsigned int index, bool destroy) {
  CObject* element = m_elements[index];
  std::memmove(m_elements + index, m_elements + index + 1,
               (m_size - index - 1) * sizeof(CObject*));
  --m_size;
  internal::CompactSlots(m_elements, m_size, m_capacity, m_growthStep);
  if (destroy) delete element;
}

void CObjectVector::RemoveElement(const CObject* object) {
  int index = GetIndexOf(object);
  if (index >= 0) Remove(static_cast<unsigned int>(index), true);
}

void CObjectVector::RemoveElementAt(unsigned int index) {
  if (index >= m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  Remove(index, true);
}

void CObjectVector::RemoveAllElements() {
  DeleteAll();
  internal::CompactSlots(m_elements, m_size, m_capacity, m_growthStep);
}

CObject* CObjectVector::DetachElement(const CObject* object) {
  if (!object) VESK_THROW(kSource, CIllegalArgumentException, "Invalid object.");
  int index = GetIndexOf(object);
  if (index < 0) return nullptr;
  CObject* element = m_elements[index];
  Remove(static_cast<unsigned int>(index), false);
  return element;
}

CObject* CObjectVector::DetachElementAt(unsigned int index) {
  if (index >= m_size) VESK_THROW(kSource, CArrayIndexOutOfBoundsException);
  CObject* element = m_elements[index];
  Remove(index, false);
  return element;
}

void CObjectVector::DetachAllElements() {
  m_size = 0;
  internal::CompactSlots(m_elements, m_size, m_capacity, m_growthStep);
}

void CObjectVector::EnsureCapacity(unsigned int n) {
  internal::EnsureSlots(m_elements, m_capacity, n, m_growthStep, kSource, __LINE__);
}

void CObjectVector::AllocBuffer(unsigned int n) {
  internal::AllocSlots(m_elements, m_capacity, n, m_growthStep, kSource, __LINE__);
}

void CObjectVector::CompactBuffer() {
  internal::CompactSlots(m_elements, m_size, m_capacity, m_growthStep);
}

void CObjectVector::TrimToSize() { internal::TrimSlots(m_elements, m_size, m_capacity); }

void CObjectVector::Sort(int (*compare)(const void*, const void*)) {
  if (!compare) VESK_THROW(kSource, CIllegalArgumentException, "Invalid compare function.");
  if (m_size > 1) std::qsort(m_elements, m_size, sizeof(CObject*), compare);
}

}  // namespace util
}  // namespace vesk
