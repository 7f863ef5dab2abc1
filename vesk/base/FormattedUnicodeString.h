/// \file
/// CFormattedUnicodeString: a 16-bit string built from a printf-style 16-bit
/// format in one expression.
#ifndef VESK_BASE_FORMATTEDUNICODESTRING_H
#define VESK_BASE_FORMATTEDUNICODESTRING_H

#include "vesk/base/Base.h"
#include "vesk/base/UnicodeString.h"

namespace vesk {
namespace base {

/// Holds one CUnicodeString with the formatted text; copies share it.
class VESK_API CFormattedUnicodeString : public CBase {
 public:
  /// Formats the arguments as CUnicodeString::Format does: `%s` takes 16-bit
  /// text and `%hs` narrow (UTF-8) text, and the result is never cut short.
  /// A null or empty format throws CIllegalArgumentException ("Invalid
  /// format string."); allocation failures throw CMemoryException.
  CFormattedUnicodeString(const unsigned short* format, ...);
  /// A copy sharing other's text.
  CFormattedUnicodeString(const CFormattedUnicodeString& other)
      : CBase(other), m_text(other.m_text) {}
  /// Takes (shares) other's text.
  CFormattedUnicodeString& operator=(const CFormattedUnicodeString& other) {
    m_text = other.m_text;
    return *this;
  }
  /// Releases its share of the text.
  ~CFormattedUnicodeString() {}

  /// The formatted text (zero-terminated); valid while this object lives
  /// unchanged.
  operator const unsigned short*() const { return m_text; }
  /// The formatted text as a string.
  const CUnicodeString& GetString() const { return m_text; }

 private:
  CUnicodeString m_text;
};

}  // namespace base
}  // namespace vesk

#endif
