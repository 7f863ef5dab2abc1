#include "vesk/base/FormattedUnicodeString.h"

#include <cstdarg>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

CFormattedUnicodeString::CFormattedUnicodeString(const unsigned short* format, ...) {
  if (!format || !*format)
    VESK_THROW("vesk/base/FormattedUnicodeString", CIllegalArgumentException,
               "Invalid format string.");
  va_list args;
  va_start(args, format);
  try {
    m_text.FormatV(format, args);
  } catch (...) {
    va_end(args);
    throw;
  }
  va_end(args);
}

}  // namespace base
}  // namespace vesk
