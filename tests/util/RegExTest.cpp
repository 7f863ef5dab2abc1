#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <xercesc/util/regx/Match.hpp>
#include <xercesc/util/regx/RegularExpression.hpp>

#include "HostSupport.h"
#include "TestObjects.h"
#include "TestSupport.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/NullReferenceException.h"
#include "vesk/base/String.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/internal/ResourceIds.h"
#include "vesk/LoadString.h"
#include "vesk/platform/Xerces.h"
#include "vesk/util/regex/RegEx.h"
#include "vesk/util/regex/RegExParseException.h"

using vesk::base::CIllegalArgumentException;
using vesk::base::CUnicodeString;
using vesk::testing::W;
using namespace vesk::util::regex;
using vesk::testing::ExpectThrow;

namespace {

const char kSource[] = "vesk/util/regex/RegEx";
using IAE = CIllegalArgumentException;

const unsigned short* W16(const CUnicodeString& s) { return s; }

struct Case {
  const char* pattern;
  const char* options;  // null: the constructor without options
  const char* text;     // UTF-8
  int start, end;       // UTF-16 units; -1: the whole text
};

// Patterns, options, texts and ranges on which the library must answer as
// the engine does.
const Case kCases[] = {
    {"abc", nullptr, "xxabcxx", -1, -1},
    {"(a)(b)?c", nullptr, "xxacyy", -1, -1},
    {"(a)(b)?c", nullptr, "xxacyy", 3, 6},
    {"(a)(b)?c", nullptr, "xxacyy", 2, 4},
    {"^a.*z$", nullptr, "a\nz", -1, -1},
    {"^a.*z$", "s", "a\nz", -1, -1},
    {"^z", "m", "a\nz", -1, -1},
    {"ABC", "i", "xabcx", -1, -1},
    {"a b+ # comment", "x", "abb", -1, -1},
    {"[a-c]+\\d{2,3}", nullptr, "zzcab1234", -1, -1},
    {"[a-c]+\\d{2,3}", "X", "cab123", -1, -1},
    {"[a-c]+\\d{2,3}", "X", "zcab123", -1, -1},
    {"(x|y)+(z)", nullptr, "wxyxz", 1, 5},
    {"((a?)b)+c", nullptr, "xabbc", -1, -1},
    {"\\p{Lu}\\p{Ll}*", nullptr, "abc D\u00e9f", -1, -1},
    {"(\u00e9+)(t)", nullptr, "caf\u00e9\u00e9t\u00e9", -1, -1},
    {"(\u00e9+)(t)", nullptr, "caf\u00e9\u00e9t\u00e9", 4, 7},
    {"(.)\\1", nullptr, "ab\U0001F600\U0001F600c", -1, -1},
    {"\U0001F600(c)", nullptr, "ab\U0001F600c", -1, -1},
    {"b+", "F", "abbbc", -1, -1},
    {"b+", "H", "abbbc", -1, -1},
    {"nothing", nullptr, "something", -1, -1},
};

std::u16string Utf16(const char* utf8) { return vesk_test::ReferenceUtf16(utf8); }

// Byte offset in the UTF-8 form of the first units of text.
int Utf8Offset(const std::u16string& text, int units) {
  if (units < 0) return -1;
  return static_cast<int>(
      vesk_test::ReferenceUtf8(reinterpret_cast<const unsigned short*>(text.data()), units).size());
}

struct Result {
  bool found;
  std::vector<int> positions;  // start, end of each group
};

Result Engine(const Case& c, const std::u16string& text) {
  vesk::platform::EnsureXerces();
  std::u16string pattern = Utf16(c.pattern);
  std::u16string options = Utf16(c.options ? c.options : "");
  xercesc::RegularExpression re(pattern.c_str(), options.c_str());
  xercesc::Match match;
  std::size_t start = c.start < 0 ? 0 : c.start, end = c.end < 0 ? text.size() : c.end;
  Result r{re.matches(text.c_str(), start, end, &match), {}};
  for (int g = 0; r.found && g < match.getNoGroups(); ++g) {
    r.positions.push_back(match.getStartPos(g));
    r.positions.push_back(match.getEndPos(g));
  }
  return r;
}

template <class Text>
Result Library(const CRegEx& re, const Case& c, const Text& text, int start, int end) {
  CRegExMatch match;
  Result r;
  r.found = c.start < 0 ? re.Matches(text, match) : re.Matches(text, start, end, match);
  bool plain = c.start < 0 ? re.Matches(text) : re.Matches(text, start, end);
  EXPECT_EQ(r.found, plain);
  for (unsigned int g = 0; r.found && g < match.GetGroupCount(); ++g) {
    r.positions.push_back(static_cast<int>(match.GetStartPosOfGroup(g)));
    r.positions.push_back(static_cast<int>(match.GetEndPosOfGroup(g)));
  }
  return r;
}

}  // namespace

