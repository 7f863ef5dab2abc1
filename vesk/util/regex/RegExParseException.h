/// \file
/// vesk::util::regex::CRegExParseException
#ifndef VESK_UTIL_REGEX_REGEXPARSEEXCEPTION_H
#define VESK_UTIL_REGEX_REGEXPARSEEXCEPTION_H

#include "vesk/base/Exception.h"
#include "vesk/base/ExceptionClass.h"

namespace vesk {
namespace util {
namespace regex {

/// Exception class vesk::util::regex::CRegExParseException (base vesk::base::CException).
VESK_DECLARE_EXCEPTION(CRegExParseException, vesk::base::CException, DescriptionMessage);

}  // namespace regex
}  // namespace util
}  // namespace vesk

#endif
