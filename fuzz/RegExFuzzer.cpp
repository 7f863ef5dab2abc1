// Pattern compile and match on arbitrary input. The first byte picks the
// text form (narrow or 16-bit), the options and whether a range and a match
// record are used; the rest is the pattern, a zero byte, then the text. A
// pattern either compiles or is refused with CIllegalArgumentException or
// CRegExParseException; a match answers, records positions inside the text
// (or -1 for a group that took no part) or fails with CMemoryException
// when the engine fails inside; leaks are LeakSanitizer's to find.
#include <cstdint>
#include <cstring>
#include <string>

#include "FuzzCommon.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/platform/Text.h"
#include "vesk/util/regex/RegEx.h"
#include "vesk/util/regex/RegExParseException.h"

using vesk::base::CIllegalArgumentException;
using vesk::base::CUnicodeString;
using vesk::util::regex::CRegEx;
using vesk::util::regex::CRegExMatch;
using vesk::util::regex::CRegExParseException;

namespace {

const char* const kOptions[] = {nullptr, "i", "m", "s", "x", "X", "iX", "imsx"};

// A recorded position is -1 or within the text, and for narrow text on a
// character boundary.
void CheckPosition(unsigned int pos, const std::string& text, bool wide, std::size_t length) {
  if (pos == 0xFFFFFFFFu) return;
  FUZZ_CHECK(pos <= length);
  if (!wide && pos < length) {
    // walk the characters up to pos: it must be where one begins
    std::size_t at = 0;
    while (at < pos) at += vesk::platform::TextCharLength(text.c_str() + at);
    FUZZ_CHECK(at == pos);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* input, size_t size) {
  if (size < 2) return 0;
  unsigned mode = input[0];
  std::string rest(reinterpret_cast<const char*>(input + 1), size - 1);
  std::size_t cut = rest.find('\0');
  if (cut == std::string::npos) return 0;
  std::string pattern = rest.substr(0, cut);
  std::string text = rest.substr(cut + 1);
  text = text.substr(0, text.find('\0'));
  // Long texts only make the engine's known backtracking costs show; they
  // say nothing about the wrapper.
  if (pattern.size() > 256 || text.size() > 2048) return 0;
  bool wide = mode & 1;
  bool range = mode & 2;
  bool record = mode & 4;
  const char* options = kOptions[(mode >> 3) & 7];

  {
    try {
      CUnicodeString pattern16(pattern.c_str());
      CUnicodeString text16(text.c_str());
      CUnicodeString options16(options);
      CRegEx re = wide ? (options ? CRegEx(static_cast<const unsigned short*>(pattern16),
                                           static_cast<const unsigned short*>(options16))
                                  : CRegEx(static_cast<const unsigned short*>(pattern16)))
                       : (options ? CRegEx(pattern.c_str(), options) : CRegEx(pattern.c_str()));
      std::size_t length = wide ? text16.GetLength() : text.size();
      unsigned int start = 0;
      unsigned int end = static_cast<unsigned int>(length);
      if (range && length > 0) {
        start = (mode >> 6) % (length + 1);
        end = static_cast<unsigned int>(length - (mode >> 6) % 2);
      }
      CRegExMatch match;
      bool hit = false;
      try {
        if (wide) {
          const unsigned short* t = text16;
          hit = range ? (record ? re.Matches(t, start, end, match) : re.Matches(t, start, end))
                      : (record ? re.Matches(t, match) : re.Matches(t));
        } else {
          const char* t = text.c_str();
          hit = range ? (record ? re.Matches(t, start, end, match) : re.Matches(t, start, end))
                      : (record ? re.Matches(t, match) : re.Matches(t));
        }
      } catch (const CIllegalArgumentException&) {
        FUZZ_CHECK(range && !(start < end && end <= length));
      } catch (const vesk::base::CMemoryException&) {
        // the engine failed while matching (a back reference to a group the
        // pattern lacks): reported, not a crash
        return 0;
      }
      if (record && hit) {
        FUZZ_CHECK(match.GetGroupCount() >= 1);
        for (unsigned int g = 0; g < match.GetGroupCount(); ++g) {
          CheckPosition(match.GetStartPosOfGroup(g), text, wide, length);
          CheckPosition(match.GetEndPosOfGroup(g), text, wide, length);
        }
        FUZZ_CHECK(match.GetStartPosOfGroup(0) <= match.GetEndPosOfGroup(0));
      }
    } catch (const CRegExParseException& e) {
      FUZZ_CHECK(e.GetMessage() != nullptr);
    } catch (const CIllegalArgumentException&) {
      FUZZ_CHECK(pattern.empty());
    }
  }
  return 0;
}