TEST(RegEx, AnswersAsTheEngineDoesInBothForms) {
  int found = 0;
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.pattern) + " / " + c.text);
    std::u16string text = Utf16(c.text);
    Result expected = Engine(c, text);
    found += expected.found;

    CUnicodeString pattern16(c.pattern), options16(c.options);
    CRegEx wide = c.options ? CRegEx(W16(pattern16), W16(options16)) : CRegEx(W16(pattern16));
    Result w = Library(wide, c, W(text.c_str()), c.start, c.end);
    EXPECT_EQ(expected.positions, w.positions);  // empty when nothing is found

    // The narrow form takes and reports byte offsets of the UTF-8 text.
    CRegEx narrow = c.options ? CRegEx(c.pattern, c.options) : CRegEx(c.pattern);
    Result n = Library(narrow, c, c.text, Utf8Offset(text, c.start), Utf8Offset(text, c.end));
    for (int& p : expected.positions) p = Utf8Offset(text, p);
    EXPECT_EQ(expected.positions, n.positions);
  }
  EXPECT_GT(found, 10);  // the table is not all misses
}

TEST(RegEx, ARangeMustLieInTheTextAndNotBeEmpty) {
  CRegEx re("b");
  const char* message = "Invalid start & end positons.";
  ExpectThrow<IAE>([&] { re.Matches("abc", 2, 2); }, message, kSource);
  ExpectThrow<IAE>([&] { re.Matches("abc", 0, 4); }, message, kSource);
  ExpectThrow<IAE>([&] { re.Matches(W(u"abc"), 3, 1); }, message, kSource);
  EXPECT_TRUE(re.Matches("abc", 0, 3));
  EXPECT_FALSE(re.Matches("abc", 2, 3));
  // A bound inside a multi-byte character stands for the character's start.
  EXPECT_FALSE(CRegEx("\u00e9").Matches("a\u00e9", 0, 2));
  EXPECT_TRUE(CRegEx("\u00e9").Matches("a\u00e9", 2, 3));
  CRegExMatch match;
  const char* none = "Invalid match string.";
  ExpectThrow<IAE>([&] { re.Matches(static_cast<const char*>(nullptr), match); }, none, kSource);
  ExpectThrow<IAE>([&] { re.Matches(static_cast<const unsigned short*>(nullptr)); }, none, kSource);
}

TEST(RegEx, RefusedPatternsAndOptions) {
  const unsigned short empty[] = {0};
  ExpectThrow<IAE>([] { CRegEx(static_cast<const char*>(nullptr)); }, "Invalid pattern.", kSource);
  ExpectThrow<IAE>([&] { CRegEx(empty, nullptr); }, "Invalid pattern.", kSource);
  ExpectThrow<IAE>([] { CRegEx("a", ""); }, "Invalid options.", kSource);
  ExpectThrow<IAE>([] { CRegEx(W(u"a"), nullptr); }, "Invalid options.", kSource);

  // The engine's own refusals carry its message; the loops it cannot run
  // carry the library's reason.
  vesk::base::CString loop;
  vesk::LoadResourceString(IDS_REGEX_EMPTY_LOOP, loop);
  for (const char* pattern : {"(a", "\\p{", "a{2,1}", "(a*)*b", "(a?^)*"}) {
    SCOPED_TRACE(pattern);
    std::string reason(loop, loop.GetLength());
    try {
      vesk::platform::EnsureXerces();
      xercesc::RegularExpression engine(pattern);
    } catch (const xercesc::XMLException& e) {
      reason = vesk::base::CString(reinterpret_cast<const unsigned short*>(e.getMessage()));
    }
    std::string expected = "Invalid regular expression \"" + std::string(pattern) + "\": " + reason + ".";
    CUnicodeString pattern16(pattern);
    for (auto compile : {std::function<void()>([&] { CRegEx re(pattern); }),
                         std::function<void()>([&] { CRegEx re(W16(pattern16)); })}) {
      try {
        compile();
        ADD_FAILURE() << "compiled";
      } catch (const CRegExParseException& e) {
        EXPECT_STREQ(kSource, e.GetSourceFile());
        EXPECT_EQ(expected, e.GetMessage());
      }
    }
  }
  EXPECT_THROW(CRegEx("a", "q"), CRegExParseException);  // an unknown option letter
}

