/// \file
/// CUnicodeStringVectorEnumeration: the pass that CUnicodeStringVector::GetElements hands out.
#ifndef VESK_UTIL_UNICODESTRINGVECTORENUMERATION_H
#define VESK_UTIL_UNICODESTRINGVECTORENUMERATION_H

#include "vesk/util/Enumeration.h"
#include "vesk/util/UnicodeStringVector.h"

namespace vesk {
namespace util {

/// Walks a CUnicodeStringVector from its first element. The vector must outlive
/// the enumeration and stay unchanged while it is walked.
class VESK_API CUnicodeStringVectorEnumeration : public IEnumeration<vesk::base::CUnicodeString> {
 public:
  /// Starts before the first element of vector.
  explicit CUnicodeStringVectorEnumeration(const CUnicodeStringVector* vector);
  bool HasMoreElements() const override;
  /// CNoSuchElementException when the last element was already returned.
  vesk::base::CUnicodeString& GetNextElement() override;

 private:
  const CUnicodeStringVector* m_vector;
  int m_index;
};

}  // namespace util
}  // namespace vesk

#endif
