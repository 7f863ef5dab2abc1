/// \file
/// vesk::util::regex::CRegExParseException
#ifndef VESK_UTIL_REGEX_REGEXPARSEEXCEPTION_H
#define VESK_UTIL_REGEX_REGEXPARSEEXCEPTION_H

#include "vesk/base/Exception.h"

namespace vesk {
namespace util {
namespace regex {

/// Exception class vesk::util::regex::CRegExParseException (base vesk::base::CException).
class VESK_API CRegExParseException : public vesk::base::CException {
  VESK_DECLARE_CLASS(CRegExParseException);

  CRegExParseException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription = nullptr,
      const char* message = nullptr);
};

}  // namespace regex
}  // namespace util
}  // namespace vesk

#endif