TEST(RegEx, TheParseMessageFallsBackWhenNoTextResults) {
  EXPECT_STREQ("Invalid regular expression \"x\".", CRegExParseException("f", 1, "x").GetMessage());
  EXPECT_EQ(nullptr, CRegExParseException("f", 1, "x").GetErrorDescription());
  vesk::testing::FaultGuard guard;
  vesk::platform::FailAllocationAt(1);  // the format cannot be loaded
  CRegExParseException e("f", 1, "x", "why");
  EXPECT_STREQ("Invalid regular expression.", e.GetMessage());
  vesk::platform::FailAllocationAt(1, true);  // nothing can be allocated
  CRegExParseException none("f", 1, "x", "why");
  EXPECT_EQ(nullptr, none.GetMessage());
}

TEST(RegEx, CopiesShareTheExpressionAndMatchRecordsTheirMatch) {
  CRegEx* first = new CRegEx("(b+)");
  CRegEx copy(*first);
  CRegEx assigned("x");
  assigned = *first;
  delete first;
  EXPECT_TRUE(copy.Matches("abbc"));
  CRegExMatch match, shared;
  shared = match;
  EXPECT_EQ(0u, match.GetGroupCount());
  ExpectThrow<vesk::base::CNullReferenceException>([&] { match.GetStartPosOfGroup(0); }, nullptr,
                                                   "vesk/util/regex/RegExMatch");
  EXPECT_TRUE(assigned.Matches("abbc", match));
  EXPECT_EQ(2u, shared.GetGroupCount());
  EXPECT_EQ(3u, shared.GetEndPosOfGroup(1));
  ExpectThrow<vesk::base::CArrayIndexOutOfBoundsException>([&] { match.GetEndPosOfGroup(2); },
                                                           nullptr, "vesk/util/regex/RegExMatch");
  // A failed match leaves the groups unset.
  EXPECT_FALSE(copy.Matches("xyz", match));
  EXPECT_EQ(0xFFFFFFFFu, match.GetStartPosOfGroup(0));
}

TEST(RegEx, ALiteralMatchEndsAfterTheLiteral) {
  // The engine's string search ends "\+" two units after its start.
  CRegExMatch match;
  EXPECT_TRUE(CRegEx("\\+").Matches("a+", match));
  EXPECT_EQ(1u, match.GetStartPosOfGroup(0));
  EXPECT_EQ(2u, match.GetEndPosOfGroup(0));
  EXPECT_TRUE(CRegEx("\\+\\+").Matches(W(u"+++"), 1, 3, match));
  EXPECT_EQ(3u, match.GetEndPosOfGroup(0));
}

TEST(RegEx, LongTextsDoNotExhaustTheCallersStack) {
  // The engine recurses for every repetition of a group: 60 000 of them
  // need some 25 MB of stack, beyond any thread's default.
  std::string text(60000, 'a');
  text += 'b';
  CUnicodeString wide(text.c_str());
  CRegExMatch match;
  EXPECT_TRUE(CRegEx("(a)*b").Matches(text.c_str(), match));
  EXPECT_EQ(60000u, match.GetEndPosOfGroup(1));
  EXPECT_TRUE(CRegEx("(a|c)*b").Matches(W16(wide), 1, 60001));
}

TEST(RegEx, AllocationFailuresLeaveNothingBehind) {
  std::string text(600, 'a');
  text += "\u00e9b";
  EXPECT_GT(vesk::testing::FailEachAllocationInTurn([&] {
              CRegEx re("(a+)\u00e9(b)");
              CRegExMatch match;
              EXPECT_TRUE(re.Matches(text.c_str(), match));
              EXPECT_EQ(603u, match.GetEndPosOfGroup(2));
              CUnicodeString wide(text.c_str());
              CRegEx copy(re);
              EXPECT_TRUE(copy.Matches(W16(wide), 1, 602));
            }),
            0);
}
