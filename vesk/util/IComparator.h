/// \file
/// IComparator: an ordering of fixed-width records, for vesk::util::qsort.
#ifndef VESK_UTIL_ICOMPARATOR_H
#define VESK_UTIL_ICOMPARATOR_H

#include "vesk/base/Export.h"

namespace vesk {
namespace util {

/// Compares two records given by their addresses: negative when a sorts
/// before b, 0 when they are equal, positive otherwise.
class VESK_API IComparator {
 public:
  /// Virtual: comparators may be deleted through the interface.
  virtual ~IComparator() {}
  /// Negative, 0 or positive as the record at a sorts before, with or after
  /// the one at b.
  virtual int Compare(const void* a, const void* b) const = 0;
};

}  // namespace util
}  // namespace vesk

#endif
