/// \file
/// IComparable: the comparison contract. The library has no implementation
/// of it; objects that cannot be compared throw CIllegalComparisonException.
#ifndef VESK_BASE_ICOMPARABLE_H
#define VESK_BASE_ICOMPARABLE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

class CObject;

/// Ordering of objects: negative, zero or positive like strcmp.
class VESK_API IComparable {
 public:
  IComparable() {}
  virtual ~IComparable() {}
  virtual int CompareTo(const CObject* other) const = 0;
};

}  // namespace base
}  // namespace vesk

#endif
