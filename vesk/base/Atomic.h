/// \file
/// 32-bit atomic operations with a full barrier.
#ifndef VESK_BASE_ATOMIC_H
#define VESK_BASE_ATOMIC_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {

/// Adds one to *value; returns the new value.
VESK_API int AtomicIncrement(volatile int* value);
/// Subtracts one from *value; returns the new value.
VESK_API int AtomicDecrement(volatile int* value);
/// Stores exchange in *value when it holds comparand; returns the value
/// found before the operation (equal to comparand when the swap happened).
VESK_API int AtomicCompareAndSwap(volatile int* value, int exchange, int comparand);

}  // namespace base
}  // namespace vesk

#endif
