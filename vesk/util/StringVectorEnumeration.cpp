#include "vesk/util/StringVectorEnumeration.h"

#include "vesk/platform/Throw.h"
#include "vesk/util/NoSuchElementException.h"

namespace vesk {
namespace util {

CStringVectorEnumeration::CStringVectorEnumeration(const CStringVector* vector)
    : m_vector(vector), m_index(-1) {}

bool CStringVectorEnumeration::HasMoreElements() const {
  return static_cast<long long>(m_index) + 1 < static_cast<long long>(m_vector->GetSize());
}

vesk::base::CString& CStringVectorEnumeration::GetNextElement() {
  if (static_cast<long long>(m_index) >= static_cast<long long>(m_vector->GetSize()) - 1)
    VESK_THROW("vesk/util/StringVectorEnumeration", CNoSuchElementException);
  ++m_index;
  // The enumeration hands out the vector's own element, as the vector does.
  return const_cast<CStringVector*>(m_vector)->GetElementAt(static_cast<unsigned int>(m_index));
}

}  // namespace util
}  // namespace vesk
