#include "vesk/util/StringVectorEnumeration.h"

#include "vesk/platform/Throw.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {

CStringVectorEnumeration::CStringVectorEnumeration(const CStringVector* vector)
    : m_vector(vector), m_index(-1) {}

bool CStringVectorEnumeration::HasMoreElements() const {
  return internal::EnumerationHasMore(m_index, m_vector->GetSize());
}

vesk::base::CString& CStringVectorEnumeration::GetNextElement() {
  if (!internal::StepEnumeration(m_index, m_vector->GetSize()))
    VESK_THROW("vesk/util/StringVectorEnumeration", CNoSuchElementException);
  // The enumeration hands out the vector's own element, as the vector does.
  return const_cast<CStringVector*>(m_vector)->GetElementAt(static_cast<unsigned int>(m_index));
}

}  // namespace util
}  // namespace vesk
