#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestObjects.h"
#include "TestSupport.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/util/NoSuchElementException.h"
#include "vesk/util/StringTokenizer.h"
#include "vesk/util/UnicodeStringTokenizer.h"

using namespace vesk::base;
using namespace vesk::util;
using vesk::testing::ExpectThrow;

namespace {

struct Row {
  const char* text;
  const char* delimiters;
  bool flag;
  unsigned int count;
  std::vector<std::string> tokens;
};

// Every row runs through both tokenizers: the 16-bit one on the UTF-16 form.
const Row kRows[] = {
    {"a,,b", ",", false, 2, {"a", "b"}},
    {",,,", ",", false, 0, {}},
    {",a,b,", ",", false, 2, {"a", "b"}},
    {"one two\tthree", " \t", false, 3, {"one", "two", "three"}},
    {"abc", ",", false, 1, {"abc"}},
    // The flag: one empty token per character, while the count adds the
    // delimiters to the runs of other characters.
    {"ab,c", ",", true, 3, {"", "", "", ""}},
    {",,", ",", true, 2, {"", ""}},
    // Characters beyond ASCII: whole UTF-8 sequences in the narrow form.
    {"a\u20acb\u20ac\u20acc", "\u20ac", false, 3, {"a", "b", "c"}},
    {"\u00e9,x", ",", true, 3, {"", "", ""}},
    {"a\u00e8b", "\u00e9", false, 1, {"a\u00e8b"}},
    {"x\u00e9y z", " \u00e9", false, 3, {"x", "y", "z"}},
};

std::string Narrow(const CString& s) { return std::string(s, s.GetLength()); }
std::string Narrow(const CUnicodeString& s) { return Narrow(CString(static_cast<const unsigned short*>(s))); }

template <class Tokenizer, class Text>
void RunRow(const Row& row, const Text& text, const Text& delimiters) {
  Tokenizer t(text, delimiters, row.flag);
  EXPECT_EQ(row.count, t.GetTokenCount());
  EXPECT_EQ(row.count, t.GetTokenCount());  // counting does not move
  std::vector<std::string> tokens;
  while (t.HasMoreTokens()) tokens.push_back(Narrow(t.GetNextToken()));
  EXPECT_EQ(row.tokens, tokens);
  EXPECT_EQ(0u, t.GetTokenCount());
  EXPECT_THROW(t.GetNextToken(), CNoSuchElementException);
}

}  // namespace

TEST(Tokenizer, RowsGiveTheirTokensAndCountsInBothForms) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.text);
    RunRow<CStringTokenizer, const char*>(row, row.text, row.delimiters);
    CUnicodeString text(row.text), delimiters(row.delimiters);
    RunRow<CUnicodeStringTokenizer, const unsigned short*>(row, text, delimiters);
  }
}

TEST(Tokenizer, NewDelimitersStayAndTheConstHasMoreTokensMovesThePosition) {
  CStringTokenizer t("a b;c d", " ", false);
  EXPECT_EQ("a", Narrow(t.GetNextToken()));
  // The position rests on the blank, which ";" does not hold.
  EXPECT_EQ(" b", Narrow(t.GetNextToken(";")));
  EXPECT_EQ("c d", Narrow(t.GetNextToken()));  // ";" is still the set

  CStringTokenizer u("a b;c", " ", false);
  u.GetNextToken();
  const CStringTokenizer& view = u;
  EXPECT_TRUE(view.HasMoreTokens());  // skips the blank
  EXPECT_EQ("b", Narrow(u.GetNextToken(";")));

  CUnicodeStringTokenizer w(CUnicodeString("a b;c"), CUnicodeString(" "), false);
  w.GetNextToken();
  EXPECT_EQ(" b", Narrow(w.GetNextToken(CUnicodeString(";"))));
}

TEST(Tokenizer, RefusedArgumentsNameTheTextFirst) {
  const char* narrow = "vesk/util/StringTokenizer";
  const char* wide = "vesk/util/UnicodeStringTokenizer";
  const char* text = "Invalid source text.";
  const char* delimiters = "Invalid delimiters.";
  CUnicodeString a("a"), empty;
  using E = CIllegalArgumentException;
  ExpectThrow<E>([] { CStringTokenizer(nullptr, nullptr, false); }, text, narrow);
  ExpectThrow<E>([] { CStringTokenizer("", ",", false); }, text, narrow);
  ExpectThrow<E>([] { CStringTokenizer("a", "", true); }, delimiters, narrow);
  ExpectThrow<E>([&] { CUnicodeStringTokenizer(empty, nullptr, false); }, text, wide);
  ExpectThrow<E>([&] { CUnicodeStringTokenizer(a, nullptr, false); }, delimiters, wide);
  CStringTokenizer t("a,b", ",", false);
  ExpectThrow<E>([&] { t.GetNextToken(""); }, delimiters, narrow);
  EXPECT_EQ("a", Narrow(t.GetNextToken()));  // the old set is kept
  ExpectThrow<CNoSuchElementException>([&] { t.GetNextToken(), t.GetNextToken(); }, nullptr,
                                       narrow);
  CUnicodeStringTokenizer w(a, a, false);
  ExpectThrow<CNoSuchElementException>([&] { w.GetNextToken(); }, nullptr, wide);
}

TEST(Tokenizer, AllocationFailuresLeaveNothingBehind) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "token" + std::to_string(i) + ",";
  EXPECT_GT(vesk::testing::FailEachAllocationInTurn([&] {
              CStringTokenizer t(text.c_str(), ",", false);
              while (t.HasMoreTokens()) t.GetNextToken();
              CUnicodeString wide(text.c_str());
              CUnicodeStringTokenizer w(wide, CUnicodeString(","), false);
              while (w.HasMoreTokens()) w.GetNextToken();
            }),
            0);
}
