/// \file
/// The string hash used by every hashtable and by the class registry.
#ifndef VESK_UTIL_STRINGHASHCODE_H
#define VESK_UTIL_STRINGHASHCODE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace util {

/// Hash of a NUL-terminated text over its unsigned bytes, in wrapping 32-bit
/// arithmetic: below 16 bytes h = h * 37 + c for every byte; from 16 bytes on
/// only every (length / 8)th byte is taken, with h = h * 39 + c. Null and ""
/// hash to 0.
VESK_API int GetStringHashCode(const char* text);

}  // namespace util
}  // namespace vesk

#endif
