// The 16-bit string collections share their bodies with the narrow ones
// (growth, removal and sort rules are checked there); these tests cover what
// is their own: texts beyond ASCII, case folding, their messages and sources.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "StringCollectionModels.h"
#include "TestObjects.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/util/UnicodeStringMap.h"
#include "vesk/util/UnicodeStringVector.h"
#include "vesk/util/UnicodeStringVectorEnumeration.h"

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CUnicodeString;
using vesk::util::CEnumeration;
using vesk::util::CNoSuchElementException;
using vesk::util::CUnicodeStringMap;
using vesk::util::CUnicodeStringVector;

namespace {

// Zero-terminated 16-bit text that lives as long as the holder.
class U {
 public:
  U(const std::u16string& text) : m_units(text.begin(), text.end()) { m_units.push_back(0); }
  operator const unsigned short*() const { return m_units.data(); }

 private:
  std::vector<unsigned short> m_units;
};

std::u16string Text(const CUnicodeString& s) {
  const unsigned short* units = s;
  return std::u16string(units, units + s.GetLength());
}

// Random text over a small alphabet that mixes ASCII, Latin-1 letters with
// case and a surrogate pair, so that searches hit often.
std::u16string RandomText(std::mt19937& random, int maxLength) {
  static const char16_t kUnits[] = {u'a', u'B', u'\u00e4', u'\u00c4', u'\u03a3'};
  std::u16string text;
  int length = static_cast<int>(random() % (maxLength + 1));
  for (int i = 0; i < length; ++i) {
    if (random() % 7 == 0) {
      text += u"\U0001F600";
    } else {
      text += kUnits[random() % 5];
    }
  }
  return text;
}

int CompareUnits(const void* a, const void* b) {
  return static_cast<const CUnicodeString*>(a)->Compare(*static_cast<const CUnicodeString*>(b));
}

TEST(UnicodeStringVectorTest, ErrorsSearchesAndEnumeration) {
  CUnicodeStringVector v(0, 4);
  EXPECT_EQ(10u, CUnicodeStringVector(0, 0).GetGrowthStep());
  for (const char16_t* text : {u"pear", u"\u00e4pfel", u""}) v.AddElement(U(text));
  EXPECT_EQ(1, v.GetIndexOf(U(u"\u00e4pfel")));
  EXPECT_EQ(-1, v.GetIndexOf(U(u"\u00c4pfel")));  // by text, case sensitively
  EXPECT_EQ(-1, v.GetIndexOf(nullptr));
  vesk_test::ExpectThrowFrom<CIllegalArgumentException>(
      [&] { v.AddElement(nullptr); }, "vesk/util/UnicodeStringVector", "Invalid element.");
  EXPECT_THROW(v.Contains(nullptr), CIllegalArgumentException);
  EXPECT_THROW(v.InsertElementAt(U(u"x"), 4), CArrayIndexOutOfBoundsException);
  EXPECT_EQ(3u, v.GetSize());

  CEnumeration<CUnicodeString> elements = v.GetElements();
  CEnumeration<CUnicodeString> sameWalk = elements;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Text(v[i]), Text(sameWalk.GetNextElement()));
  EXPECT_FALSE(elements.HasMoreElements());
  vesk_test::ExpectThrowFrom<CNoSuchElementException>([&] { elements.GetNextElement(); },
                                                      "vesk/util/UnicodeStringVectorEnumeration");
  // The enumeration returns the vector's own elements.
  vesk::util::CUnicodeStringVectorEnumeration walk(&v);
  walk.GetNextElement() = U(u"changed");
  EXPECT_EQ(u"changed", Text(v.GetFirstElement()));

  CUnicodeStringVector copy(v);
  EXPECT_TRUE(copy == v);
  copy.SetElementAt(U(u"plum"), 2);
  EXPECT_TRUE(copy != v);
  copy.RemoveAllElements();
  copy.TrimToSize();
  EXPECT_EQ(0u, copy.GetCapacity());
}

