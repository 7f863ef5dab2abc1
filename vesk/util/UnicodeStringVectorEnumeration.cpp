#include "vesk/util/UnicodeStringVectorEnumeration.h"

#include "vesk/platform/Throw.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/internal/StringArray.h"

namespace vesk {
namespace util {

CUnicodeStringVectorEnumeration::CUnicodeStringVectorEnumeration(const CUnicodeStringVector* vector)
    : m_vector(vector), m_index(-1) {}

bool CUnicodeStringVectorEnumeration::HasMoreElements() const {
  return internal::EnumerationHasMore(m_index, m_vector->GetSize());
}

vesk::base::CUnicodeString& CUnicodeStringVectorEnumeration::GetNextElement() {
  if (!internal::StepEnumeration(m_index, m_vector->GetSize()))
    VESK_THROW("vesk/util/UnicodeStringVectorEnumeration", CNoSuchElementException);
  // The enumeration hands out the vector's own element, as the vector does.
  return const_cast<CUnicodeStringVector*>(m_vector)->GetElementAt(
      static_cast<unsigned int>(m_index));
}

}  // namespace util
}  // namespace vesk
