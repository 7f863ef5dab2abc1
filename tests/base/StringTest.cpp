#include <cstring>
#include <initializer_list>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/String.h"
#include "vesk/base/StringH.h"
#include "vesk/base/internal/StringPools.h"
#include "vesk/platform/Memory.h"

using vesk::base::CMemoryException;
using vesk::base::CString;
using vesk::base::CStringData;
using vesk::base::CStringH;
namespace platform = vesk::platform;
namespace internal = vesk::base::internal;
using vesk::testing::ExpectThrow;
using vesk::testing::FailEachAllocationInTurn;
using vesk::testing::FaultGuard;

namespace {

// The header in front of a string's text (null for the null empty string).
const CStringData* Header(const CString& s) {
  const char* text = s;
  return *text ? reinterpret_cast<const CStringData*>(text) - 1 : nullptr;
}

const unsigned short kEuro = 0x20AC;

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
    EXPECT_EQ(-1, s->Compare(""));
    EXPECT_EQ(-1, s->CompareIgnoreCase(""));
    EXPECT_EQ(0, s->Compare(static_cast<const char*>(nullptr)));
    EXPECT_EQ(0, s->Compare(null));
    EXPECT_EQ(-1, s->Compare(CString("a")));
    EXPECT_EQ(-1, s->Find('a'));
    EXPECT_EQ(-1, s->ReverseFind("a"));
    EXPECT_TRUE(*s < "a");
    EXPECT_FALSE(*s < "");
    EXPECT_TRUE("" <= *s);
  }
  CString a("a"), b("b");
  EXPECT_EQ(1, a.Compare(""));
  EXPECT_EQ(1, a.Compare(static_cast<const char*>(nullptr)));
  EXPECT_EQ(1, a.Compare(null));
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

TEST(String, RightAndLeftKeepTheirCompatibleResults) {
  CString s("abcde");
  EXPECT_EQ(CString("cd"), s.Right(2));
  EXPECT_EQ(CString("d"), s.Right(1));
  EXPECT_TRUE(s.Right(0).IsEmpty());
  EXPECT_EQ(CString("abcde"), s.Right(5));
  EXPECT_EQ(CString("abcde"), s.Right(9));
  EXPECT_TRUE(CString("abc").Left(0).IsEmpty());
  EXPECT_EQ(CString("ab"), CString("abc").Left(2));
  // Whole-string results share the buffer.
  EXPECT_EQ(static_cast<const char*>(s), static_cast<const char*>(s.Left(7)));
  EXPECT_EQ(static_cast<const char*>(s), static_cast<const char*>(s.Right(5)));
}

TEST(String, SubStringAndMidBounds) {
  CString s("abcdef");
  EXPECT_EQ(CString("cdef"), s.SubString(2));
  EXPECT_EQ(CString("cd"), s.SubString(2, 4));
  EXPECT_EQ(CString("ef"), s.SubString(4, 100));
  EXPECT_TRUE(s.SubString(6).IsEmpty());
  EXPECT_TRUE(s.SubString(3, 3).IsEmpty());
  EXPECT_TRUE(s.SubString(4, 2).IsEmpty());
  EXPECT_TRUE(CString().SubString(0, 5).IsEmpty());
  EXPECT_EQ(CString("bcd"), s.Mid(1, 3));
  EXPECT_EQ(CString("bcdef"), s.Mid(1));
  EXPECT_TRUE(s.Mid(1, 0).IsEmpty());
  // A count of -1 from index 0 wraps to the largest end: the rest.
  EXPECT_EQ(s, s.Mid(0, -1));
}

TEST(String, ReverseFindProbesByNeedleLength) {
  EXPECT_EQ(2, CString("abab").ReverseFind("ab", 0));
  EXPECT_EQ(-1, CString("ab").ReverseFind("ab", 0));
  // Probes at 4 and 2 miss "ab" at 1; the probe at 0 is not above start.
  EXPECT_EQ(-1, CString("xabxxx").ReverseFind("ab", 0));
  // A probe searches forwards: the probe at 2 finds the match at 3.
  EXPECT_EQ(3, CString("xxxabx").ReverseFind("ab", 0));
  EXPECT_EQ(-1, CString("abab").ReverseFind("ab", 2));
  EXPECT_EQ(4, CString("xAByAB").ReverseFindIgnoreCase("ab", 0));
  EXPECT_EQ(-1, CString("abab").ReverseFind(""));
  EXPECT_EQ(-1, CString("ab").ReverseFind("abc"));
  EXPECT_EQ(2, CString("abab").ReverseFind(CString("ab")));
}

