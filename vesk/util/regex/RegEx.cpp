#include "vesk/util/regex/RegEx.h"

#include <cstring>

#include <xercesc/util/XMLException.hpp>

#include "vesk/LoadString.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/internal/ResourceIds.h"
#include "vesk/platform/LargeStack.h"
#include "vesk/platform/Throw.h"
#include "vesk/platform/Utf16.h"
#include "vesk/platform/Xerces.h"
#include "vesk/util/regex/RegExParseException.h"
#include "vesk/util/regex/internal/XercesRegEx.h"

namespace vesk {
namespace util {
namespace regex {

using vesk::base::CIllegalArgumentException;
using vesk::base::CMemoryException;
using vesk::base::CString;

namespace {

const char kSource[] = "vesk/util/regex/RegEx";

void CheckArguments(bool patternGiven, bool hasOptions, bool optionsGiven) {
  if (!patternGiven) VESK_THROW(kSource, CIllegalArgumentException, "Invalid pattern.");
  if (hasOptions && !optionsGiven) VESK_THROW(kSource, CIllegalArgumentException, "Invalid options.");
}

void CheckRange(std::size_t length, unsigned int start, unsigned int end) {
  if (start >= end || end > length)
    VESK_THROW(kSource, CIllegalArgumentException, "Invalid start & end positons.");
}

// Compiles a UTF-16 pattern; pattern8 is the pattern as the exception
// reports it (UTF-8).
internal::CRegExEngine* CompileUnits(const XMLCh* pattern, const XMLCh* options,
                                     const char* pattern8) {
  if (!platform::EnsureXerces()) VESK_THROW(kSource, CMemoryException);
  internal::CRegExEngine* engine = nullptr;
  try {
    engine = new internal::CRegExEngine(pattern, options);
  } catch (const xercesc::XMLException& e) {
    // The parser reports most bad patterns with a ParseException, but some
    // (an unfinished "\p{") with an index exception of its own: the pattern
    // is refused either way, so both are reported as what they are.
    CString message(reinterpret_cast<const unsigned short*>(e.getMessage()));
    VESK_THROW(kSource, CRegExParseException, pattern8, message);
  } catch (...) {
    VESK_THROW(kSource, CMemoryException);
  }
  if (engine->HasEmptyLoop()) {
    delete engine;
    CString message;
    LoadResourceString(IDS_REGEX_EMPTY_LOOP, message);
    VESK_THROW(kSource, CRegExParseException, pattern8, message);
  }
  return engine;
}

}  // namespace

CRegEx::CRegEx(const char* pattern) {
  CheckArguments(pattern && *pattern, false, false);
  Compile(pattern, nullptr);
}

CRegEx::CRegEx(const unsigned short* pattern) {
  CheckArguments(pattern && *pattern, false, false);
  Compile(pattern, nullptr);
}

CRegEx::CRegEx(const char* pattern, const char* options) {
  CheckArguments(pattern && *pattern, true, options && *options);
  Compile(pattern, options);
}

CRegEx::CRegEx(const unsigned short* pattern, const unsigned short* options) {
  CheckArguments(pattern && *pattern, true, options && *options);
  Compile(pattern, options);
}

void CRegEx::Compile(const char* pattern, const char* options) {
  internal::CWideText pattern16(pattern, std::strlen(pattern), kSource);
  if (options) {
    internal::CWideText options16(options, std::strlen(options), kSource);
    m_expression = CompileUnits(pattern16.Get(), options16.Get(), pattern);
  } else {
    m_expression = CompileUnits(pattern16.Get(), nullptr, pattern);
  }
}

void CRegEx::Compile(const unsigned short* pattern, const unsigned short* options) {
  CString pattern8(pattern);
  m_expression = CompileUnits(reinterpret_cast<const XMLCh*>(pattern),
                              reinterpret_cast<const XMLCh*>(options), pattern8);
}

// --- matching ------------------------------------------------------------------

namespace {

struct EngineCall {
  const internal::CRegExEngine* engine;
  const XMLCh* text;
  std::size_t start;
  std::size_t end;
  xercesc::Match* match;
  bool found;
  bool failed;
};

void CallEngine(void* argument) {
  EngineCall* call = static_cast<EngineCall*>(argument);
  try {
    call->found = call->engine->matches(call->text, call->start, call->end, call->match);
  } catch (...) {
    call->failed = true;
  }
}

// The engine recurses for every repetition of a group, some hundreds of
// bytes each: a long text would overflow the caller's stack (a crash, not
// an exception). Up to this many units times groups the caller's stack
// serves; beyond, the match runs on a stack sized for the text.
const std::size_t kCallerStackWork = 1024;
const std::size_t kStackPerUnitAndGroup = 1024;
const std::size_t kStackBase = 1024 * 1024;
const std::size_t kStackMost = std::size_t(64) << 30;

bool RunEngine(const internal::CRegExEngine* engine, const XMLCh* text, std::size_t start,
               std::size_t end, xercesc::Match* match) {
  EngineCall call{engine, text, start, end, match, false, false};
  std::size_t units = end - start;
  std::size_t groups = static_cast<std::size_t>(engine->GetGroupCount()) + 1;
  if (units * groups <= kCallerStackWork) {
    CallEngine(&call);
  } else {
    std::size_t stack = kStackBase;
    if (units > (kStackMost - kStackBase) / kStackPerUnitAndGroup / groups) {
      stack = kStackMost;
    } else {
      stack += units * groups * kStackPerUnitAndGroup;
    }
    if (!platform::RunOnLargeStack(stack, &CallEngine, &call))
      VESK_THROW(kSource, CMemoryException);
  }
  if (call.failed) VESK_THROW(kSource, CMemoryException);
  if (call.found) engine->RepairLiteralEnd(match);
  return call.found;
}

}  // namespace

bool CRegEx::MatchWide(const unsigned short* text, bool range, unsigned int start,
                       unsigned int end, CRegExMatch* match) const {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid match string.");
  std::size_t length = platform::Utf16Length(text);
  if (range) {
    CheckRange(length, start, end);
  } else {
    start = 0;
    end = static_cast<unsigned int>(length);
  }
  return RunEngine(m_expression.Get(), reinterpret_cast<const XMLCh*>(text), start, end,
                   match ? match->m_match.Get() : nullptr);
}

bool CRegEx::MatchNarrow(const char* text, bool range, unsigned int start, unsigned int end,
                         CRegExMatch* match) const {
  if (!text) VESK_THROW(kSource, CIllegalArgumentException, "Invalid match string.");
  std::size_t length = std::strlen(text);
  if (range) CheckRange(length, start, end);
  internal::CWideText wide(text, length, kSource);
  std::size_t from = 0;
  std::size_t to = wide.GetLength();
  if (range) {
    from = wide.IsOneToOne() ? start : internal::UnitOffset(text, length, start);
    to = wide.IsOneToOne() ? end : internal::UnitOffset(text, length, end);
  }
  internal::CMatchRecord* record = match ? match->m_match.Get() : nullptr;
  bool found = RunEngine(m_expression.Get(), wide.Get(), from, to, record);
  if (record && !wide.IsOneToOne()) {
    // The engine counted UTF-16 units; narrow callers index bytes.
    for (int group = 0; group < record->getNoGroups(); ++group) {
      int first = record->getStartPos(group);
      int last = record->getEndPos(group);
      if (first >= 0)
        record->setStartPos(group, static_cast<int>(internal::ByteOffset(text, length, first)));
      if (last >= 0)
        record->setEndPos(group, static_cast<int>(internal::ByteOffset(text, length, last)));
    }
  }
  return found;
}

bool CRegEx::Matches(const char* text) const { return MatchNarrow(text, false, 0, 0, nullptr); }
bool CRegEx::Matches(const unsigned short* text) const {
  return MatchWide(text, false, 0, 0, nullptr);
}
bool CRegEx::Matches(const char* text, unsigned int start, unsigned int end) const {
  return MatchNarrow(text, true, start, end, nullptr);
}
bool CRegEx::Matches(const unsigned short* text, unsigned int start, unsigned int end) const {
  return MatchWide(text, true, start, end, nullptr);
}
bool CRegEx::Matches(const char* text, CRegExMatch& match) const {
  return MatchNarrow(text, false, 0, 0, &match);
}
bool CRegEx::Matches(const unsigned short* text, CRegExMatch& match) const {
  return MatchWide(text, false, 0, 0, &match);
}
bool CRegEx::Matches(const char* text, unsigned int start, unsigned int end,
                     CRegExMatch& match) const {
  return MatchNarrow(text, true, start, end, &match);
}
bool CRegEx::Matches(const unsigned short* text, unsigned int start, unsigned int end,
                     CRegExMatch& match) const {
  return MatchWide(text, true, start, end, &match);
}

}  // namespace regex
}  // namespace util
}  // namespace vesk
