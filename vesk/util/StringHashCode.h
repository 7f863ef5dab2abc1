/// \file
/// The hash functions shared by the hashtables: the string hash (also used by
/// the class registry) and its companions for strings and integers.
#ifndef VESK_UTIL_STRINGHASHCODE_H
#define VESK_UTIL_STRINGHASHCODE_H

#include "vesk/base/Export.h"

namespace vesk {
namespace base {
class CString;
class CUnicodeString;
}  // namespace base

namespace util {

/// Hash of a NUL-terminated text over its unsigned bytes, in wrapping 32-bit
/// arithmetic: below 16 bytes h = h * 37 + c for every byte; from 16 bytes on
/// only every (length / 8)th byte is taken, with h = h * 39 + c. Null and ""
/// hash to 0.
VESK_API int GetStringHashCode(const char* text);
/// Same value as GetStringHashCode of the string's text.
VESK_API int GetCStringHashCode(const vesk::base::CString& text);
/// The same rule over the 16-bit units of the string.
VESK_API int GetCUnicodeStringHashCode(const vesk::base::CUnicodeString& text);
///@{
/// The value itself (folded to 32 bits).
inline int GetLongHashCode(long value) { return static_cast<int>(value); }
inline int GetUnsignedLongHashCode(unsigned long value) { return static_cast<int>(value); }
///@}

///@{
/// Overloads through which the generic hashtable finds the hash of a key.
inline int GetHashCodeOf(const char* text) { return GetStringHashCode(text); }
inline int GetHashCodeOf(const vesk::base::CString& text) { return GetCStringHashCode(text); }
inline int GetHashCodeOf(const vesk::base::CUnicodeString& text) {
  return GetCUnicodeStringHashCode(text);
}
inline int GetHashCodeOf(long value) { return GetLongHashCode(value); }
inline int GetHashCodeOf(unsigned long value) { return GetUnsignedLongHashCode(value); }
inline int GetHashCodeOf(int value) { return value; }
inline int GetHashCodeOf(unsigned int value) { return static_cast<int>(value); }
///@}

}  // namespace util
}  // namespace vesk

#endif
