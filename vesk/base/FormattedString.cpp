#include "vesk/base/FormattedString.h"

#include <cstdarg>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace base {

CFormattedString::CFormattedString(const char* format, ...) {
  if (!format || !*format)
    VESK_THROW("vesk/base/FormattedString", CIllegalArgumentException, "Invalid format string.");
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
