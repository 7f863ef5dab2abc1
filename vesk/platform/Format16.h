/// \file
/// A bounded printf into 16-bit text. The host's wide printf works on wchar_t,
/// which is 32 bits wide on POSIX, so 16-bit formatting is done here: the
/// directives are parsed unit by unit, numbers are printed by the narrow
/// vsnprintf one conversion at a time and widened.
///
/// Conversions follow the C printf family, with the string and character rules
/// of a 16-bit wide printf: `%s` and `%c` take 16-bit text (a NUL-terminated
/// `unsigned short` array, a unit passed as int); `%hs`, `%S`, `%hc` and `%C`
/// take narrow (UTF-8) text; `%ls`, `%ws`, `%lc`, `%wc` are 16-bit as well.
/// Length modifiers are those of C99 plus `I64`, `I32` and `I`.
#ifndef VESK_PLATFORM_FORMAT16_H
#define VESK_PLATFORM_FORMAT16_H

#include <cstdarg>
#include <cstddef>

#include "vesk/base/Export.h"

namespace vesk {
namespace platform {

/// Formats into buffer, writing at most size - 1 units and a terminating zero
/// (nothing at all when size is 0). Returns the number of units the whole
/// result needs, terminator excluded, so a result of size - 1 or more means
/// the buffer was full. Returns -1 only when a scratch block for a very long
/// single conversion cannot be allocated. A null format formats nothing.
VESK_API int Utf16VFormat(unsigned short* buffer, std::size_t size, const unsigned short* format,
                          std::va_list args) noexcept;

/// Utf16VFormat with variable arguments.
VESK_API int Utf16Format(unsigned short* buffer, std::size_t size, const unsigned short* format,
                         ...) noexcept;

}  // namespace platform
}  // namespace vesk

#endif
