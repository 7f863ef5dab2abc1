/// \file
/// CUnicodeStringAccess: ways into CUnicodeString for the library's own
/// code that a client has no use for.
#ifndef VESK_BASE_INTERNAL_UNICODESTRINGACCESS_H
#define VESK_BASE_INTERNAL_UNICODESTRINGACCESS_H

#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace base {
namespace internal {

struct VESK_API CUnicodeStringAccess {
  /// Replaces the text of s by count units of text, which the caller knows
  /// to hold no zero unit (a parser's buffer with its length): nothing scans
  /// them. s's own buffer is filled again when it is private and large
  /// enough.
  static void SetUnits(CUnicodeString& s, const unsigned short* text, unsigned int count);
};

}  // namespace internal
}  // namespace base
}  // namespace vesk

#endif
