/// \file
/// CFormattedString: a narrow string built from a printf-style format in one
/// expression, for a message handed straight to an exception or a stream.
#ifndef VESK_BASE_FORMATTEDSTRING_H
#define VESK_BASE_FORMATTEDSTRING_H

#include "vesk/base/Base.h"
#include "vesk/base/String.h"

namespace vesk {
namespace base {

/// Holds one CString with the formatted text; copies share it as strings do.
class VESK_API CFormattedString : public CBase {
 public:
  /// Formats the arguments as CString::Format does: the result is never cut
  /// short, however long. A null or empty format throws
  /// CIllegalArgumentException ("Invalid format string."); allocation
  /// failures throw CMemoryException.
  CFormattedString(const char* format, ...)
#if defined(__GNUC__)
      __attribute__((format(printf, 2, 3)))
#endif
      ;
  /// A copy sharing other's text.
  CFormattedString(const CFormattedString& other) : CBase(other), m_text(other.m_text) {}
  /// Takes (shares) other's text.
  CFormattedString& operator=(const CFormattedString& other) {
    m_text = other.m_text;
    return *this;
  }
  /// Releases its share of the text.
  ~CFormattedString() {}

  /// The formatted text; valid while this object lives unchanged.
  operator const char*() const { return m_text; }
  /// The formatted text as a string.
  const CString& GetString() const { return m_text; }

 private:
  CString m_text;
};

}  // namespace base
}  // namespace vesk

#endif
