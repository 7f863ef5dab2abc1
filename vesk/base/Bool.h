/// \file
/// CBool: the library's canonical text for boolean values.
#ifndef VESK_BASE_BOOL_H
#define VESK_BASE_BOOL_H

#include "vesk/base/Object.h"

namespace vesk {
namespace base {

/// The texts "true" and "false" in both widths, with their published
/// character counts. WCC_TRUE is 5 although "true" has four characters:
/// callers use the counts as published, so the value stays.
class VESK_API CBool : public CObject {
  VESK_DECLARE_CLASS(CBool);

  /// "true".
  static const char* const SZ_TRUE;
  /// "false".
  static const char* const SZ_FALSE;
  /// Characters in SZ_TRUE: 4.
  static constexpr unsigned int CC_TRUE = 4;
  /// Characters in SZ_FALSE: 5.
  static constexpr unsigned int CC_FALSE = 5;
  /// "true" in 16-bit units.
  static const unsigned short* const WSZ_TRUE;
  /// "false" in 16-bit units.
  static const unsigned short* const WSZ_FALSE;
  /// The published count for WSZ_TRUE: 5 (see the class note).
  static constexpr unsigned int WCC_TRUE = 5;
  /// Characters in WSZ_FALSE: 5.
  static constexpr unsigned int WCC_FALSE = 5;

  /// SZ_TRUE or SZ_FALSE.
  static const char* ToString(bool value) { return value ? SZ_TRUE : SZ_FALSE; }
  /// WSZ_TRUE or WSZ_FALSE.
  static const unsigned short* ToUnicodeString(bool value) { return value ? WSZ_TRUE : WSZ_FALSE; }
};

}  // namespace base
}  // namespace vesk

#endif