TEST(String, FindAndReverseFindCharacters) {
  CString s("hello world");
  EXPECT_EQ(2, s.Find('l'));
  EXPECT_EQ(9, s.Find('l', 4));
  EXPECT_EQ(-1, s.Find('l', 10));
  EXPECT_EQ(-1, s.Find('l', 11));
  EXPECT_EQ(-1, s.Find('z'));
  EXPECT_EQ(9, s.ReverseFind('l'));
  EXPECT_EQ(9, s.ReverseFind('l', 9));  // start is a lower bound
  EXPECT_EQ(-1, s.ReverseFind('h', 1));
  EXPECT_EQ(-1, s.ReverseFind('l', 11));
  EXPECT_EQ(6, s.Find("wor"));
  EXPECT_EQ(-1, s.Find("wor", 7));
  EXPECT_EQ(-1, s.Find(""));
  EXPECT_EQ(-1, s.Find(static_cast<const char*>(nullptr)));
  EXPECT_EQ(6, s.FindIgnoreCase("WORLD"));
  EXPECT_EQ(6, s.Find(CString("world")));
}

TEST(String, SearchesStepOverWholeUtf8Characters) {
  CString s("\u00e9\u20ac\U0001F600a");  // 2 + 3 + 4 + 1 bytes
  EXPECT_EQ(10u, s.GetLength());
  EXPECT_EQ(9, s.Find('a'));
  EXPECT_EQ(2, s.Find("\u20ac"));
  // A continuation byte is not a character: no match inside the euro sign.
  EXPECT_EQ(-1, s.Find('\x82'));
  EXPECT_EQ(-1, s.Find("\x82\xac"));
  EXPECT_EQ(0, s.FindIgnoreCase("\u00c9"));
  // A malformed byte is a character of its own.
  CString bad("a\x82\x62");
  EXPECT_EQ(1, bad.Find('\x82'));
  EXPECT_EQ(1, bad.ReverseFind('\x82'));
  EXPECT_EQ(1, CString("x\x82\xac").Find("\x82\xac"));
  EXPECT_EQ(-1, CString("\u00e9x").ReverseFind('\xc3'));  // a lead byte alone is no match
}

TEST(String, StartsAndEndsWith) {
  CString s("Hello");
  EXPECT_TRUE(s.StartsWith("He"));
  EXPECT_TRUE(s.StartsWith("Hello"));
  EXPECT_FALSE(s.StartsWith("Hello!"));
  EXPECT_FALSE(s.StartsWith(""));
  EXPECT_FALSE(s.StartsWith(static_cast<const char*>(nullptr)));
  EXPECT_FALSE(s.StartsWith("he"));
  EXPECT_TRUE(s.StartsWithIgnoreCase("he"));
  EXPECT_TRUE(s.EndsWith("llo"));
  EXPECT_FALSE(s.EndsWith("LLO"));
  EXPECT_TRUE(s.EndsWithIgnoreCase(CString("LLO")));
  EXPECT_FALSE(CString().EndsWith("a"));
}

TEST(String, CopiesShareUntilModified) {
  CString a("shared text");
  CString b(a);
  CString c;
  c = b;
  EXPECT_EQ(static_cast<const char*>(a), static_cast<const char*>(b));
  EXPECT_EQ(static_cast<const char*>(a), static_cast<const char*>(c));
  EXPECT_EQ(3u, Header(a)->refCount);
  b.SetAt(0, 'S');
  EXPECT_STREQ("shared text", a);
  EXPECT_STREQ("Shared text", b);
  EXPECT_EQ(2u, Header(a)->refCount);
  EXPECT_EQ(1u, Header(b)->refCount);
  c += "!";
  EXPECT_STREQ("shared text", a);
  EXPECT_STREQ("shared text!", c);
  EXPECT_EQ(1u, Header(a)->refCount);
  // Self-assignment and assigning a copy of the same buffer change nothing.
  const char* before = a;
  a = a;
  CString d(a);
  a = d;
  EXPECT_EQ(before, static_cast<const char*>(a));
  EXPECT_EQ(2u, Header(a)->refCount);
}

