#include "vesk/util/regex/RegExParseException.h"

namespace vesk {
namespace util {
namespace regex {

VESK_IMPLEMENT_CLASS(CRegExParseException, CRegExParseException, "vesk::util::regex::CRegExParseException", "vesk::base::CException")

CRegExParseException::CRegExParseException(const char* sourceFile, unsigned int sourceLine, const char* errorDescription,
    const char* message)
    : CException(sourceFile, sourceLine, errorDescription, message) {}

}  // namespace regex
}  // namespace util
}  // namespace vesk
