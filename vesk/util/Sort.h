/// \file
/// vesk::util::qsort: in-place sort of fixed-width records ordered by an
/// IComparator object (where the runtime's qsort takes a function pointer).
#ifndef VESK_UTIL_SORT_H
#define VESK_UTIL_SORT_H

#include <cstddef>

#include "vesk/base/Export.h"
#include "vesk/util/IComparator.h"

namespace vesk {
namespace util {

/// Sorts count records of width bytes at base. Not stable. Worst case
/// O(n log n) comparisons. Records are moved bytewise, so they must not
/// point into themselves.
VESK_API void qsort(void* base, std::size_t count, std::size_t width,
                    const IComparator& comparator);

}  // namespace util
}  // namespace vesk

#endif
