/// \file
/// vesk::util::regex::CRegExParseException
#ifndef VESK_UTIL_REGEX_REGEXPARSEEXCEPTION_H
#define VESK_UTIL_REGEX_REGEXPARSEEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace util {
namespace regex {

/// A pattern that does not compile (class vesk::util::regex::CRegExParseException,
/// base vesk::base::CException).
class VESK_API CRegExParseException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CRegExParseException);

  /// The message is the library's resource format filled with the pattern
  /// and, when given, the parser's message, for example
  /// `Invalid regular expression "(a": ')' expected.`; when no text results
  /// (no resource, no memory) it is "Invalid regular expression.". There is
  /// no description. Never throws for lack of memory.
  CRegExParseException(const char* sourceFile, unsigned int sourceLine, const char* pattern = nullptr,
                       const char* parserMessage = nullptr);
};

}  // namespace regex
}  // namespace util
}  // namespace vesk

#endif
