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
  /// Nothing to set up.
  IComparable() {}
  /// Virtual: comparables may be deleted through the interface.
  virtual ~IComparable() {}
  /// Negative, zero or positive as this object orders before, with or after
  /// other.
  virtual int CompareTo(const CObject* other) const = 0;
};

}  // namespace base
}  // namespace vesk

#endif