TEST(String, EveryEditUnsharesFirst) {
  CString original("  Mixed Case Text  ");
  auto check = [&original](void (*edit)(CString&)) {
    CString copy(original);
    edit(copy);
    EXPECT_STREQ("  Mixed Case Text  ", original);
  };
  check([](CString& s) { s.MakeUpper(); });
  check([](CString& s) { s.MakeLower(); });
  check([](CString& s) { s.MakeReverse(); });
  check([](CString& s) { s.TrimLeft(); });
  check([](CString& s) { s.TrimRight(); });
  check([](CString& s) { s.TrimLeft(" M"); });
  check([](CString& s) { s.Replace('e', 'E'); });
  check([](CString& s) { s.Replace("Case", "Longer Case"); });
  check([](CString& s) { s.Remove('x'); });
  check([](CString& s) { s.Insert(3, 'z'); });
  check([](CString& s) { s.Insert(3, "zz"); });
  check([](CString& s) { s.Delete(0, 4); });
  check([](CString& s) { s.Format("%d", 42); });
  check([](CString& s) { s = "other"; });
  check([](CString& s) { s.Empty(); });
}

TEST(String, EmptyKeepsAnOwnedBufferAndDropsASharedOne) {
  CString owned(std::string(300, 'x').c_str());
  const CStringData* header = Header(owned);
  ASSERT_NE(nullptr, header);
  EXPECT_EQ(512u, header->capacity);
  const char* buffer = owned;
  owned.Empty();
  EXPECT_TRUE(owned.IsEmpty());
  EXPECT_EQ(512u, header->capacity);
  owned = "reused";  // the kept buffer is written again
  EXPECT_EQ(buffer, static_cast<const char*>(owned));

  CString shared("shared");
  CString other(shared);
  shared.Empty();
  EXPECT_TRUE(shared.IsEmpty());
  EXPECT_STREQ("shared", other);
  EXPECT_EQ(1u, Header(other)->refCount);
}

TEST(String, CapacityClasses) {
  struct Case {
    std::size_t length;
    unsigned int capacity;
  } cases[] = {{1, 64},    {63, 64},    {64, 128},    {127, 128},   {200, 256},
               {511, 512}, {512, 1024}, {1023, 1024}, {1024, 1025}, {5000, 5001}};
  for (const Case& c : cases) {
    CString s(std::string(c.length, 'q').c_str());
    EXPECT_EQ(c.capacity, Header(s)->capacity) << c.length;
    EXPECT_EQ(c.length, s.GetLength());
  }
  CString grown;
  grown.EnsureCapacity(100);  // room for 100 characters and the terminator
  grown += "x";
  EXPECT_EQ(128u, Header(grown)->capacity);
}

