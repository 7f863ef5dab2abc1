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

// The engine recurses once or more per nesting level of a pattern and per
// repetition of a group in a text, some hundreds of bytes of stack each: a
// long input would overflow the caller's stack (a crash, not an exception).
// Work up to kCallerStackWork units (some 200 KB at most) runs on the
// caller's stack; beyond, on a stack of its own reserved at kStackPerWork
// bytes a unit.
const std::size_t kCallerStackWork = 512;
const std::size_t kStackPerWork = 1024;
const std::size_t kStackBase = 1024 * 1024;
const std::size_t kStackMost = std::size_t(64) << 30;

// Runs body() (which lets no exception escape) with stack for work units.
template <class Body>
void RunSized(std::size_t work, Body& body) {
  if (work <= kCallerStackWork) {
    body();
    return;
  }
  std::size_t stack = work > (kStackMost - kStackBase) / kStackPerWork
                          ? kStackMost
                          : kStackBase + work * kStackPerWork;
  if (!platform::RunOnLargeStack(
          stack, [](void* b) { (*static_cast<Body*>(b))(); }, &body))
    VESK_THROW(kSource, CMemoryException);
}

struct CompileCall {
  const XMLCh* pattern;
  const XMLCh* options;
  internal::CRegExEngine* engine;
  bool emptyLoop;
  bool refused;
  bool failed;
  CString message;

  void operator()() {
    try {
      engine = new internal::CRegExEngine(pattern, options);
      emptyLoop = engine->HasEmptyLoop();
      if (emptyLoop) {
        delete engine;
        engine = nullptr;
      }
    } catch (const xercesc::XMLException& e) {
      // The parser reports most bad patterns with a ParseException, but some
      // (an unfinished "\p{") with an index exception of its own: the
      // pattern is refused either way.
      refused = true;
      try {
        message = reinterpret_cast<const unsigned short*>(e.getMessage());
      } catch (...) {
        failed = true;
      }
    } catch (...) {
      failed = true;
    }
  }
};

// Compiles a UTF-16 pattern of length units; pattern8 is the pattern as the
// exception reports it (UTF-8).
internal::CRegExEngine* CompileUnits(const XMLCh* pattern, std::size_t length,
                                     const XMLCh* options, const char* pattern8) {
  if (!platform::EnsureXerces()) VESK_THROW(kSource, CMemoryException);
  CompileCall call{pattern, options, nullptr, false, false, false, CString()};
  RunSized(length, call);
  if (call.failed) VESK_THROW(kSource, CMemoryException);
  if (call.refused) VESK_THROW(kSource, CRegExParseException, pattern8, call.message);
  if (call.emptyLoop) {
    CString message;
    LoadResourceString(IDS_REGEX_EMPTY_LOOP, message);
    VESK_THROW(kSource, CRegExParseException, pattern8, message);
  }
  return call.engine;
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
    m_expression = CompileUnits(pattern16.Get(), pattern16.GetLength(), options16.Get(), pattern);
  } else {
    m_expression = CompileUnits(pattern16.Get(), pattern16.GetLength(), nullptr, pattern);
  }
}

void CRegEx::Compile(const unsigned short* pattern, const unsigned short* options) {
  CString pattern8(pattern);
  m_expression = CompileUnits(reinterpret_cast<const XMLCh*>(pattern),
                              platform::Utf16Length(pattern),
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

  void operator()() {
    try {
      found = engine->matches(text, start, end, match);
    } catch (...) {
      failed = true;
    }
  }
};

bool RunEngine(const internal::CRegExEngine* engine, const XMLCh* text, std::size_t start,
               std::size_t end, xercesc::Match* match) {
  EngineCall call{engine, text, start, end, match, false, false};
  // The engine recurses for every repetition of a group.
  std::size_t groups = static_cast<std::size_t>(engine->GetGroupCount()) + 1;
  std::size_t units = end - start;
  RunSized(units > kStackMost / groups ? kStackMost : units * groups, call);
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
