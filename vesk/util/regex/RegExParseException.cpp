#include "vesk/util/regex/RegExParseException.h"

#include "vesk/LoadString.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/internal/ResourceIds.h"

namespace vesk {
namespace util {
namespace regex {

VESK_IMPLEMENT_CLASS(CRegExParseException, CRegExParseException, "vesk::util::regex::CRegExParseException", "vesk::base::CException")

CRegExParseException::CRegExParseException(const char* sourceFile, unsigned int sourceLine, const char* pattern,
    const char* parserMessage)
    : CException(sourceFile, sourceLine, nullptr, nullptr) {
  vesk::base::CString text;
  try {
    bool detailed = parserMessage && *parserMessage;
    vesk::base::CString format;
    if (LoadResourceString(detailed ? IDS_REGEX_PARSE_ERROR : IDS_REGEX_PARSE_ERROR_PATTERN_ONLY, format))
      text.Format(format, pattern ? pattern : "", detailed ? parserMessage : "");
  } catch (const vesk::base::CMemoryException&) {
    text.Empty();  // building an exception never fails for lack of memory
  }
  SetMessage(text.IsEmpty() ? "Invalid regular expression." : static_cast<const char*>(text));
}

}  // namespace regex
}  // namespace util
}  // namespace vesk
