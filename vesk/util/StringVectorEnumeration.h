/// \file
/// CStringVectorEnumeration: the pass that CStringVector::GetElements hands out.
#ifndef VESK_UTIL_STRINGVECTORENUMERATION_H
#define VESK_UTIL_STRINGVECTORENUMERATION_H

#include "vesk/util/Enumeration.h"
#include "vesk/util/StringVector.h"

namespace vesk {
namespace util {

/// Walks a CStringVector from its first element. The vector must outlive
/// the enumeration and stay unchanged while it is walked.
class VESK_API CStringVectorEnumeration : public IEnumeration<vesk::base::CString> {
 public:
  /// Starts before the first element of vector.
  explicit CStringVectorEnumeration(const CStringVector* vector);
  bool HasMoreElements() const override;
  /// CNoSuchElementException when the last element was already returned.
  vesk::base::CString& GetNextElement() override;

 private:
  const CStringVector* m_vector;
  int m_index;
};

}  // namespace util
}  // namespace vesk

#endif
