#include <cstring>
#include <initializer_list>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/StringH.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/base/internal/StringPools.h"
#include "vesk/platform/Memory.h"

using namespace vesk::base;
namespace platform = vesk::platform;
namespace internal = vesk::base::internal;
using namespace vesk::testing;

namespace {

const unsigned short kEuro = 0x20AC;

// Results of several calls side by side, for one comparison with a table.
using Ints = std::vector<int>;

// The null string, "" and an emptied string are one empty string; it sorts
// below "" by Compare but equals it by operator==.
TEST(String, EmptyAndCompareRules) {
  CString null;
  CString fromNull(static_cast<const char*>(nullptr));
  CString blank("");
  CString emptied("abc");
  emptied.Empty();
  for (const CString* s : {&null, &fromNull, &blank, &emptied}) {
    EXPECT_TRUE(s->IsEmpty());
    EXPECT_STREQ("", static_cast<const char*>(*s));
    EXPECT_TRUE(*s == "" && *s == null && *s == static_cast<const char*>(nullptr));
    EXPECT_EQ(-1, s->Compare("") & s->CompareIgnoreCase("") & s->Compare(CString("a")));
    EXPECT_EQ(0, s->Compare(static_cast<const char*>(nullptr)) | s->Compare(null));
    EXPECT_EQ(-1, s->Find('a') & s->ReverseFind("a"));
    EXPECT_TRUE(*s < "a" && "" <= *s);
    EXPECT_FALSE(*s < "");
  }
  CString a("a"), b("b");
  EXPECT_EQ((Ints{a.Compare(""), a.Compare(static_cast<const char*>(nullptr)), a.Compare(null)}),
            (Ints{1, 1, 1}));
  EXPECT_LT(CString("ab").Compare("abc"), 0);
  EXPECT_GT(CString("abd").Compare("abc"), 0);
  EXPECT_GT(CString("\u00e9").Compare("z"), 0);  // bytes compare unsigned
  EXPECT_TRUE(a < b && "a" < b && b > "a" && b >= b && a != b && "a" == a);
  EXPECT_FALSE(a == "ab");
  EXPECT_FALSE(CString("ab") == CString("abc"));
  // Case folds by code point, two-byte letters included.
  EXPECT_EQ(0, CString("HeLLo").CompareIgnoreCase("hello"));
  EXPECT_EQ(0, CString("\u00c4BC").CompareIgnoreCase("\u00e4bc"));
  EXPECT_EQ(0, CString("\u03a3").CompareIgnoreCase(CString("\u03c3")));
  EXPECT_LT(CString("apple").CompareIgnoreCase("BANANA"), 0);
  EXPECT_NE(0, CString("a\xff").CompareIgnoreCase("a\xfe"));
  // Folding pairs characters of different byte lengths (Kelvin sign, Deseret);
  // a malformed byte sorts after every character.
  EXPECT_EQ(0, CString("\u212a").CompareIgnoreCase("k"));
  EXPECT_EQ(0, CString("\U00010400").CompareIgnoreCase("\U00010428"));
  EXPECT_GT(CString("\xff").CompareIgnoreCase("\U0010FFFF"), 0);
}

// --- rules the narrow and the 16-bit string share (one implementation) ------

std::string Str(const CString& s) { return std::string(s, s.GetLength()); }
std::string Str(const CUnicodeString& s) { return Str(s.ToUTF8()); }
const char* P(const CString& s) { return s; }
const unsigned short* P(const CUnicodeString& s) { return s; }

template <class S>
class StringKinds : public ::testing::Test {};
using Kinds = ::testing::Types<CString, CUnicodeString>;
TYPED_TEST_SUITE(StringKinds, Kinds);

// The texts of several strings side by side.
template <class S>
std::vector<std::string> Strs(std::initializer_list<S> strings) {
  std::vector<std::string> texts;
  for (const S& s : strings) texts.push_back(Str(s));
  return texts;
}

TYPED_TEST(StringKinds, ExtractionBoundsAndSingleCharacters) {
  TypeParam s("abcde"), t("abcdef");
  // Right keeps its compatible result: the n characters before the last;
  // Mid(0, -1) wraps to the largest end.
  EXPECT_EQ(Strs({s.Right(2), s.Right(1), s.Right(0), s.Right(9), s.Left(0), s.Left(2)}),
            (std::vector<std::string>{"cd", "d", "", "abcde", "", "ab"}));
  EXPECT_EQ(
      Strs({t.SubString(2), t.SubString(2, 4), t.SubString(4, 100), t.SubString(6),
            t.SubString(3, 3), t.SubString(4, 2), TypeParam().SubString(0, 5), t.Mid(1, 3),
            t.Mid(1), t.Mid(1, 0), t.Mid(0, -1)}),
      (std::vector<std::string>{"cdef", "cd", "ef", "", "", "", "", "bcd", "bcdef", "", "abcdef"}));
  // Whole-string results share the buffer.
  EXPECT_EQ(P(s), P(s.Left(7)));
  EXPECT_EQ(P(s), P(s.Right(5)));
  // SetAt and GetAt ignore what is out of range.
  s.SetAt(1, 'B');
  s.SetAt(5, 'X');
  s.SetAt(100, 'X');
  EXPECT_EQ("aBcde", Str(s));
  EXPECT_EQ('e', s.GetAt(4));
  EXPECT_EQ(0, s.GetAt(5));
  TypeParam empty;
  empty.SetAt(0, 'x');
  EXPECT_TRUE(empty.IsEmpty());
}

TYPED_TEST(StringKinds, SearchesAndTheReverseProbe) {
  TypeParam s("hello world");
  // A start is a lower bound for ReverseFind too.
  EXPECT_EQ((Ints{s.Find('l'), s.Find('l', 4), s.Find('l', 10), s.Find('l', 11), s.Find('z'),
                  s.ReverseFind('l'), s.ReverseFind('l', 9), s.ReverseFind('h', 1),
                  s.ReverseFind('l', 11), s.Find("wor"), s.Find("wor", 7), s.Find(""),
                  s.Find(static_cast<const char*>(nullptr)), s.FindIgnoreCase("WORLD"),
                  s.Find(TypeParam("world"))}),
            (Ints{2, 9, -1, -1, -1, 9, 9, -1, -1, 6, -1, -1, -1, 6, 6}));
  // A text is looked for backwards by probes that step back by its length,
  // each of which searches forwards: in "xabxxx" the probes at 4 and 2 miss
  // "ab" at 1 and the probe at 0 is not above start; in "xxxabx" the probe
  // at 2 finds 3.
  auto reverse = [](const char* text, const char* what, int start) {
    return TypeParam(text).ReverseFind(what, start);
  };
  EXPECT_EQ((Ints{reverse("abab", "ab", 0), reverse("ab", "ab", 0), reverse("aab", "ab", 0),
                  reverse("xabxxx", "ab", 0), reverse("xxxabx", "ab", 0), reverse("abab", "ab", 2),
                  TypeParam("abab").ReverseFind(""), TypeParam("ab").ReverseFind("abc"),
                  TypeParam("abab").ReverseFind(TypeParam("ab")),
                  TypeParam("xAByAB").ReverseFindIgnoreCase("ab", 0)}),
            (Ints{2, -1, 1, -1, 3, -1, -1, -1, 2, 4}));
  TypeParam h("Hello");
  EXPECT_TRUE(h.StartsWith("He") && h.StartsWith("Hello") && h.StartsWithIgnoreCase("he"));
  EXPECT_FALSE(h.StartsWith("Hello!") || h.StartsWith("") || h.StartsWith("he"));
  EXPECT_FALSE(h.StartsWith(static_cast<const char*>(nullptr)));
  EXPECT_TRUE(h.EndsWith("llo") && h.EndsWithIgnoreCase(TypeParam("LLO")));
  EXPECT_FALSE(h.EndsWith("LLO") || h.EndsWith("xHello") || TypeParam().EndsWith("a"));
}

TYPED_TEST(StringKinds, EditsCountAndClamp) {
  TypeParam s("a-b-c");
  EXPECT_EQ((Ints{s.Replace('-', '+'), s.Replace('+', '+'), TypeParam().Replace('a', 'b')}),
            (Ints{2, 0, 0}));
  EXPECT_EQ("a+b+c", Str(s));
  TypeParam t("one two one two one");
  EXPECT_EQ((Ints{t.Replace("one", "1"), t.Replace("two", "three")}), (Ints{3, 2}));
  EXPECT_EQ("1 three 1 three 1", Str(t));
  EXPECT_EQ((Ints{t.Replace("four", "x"), t.Replace("", "x"),
                  t.Replace("1", static_cast<const char*>(nullptr))}),
            (Ints{0, 0, 3}));
  EXPECT_EQ(" three  three ", Str(t));
  // Non-overlapping, left to right; the inserted text is not searched again.
  TypeParam overlap("aaaa");
  EXPECT_EQ(2, overlap.Replace("aa", "aaa"));
  EXPECT_EQ("aaaaaa", Str(overlap));
  // Growth past the pooled sizes.
  TypeParam big(std::string(600, 'x').c_str());
  EXPECT_EQ(600, big.Replace("x", "yy"));
  EXPECT_EQ(std::string(1200, 'y'), Str(big));
  EXPECT_EQ(1201u, Header(big)->capacity);
  TypeParam r("banana");
  EXPECT_EQ((Ints{r.Remove('a'), r.Remove('z')}), (Ints{3, 0}));
  EXPECT_EQ("bnn", Str(r));

  TypeParam empty;
  EXPECT_EQ(1, empty.Insert(5, 'x'));
  EXPECT_EQ(64u, Header(empty)->capacity);
  TypeParam i("ace");
  EXPECT_EQ((Ints{i.Insert(1, 'b'), i.Insert(3, 'd'), i.Insert(99, 'f'), i.Insert(0, "xyz"),
                  i.Insert(2, "")}),
            (Ints{4, 5, 6, 9, 9}));
  EXPECT_EQ("xyzabcdef", Str(i));
  TypeParam d("0123456789");
  // The length before the deletion; a count past the end is clamped.
  EXPECT_EQ((Ints{d.Delete(2, 3), d.Delete(2, 0), d.Delete(7, 1), d.Delete(5, 100)}),
            (Ints{10, 7, 7, 7}));
  EXPECT_EQ("01567", Str(d));
  // Arguments taken from the string itself.
  TypeParam own("abcabc");
  EXPECT_EQ(2, own.Replace(P(own) + 3, P(own)));
  EXPECT_EQ("abcabcabcabc", Str(own));
  EXPECT_EQ(24, own.Insert(12, P(own)));
  own.TrimLeft(P(own));
  EXPECT_TRUE(own.IsEmpty());
}

TYPED_TEST(StringKinds, CopiesShareUntilAnEdit) {
  TypeParam a("shared text");
  TypeParam b(a);
  TypeParam c;
  c = b;
  EXPECT_EQ(P(a), P(b));
  EXPECT_EQ(P(a), P(c));
  EXPECT_EQ(3u, Header(a)->refCount);
  b.SetAt(0, 'S');
  EXPECT_EQ("shared text", Str(a));
  EXPECT_EQ("Shared text", Str(b));
  EXPECT_EQ(2u, Header(a)->refCount);
  EXPECT_EQ(1u, Header(b)->refCount);
  c += "!";
  EXPECT_EQ("shared text!", Str(c));
  EXPECT_EQ(1u, Header(a)->refCount);
  // Self-assignment and assigning a copy of the same buffer change nothing.
  auto before = P(a);
  a = a;
  TypeParam d(a);
  a = d;
  EXPECT_EQ(before, P(a));
  EXPECT_EQ(2u, Header(a)->refCount);
  // Every other edit unshares first too.
  const TypeParam original("  Mixed Case Text  ");
  void (*edits[])(TypeParam&) = {
      [](TypeParam& s) { s.MakeUpper(); },       [](TypeParam& s) { s.MakeLower(); },
      [](TypeParam& s) { s.MakeReverse(); },     [](TypeParam& s) { s.TrimLeft(); },
      [](TypeParam& s) { s.TrimRight(); },       [](TypeParam& s) { s.TrimLeft(" M"); },
      [](TypeParam& s) { s.Replace('e', 'E'); }, [](TypeParam& s) { s.Replace("Case", "Longer"); },
      [](TypeParam& s) { s.Remove('x'); },       [](TypeParam& s) { s.Insert(3, 'z'); },
      [](TypeParam& s) { s.Insert(3, "zz"); },   [](TypeParam& s) { s.Delete(0, 4); },
      [](TypeParam& s) { s.TrimRight(" t"); },   [](TypeParam& s) { s.Empty(); },
      [](TypeParam& s) { s = "other"; },
  };
  for (auto edit : edits) {
    TypeParam copy(original);
    edit(copy);
    EXPECT_EQ("  Mixed Case Text  ", Str(original));
  }
}

TYPED_TEST(StringKinds, CapacityClassesAndEmpty) {
  struct Case {
    std::size_t length;
    unsigned int capacity;
  } cases[] = {{1, 64},    {63, 64},    {64, 128},    {127, 128},   {200, 256},
               {511, 512}, {512, 1024}, {1023, 1024}, {1024, 1025}, {5000, 5001}};
  for (const Case& c : cases) {
    TypeParam s(std::string(c.length, 'q').c_str());
    EXPECT_EQ(c.capacity, Header(s)->capacity) << c.length;
  }
  TypeParam grown;
  grown.EnsureCapacity(100);  // room for 100 characters and the terminator
  grown += "x";
  EXPECT_EQ(128u, Header(grown)->capacity);
  // Empty keeps a buffer of its own and drops a shared one.
  TypeParam owned(std::string(300, 'x').c_str());
  auto buffer = P(owned);
  owned.Empty();
  owned += "reused";
  EXPECT_EQ(buffer, P(owned));
  EXPECT_EQ(512u, Header(owned)->capacity);
  TypeParam other(owned);
  owned.Empty();
  EXPECT_TRUE(owned.IsEmpty());
  EXPECT_EQ("reused", Str(other));
  EXPECT_EQ(1u, Header(other)->refCount);
}

// --- the narrow string's own rules ----------------------------------------------

TEST(String, SearchesStepOverWholeUtf8Characters) {
  CString s("\u00e9\u20ac\U0001F600a");  // 2 + 3 + 4 + 1 bytes
  EXPECT_EQ(10u, s.GetLength());
  // A continuation byte is not a character: no match inside the euro sign;
  // a malformed byte is a character of its own; a lead byte alone is no match.
  CString bad("a\x82\x62");
  EXPECT_EQ((Ints{s.Find('a'), s.Find("\u20ac"), s.Find('\x82'), s.Find("\x82\xac"),
                  s.FindIgnoreCase("\u00c9"), bad.Find('\x82'), bad.ReverseFind('\x82'),
                  CString("x\x82\xac").Find("\x82\xac"), CString("\u00e9x").ReverseFind('\xc3')}),
            (Ints{9, 2, -1, -1, 0, 1, 1, 1, -1}));
  CString utf("\u00e9a\u00e9");
  EXPECT_EQ(0, utf.Remove('\xc3'));  // only whole characters are removed
  EXPECT_EQ(1, utf.Remove('a'));
  EXPECT_STREQ("\u00e9\u00e9", utf);
}

TEST(String, FromSixteenBitTextSizedByConvertedLength) {
  const unsigned short euros[] = {kEuro, kEuro, kEuro, 0};
  CString s(euros);
  EXPECT_EQ(9u, s.GetLength());
  EXPECT_STREQ("\u20ac\u20ac\u20ac", s);
  const unsigned short pair[] = {'a', 0xD83D, 0xDE00, 'b', 0};
  EXPECT_STREQ("a\U0001F600b", CString(pair));
  const unsigned short lone[] = {0xDC00, 'x', 0xD800, 0};
  EXPECT_STREQ("?x?", CString(lone));
  // A count that cuts a pair leaves an unpaired high surrogate.
  EXPECT_STREQ("a?", CString(pair, 2));
  CString assigned;
  assigned = euros;
  EXPECT_EQ(9u, assigned.GetLength());
  assigned = static_cast<const unsigned short*>(nullptr);
  EXPECT_TRUE(assigned.IsEmpty());
}

TEST(String, ConcatenationAppendAndOwnText) {
  CString a("foo"), b("bar");
  EXPECT_STREQ("foobar", a + b);
  EXPECT_STREQ("foobaz", a + "baz");
  EXPECT_STREQ("bazfoo", "baz" + a);
  EXPECT_STREQ("foo", a + CString());
  EXPECT_STREQ("foo", a + static_cast<const char*>(nullptr));
  CString s;
  s += "x";
  s += CString("y");
  s += "";
  EXPECT_STREQ("xy", s);
  // A count stops at a NUL among the bytes.
  EXPECT_STREQ("ab", CString("ab\0cd", 5));
  s.Set("xyz", 2);
  EXPECT_STREQ("xy", s);
  // Appending a string to itself, and a tail of itself, across a regrowth;
  // assigning a tail of its own text, shared or not.
  CString self(std::string(40, 'a').c_str());
  self += self;
  EXPECT_EQ(std::string(80, 'a'), static_cast<const char*>(self));
  CString tail("0123456789");
  tail += static_cast<const char*>(tail) + 5;
  EXPECT_STREQ("012345678956789", tail);
  tail = static_cast<const char*>(tail) + 10;
  EXPECT_STREQ("56789", tail);
  CString big(std::string(2000, 'z').c_str());
  CString copy(big);
  big = static_cast<const char*>(big) + 1990;
  EXPECT_EQ(10u, big.GetLength());
  EXPECT_EQ(2000u, copy.GetLength());
}

TEST(String, TrimsStepOverMultiByteCharacters) {
  CString s(" \t\n hello world \r\n");
  s.TrimLeft();
  EXPECT_STREQ("hello world \r\n", s);
  s.TrimRight();
  EXPECT_STREQ("hello world", s);
  CString blank("   \t ");
  blank.TrimRight();
  EXPECT_TRUE(blank.IsEmpty());
  // A no-break space (C2 A0) is not white space and is never cut in half.
  CString nbsp("\u00a0x\u00a0");
  nbsp.TrimLeft();
  nbsp.TrimRight();
  EXPECT_STREQ("\u00a0x\u00a0", nbsp);
  CString set("\u20acxx\u20acab\u20acx");
  set.TrimLeft("x\u20ac");
  EXPECT_STREQ("ab\u20acx", set);
  set.TrimRight(CString("x\u20ac"));
  EXPECT_STREQ("ab", set);
  // A single byte of a multi-byte character does not trim that character.
  CString partial("\u20aca");
  partial.TrimLeft('\xe2');
  EXPECT_STREQ("\u20aca", partial);
  CString chars("xxabxx");
  chars.TrimLeft('x');
  chars.TrimRight('x');
  EXPECT_STREQ("ab", chars);
}

TEST(String, CaseMappingKeepsByteLength) {
  CString s("hello \u00e9t\u00e9 \u03b1\u03b2");
  s.MakeUpper();
  EXPECT_STREQ("HELLO \u00c9T\u00c9 \u0391\u0392", s);
  s.MakeLower();
  EXPECT_STREQ("hello \u00e9t\u00e9 \u03b1\u03b2", s);
  // Dotless i (2 bytes) would become I (1 byte), the Kelvin sign (3 bytes) k: kept.
  CString dotless("\u0131x");
  dotless.MakeUpper();
  EXPECT_STREQ("\u0131X", dotless);
  // Capital sharp s (3 bytes) would become ß (2 bytes): kept too.
  CString kelvin("\u212aK\u1e9e");
  kelvin.MakeLower();
  EXPECT_STREQ("\u212ak\u1e9e", kelvin);
  CString broken("a\xff\xc3");
  broken.MakeUpper();
  EXPECT_STREQ("A\xff\xc3", broken);
}

TEST(String, MakeReverseKeepsCharactersWhole) {
  CString s("a\u00e9\u20ac\U0001F600z");
  s.MakeReverse();
  EXPECT_STREQ("z\U0001F600\u20ac\u00e9a", s);
  CString broken("\x80\xe2\x82");  // malformed bytes reverse one by one
  broken.MakeReverse();
  EXPECT_STREQ("\x82\xe2\x80", broken);
}

TEST(String, FormatPrintsAndGrowsWithoutCutting) {
  CString s("shared");
  CString shared(s);
  s.Format("%s=%d, %.2f", "pi", 3, 3.14159);
  EXPECT_STREQ("pi=3, 3.14", s);
  EXPECT_STREQ("shared", shared);
  std::string longText(5000, 'L');
  s.Format("<%s>", longText.c_str());
  EXPECT_EQ("<" + longText + ">", static_cast<const char*>(s));
  s.Format("%s", "");
  EXPECT_TRUE(s.IsEmpty());
}

TEST(String, FormatRetriesAResultOfExactly1023Characters) {
  FaultGuard guard;
  // Keep a block in reserve in the 1024-byte pool, so that only the
  // scratch blocks of the formatter reach the heap.
  { CString warm(std::string(1000, 'w').c_str()); }
  std::string text1022(1022, 'a'), text1023(1023, 'b');
  CString s;
  unsigned long before = platform::AllocationCount();
  s.Format("%s", text1022.c_str());
  EXPECT_EQ(1u, platform::AllocationCount() - before);
  EXPECT_EQ(1022u, s.GetLength());
  before = platform::AllocationCount();
  s.Format("%s", text1023.c_str());
  EXPECT_EQ(2u, platform::AllocationCount() - before);
  EXPECT_EQ(text1023, static_cast<const char*>(s));
  // The second attempt is the one that fails here: the source is the string's.
  platform::FailAllocationAt(2);
  ExpectThrow<CMemoryException>([&] { s.Format("%s", text1023.c_str()); }, nullptr,
                                "vesk/base/String");
  EXPECT_EQ(text1023, static_cast<const char*>(s));  // unchanged
}

TEST(String, AllocationFailuresThrowAndLeakNothing) {
  const std::string big(3000, 'b');
  const unsigned short wide[] = {'w', kEuro, 0xD83D, 0xDE00, 0};
  int failures = FailEachAllocationInTurn([&] {
    CString a(big.c_str());
    CString b("small");
    CString c(a);
    c += b;
    b.Insert(2, big.c_str());
    CString d = a.SubString(10, 2500) + "tail";
    d.Replace("b", "bb");
    CString e(wide);
    e.Format("%s-%d", big.c_str(), 7);
    CString f(CStringH("handle"));
    f.EnsureCapacity(4000);
    f.MakeUpper();
  });
  EXPECT_GE(failures, 10) << "too few allocations to exercise the failure paths";
}

}  // namespace

// A thread reuses the block it gave back last without the pool's lock; the
// block still counts as used, and goes back to the pool when the thread ends.
TEST(String, BlocksKeptByAThreadGoBackToThePoolWhenItEnds) {
  internal::ReturnThreadStringBlocks();
  CFixBlockAllocator* pool = internal::NarrowStringPool(64);
  unsigned int used = pool->GetUsedCount();
  std::thread worker([&] {
    const char* first;
    {
      CString s("kept");
      first = s;
    }
    EXPECT_EQ(used + 1, pool->GetUsedCount());  // kept, not returned
    CString again("reused");
    EXPECT_EQ(first, static_cast<const char*>(again));
  });
  worker.join();
  EXPECT_EQ(used, pool->GetUsedCount());
}