TEST(UnicodeStringVectorTest, MatchesAStandardVectorAndSurvivesFailures) {
  std::mt19937 random(7);
  CUnicodeStringVector v(0, 3);
  std::vector<std::u16string> model;
  ASSERT_NO_FATAL_FAILURE(vesk_test::RunVectorModel(
      v, model, 3, random, 5000, [&] { return RandomText(random, 2); },
      [](const std::u16string& text) { return U(text); }, &Text));
  // Sorting by units agrees with the standard library's order of UTF-16 text.
  v.Sort(&CompareUnits);
  std::sort(model.begin(), model.end());
  for (unsigned int i = 0; i < model.size(); ++i) ASSERT_EQ(model[i], Text(v[i]));

  CUnicodeStringVector source(0, 2);
  for (int i = 0; i < 9; ++i) source.AddElement(U(std::u16string(i * 40, u'\u00e9')));
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CUnicodeStringVector copy(source);
    copy.InsertElementAt(U(u"head"), 0);
    EXPECT_EQ(u"head", Text(copy[0]));
    copy = source;
  });
  EXPECT_GE(failures, 2);
}

TEST(UnicodeStringMapTest, KeysFoldBeyondAsciiAndErrors) {
  CUnicodeStringMap insensitive(false, 0, 0);
  insensitive.Put(U(u"\u00c4rger"), U(u"v1"));
  EXPECT_TRUE(insensitive.ContainsKey(U(u"\u00e4RGER")));
  insensitive.Put(U(u"\u00e4rger"), nullptr);
  EXPECT_EQ(1u, insensitive.GetSize());
  EXPECT_TRUE(insensitive.Get(U(u"\u00c4RGER")).IsEmpty());
  EXPECT_EQ(u"\u00c4rger", Text(insensitive.GetKeyAt(0)));  // the first spelling stays

  CUnicodeStringMap sensitive(true, 3, 2);
  EXPECT_TRUE(sensitive.IsKeyCaseSensitive());
  sensitive.Put(U(u"Key"), U(u"v1"));
  EXPECT_FALSE(sensitive.ContainsKey(U(u"KEY")));
  EXPECT_THROW(sensitive.Get(U(u"KEY")), CNoSuchElementException);
  vesk_test::ExpectThrowFrom<CIllegalArgumentException>(
      [&] { sensitive.Put(U(u""), U(u"x")); }, "vesk/util/UnicodeStringMap", "Invalid key.");
  EXPECT_THROW(sensitive.Put(nullptr, U(u"x")), CIllegalArgumentException);
  EXPECT_THROW(sensitive.GetKeyAt(1), CArrayIndexOutOfBoundsException);
  for (const char16_t* key : {u"b", u"c"}) sensitive.Put(U(key), U(key));
  EXPECT_TRUE(sensitive.Contains(U(u"v1")));

  std::vector<std::u16string> keys;
  for (CUnicodeStringMap::CKeyIterator it = sensitive.GetKeyIterator(); it.HasMoreElements();)
    keys.push_back(Text(it.GetNextElement()));
  EXPECT_EQ((std::vector<std::u16string>{u"Key", u"b", u"c"}), keys);
  vesk_test::ExpectMapEqualityIgnoresOrder(sensitive, U(u"b"), U(u"other"));
}

TEST(UnicodeStringMapTest, MatchesAnOrderedModelAndSurvivesFailures) {
  std::mt19937 random(5);
  CUnicodeStringMap map(false, 0, 3);
  // The alphabet's only case pairs are a/A, b/B, ä/Ä.
  auto fold = [](std::u16string s) {
    for (char16_t& c : s) {
      if (c == u'A') c = u'a';
      if (c == u'B') c = u'b';
      if (c == u'\u00c4') c = u'\u00e4';
    }
    return s;
  };
  auto makeKey = [&] {
    std::u16string key = RandomText(random, 2);
    return key.empty() ? std::u16string(u"A") : key;
  };
  ASSERT_NO_FATAL_FAILURE(vesk_test::RunMapModel(
      map, random, 4000, makeKey, [&] { return RandomText(random, 4); }, fold,
      [](const std::u16string& text) { return U(text); }, &Text));
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CUnicodeStringMap copy(map);
    copy.Put(U(u"a-new-key"), U(u"value"));
    copy = map;
  });
  EXPECT_GT(failures, 2);
}

}  // namespace