TEST(String, ConstructionWithCountStopsAtNul) {
  EXPECT_STREQ("ab", CString("ab\0cd", 5));
  CString t("abcdef", 3);
  EXPECT_STREQ("abc", t);
  t.Set("xyz", 2);
  EXPECT_STREQ("xy", t);
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

TEST(String, ConcatenationAndAppend) {
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
  // Appending a string to itself, and a tail of itself, across a regrowth.
  CString self(std::string(40, 'a').c_str());
  self += self;
  EXPECT_EQ(std::string(80, 'a'), static_cast<const char*>(self));
  CString tail("0123456789");
  tail += static_cast<const char*>(tail) + 5;
  EXPECT_STREQ("012345678956789", tail);
}

TEST(String, AssignFromOwnText) {
  CString s("abcdef");
  s = static_cast<const char*>(s) + 2;
  EXPECT_STREQ("cdef", s);
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
  chars.TrimLeft("ab");
  EXPECT_TRUE(chars.IsEmpty());
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

TEST(String, ReplaceCharactersAndTexts) {
  CString s("a-b-c");
  EXPECT_EQ(2, s.Replace('-', '+'));
  EXPECT_STREQ("a+b+c", s);
  EXPECT_EQ(0, s.Replace('+', '+'));
  EXPECT_EQ(0, CString().Replace('a', 'b'));

  CString t("one two one two one");
  EXPECT_EQ(3, t.Replace("one", "1"));
  EXPECT_STREQ("1 two 1 two 1", t);
  EXPECT_EQ(2, t.Replace("two", "three"));
  EXPECT_STREQ("1 three 1 three 1", t);
  EXPECT_EQ(0, t.Replace("four", "x"));
  EXPECT_EQ(0, t.Replace("", "x"));
  EXPECT_EQ(3, t.Replace("1", static_cast<const char*>(nullptr)));
  EXPECT_STREQ(" three  three ", t);
  // Non-overlapping, left to right; the inserted text is not searched again.
  CString overlap("aaaa");
  EXPECT_EQ(2, overlap.Replace("aa", "aaa"));
  EXPECT_STREQ("aaaaaa", overlap);
  // Growth past the pooled sizes.
  CString big(std::string(600, 'x').c_str());
  EXPECT_EQ(600, big.Replace("x", "yy"));
  EXPECT_EQ(std::string(1200, 'y'), static_cast<const char*>(big));
  EXPECT_EQ(1201u, Header(big)->capacity);
  // Arguments taken from the string itself.
  CString own("abcabc");
  EXPECT_EQ(2, own.Replace(static_cast<const char*>(own) + 3, static_cast<const char*>(own)));
  EXPECT_STREQ("abcabcabcabc", own);
}

TEST(String, RemoveInsertDelete) {
  CString s("banana");
  EXPECT_EQ(3, s.Remove('a'));
  EXPECT_STREQ("bnn", s);
  EXPECT_EQ(0, s.Remove('z'));
  CString utf("\u00e9a\u00e9");
  EXPECT_EQ(0, utf.Remove('\xc3'));  // only whole characters are removed
  EXPECT_EQ(1, utf.Remove('a'));
  EXPECT_STREQ("\u00e9\u00e9", utf);

  CString empty;
  EXPECT_EQ(1, empty.Insert(5, 'x'));
  EXPECT_STREQ("x", empty);
  EXPECT_EQ(64u, Header(empty)->capacity);
  CString t("ace");
  EXPECT_EQ(4, t.Insert(1, 'b'));
  EXPECT_EQ(5, t.Insert(3, 'd'));
  EXPECT_EQ(6, t.Insert(99, 'f'));
  EXPECT_STREQ("abcdef", t);
  EXPECT_EQ(9, t.Insert(0, "xyz"));
  EXPECT_STREQ("xyzabcdef", t);
  EXPECT_EQ(9, t.Insert(2, ""));
  EXPECT_EQ(18, t.Insert(9, static_cast<const char*>(t)));
  EXPECT_STREQ("xyzabcdefxyzabcdef", t);

  CString d("0123456789");
  EXPECT_EQ(10, d.Delete(2, 3));  // the length before the deletion
  EXPECT_STREQ("0156789", d);
  EXPECT_EQ(7, d.Delete(2, 0));
  EXPECT_EQ(7, d.Delete(7, 1));
  EXPECT_EQ(7, d.Delete(5, 100));  // clamped to the end
  EXPECT_STREQ("01567", d);
  EXPECT_EQ(5u, d.GetLength());
}

TEST(String, SetAtAndGetAtIgnoreOutOfRange) {
  CString s("abc");
  s.SetAt(1, 'B');
  s.SetAt(3, 'X');
  s.SetAt(100, 'X');
  EXPECT_STREQ("aBc", s);
  EXPECT_EQ('c', s.GetAt(2));
  EXPECT_EQ('\0', s.GetAt(3));
  CString empty;
  empty.SetAt(0, 'x');
  EXPECT_TRUE(empty.IsEmpty());
}

TEST(String, FormatPrintsAndGrowsWithoutCutting) {
  CString s;
  s.Format("%s=%d, %.2f", "pi", 3, 3.14159);
  EXPECT_STREQ("pi=3, 3.14", s);
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
  vesk::base::CFixBlockAllocator* pool = internal::NarrowStringPool(64);
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
