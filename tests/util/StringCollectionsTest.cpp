#include <algorithm>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TestObjects.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/util/StringHashCode.h"
#include "vesk/util/StringMap.h"
#include "vesk/util/StringSet.h"
#include "vesk/util/StringVector.h"
#include "vesk/util/StringVectorH.h"
#include "vesk/util/StringVectorEnumeration.h"
#include "vesk/util/UnicodeStringMap.h"
#include "vesk/util/UnicodeStringVector.h"
#include "vesk/util/UnicodeStringVectorEnumeration.h"

using namespace vesk::base;
using namespace vesk::util;
using vesk::testing::ExpectThrow;
using vesk::testing::ExpectThrowIfAllocationFails;

namespace {

std::string RandomKey(std::mt19937& random, int alphabet, int maxLength) {
  std::string key(1 + random() % maxLength, 'a');
  for (char& c : key) c = static_cast<char>('a' + random() % alphabet);
  return key;
}

TEST(StringHashTest, ShortAndLongKeys) {
  EXPECT_EQ(97 * 37 + 98, GetStringHashCode("ab"));
  EXPECT_EQ(0, GetStringHashCode(nullptr));
  EXPECT_EQ(0, GetStringHashCode(""));
  const char* key = "0123456789abcdef";  // 16 bytes: every second byte, multiplier 39
  unsigned int h = 0;
  for (int i = 0; i < 16; i += 2) h = h * 39u + static_cast<unsigned char>(key[i]);
  EXPECT_EQ(static_cast<int>(h), GetStringHashCode(key));
  EXPECT_EQ(GetStringHashCode(key), GetCStringHashCode(CString(key)));
  EXPECT_EQ(0, GetCStringHashCode(CString()));
  // The 16-bit form applies the same rule to the units.
  EXPECT_EQ(GetStringHashCode(key), GetCUnicodeStringHashCode(CUnicodeString(key)));
  EXPECT_EQ(3687, GetCUnicodeStringHashCode(CUnicodeString("ab")));
  EXPECT_EQ(0, GetCUnicodeStringHashCode(CUnicodeString()));
  EXPECT_EQ(-5, GetLongHashCode(-5L));
  EXPECT_EQ(7, GetUnsignedLongHashCode(7UL));
}

int CompareStrings(const void* a, const void* b) {
  return std::strcmp(*static_cast<const CString*>(a), *static_cast<const CString*>(b));
}

// Zero-terminated text that lives as long as the holder.
template <class Unit, class Text>
class Z {
 public:
  Z(const Text& text) : m_units(text.begin(), text.end()) { m_units.push_back(0); }
  operator const Unit*() const { return m_units.data(); }

 private:
  std::vector<Unit> m_units;
};

// The narrow and 16-bit vectors and maps share their bodies; each pair runs
// the same tests on its own texts. Random texts mix case (and, in 16 bits,
// letters beyond ASCII and a surrogate pair) over a small alphabet, so that
// searches and case-blind keys hit often.
struct NarrowStrings {
  using Vector = CStringVector;
  using Enumeration = CStringVectorEnumeration;
  using Map = CStringMap;
  using Str = CString;
  using Text = std::string;
  static Z<char, Text> Arg(const Text& text) { return text; }
  static Text Read(const CString& s) { return s.operator const char*(); }
  static Text From(const char16_t* ascii) {
    return Text(ascii, ascii + std::char_traits<char16_t>::length(ascii));
  }
  static Text Random(std::mt19937& random, int maxLength) {
    Text text(random() % (maxLength + 1), 'a');
    for (char& c : text) c = "aAbBc"[random() % 5];
    return text;
  }
  static Text Fold(Text s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  }
  static int Compare(const void* a, const void* b) { return CompareStrings(a, b); }
  static constexpr const char16_t* kSpellings[] = {u"Key", u"KEY", u"key"};
  static constexpr const char* kVector = "vesk/util/StringVector";
  static constexpr const char* kMap = "vesk/util/StringMap";
  static constexpr const char* kEnumeration = "vesk/util/StringVectorEnumeration";
};
struct UnicodeStrings {
  using Vector = CUnicodeStringVector;
  using Enumeration = CUnicodeStringVectorEnumeration;
  using Map = CUnicodeStringMap;
  using Str = CUnicodeString;
  using Text = std::u16string;
  static Z<unsigned short, Text> Arg(const Text& text) { return text; }
  static Text Read(const Str& s) {
    const unsigned short* units = s;
    return Text(units, units + s.GetLength());
  }
  static Text From(const char16_t* text) { return text; }
  static Text Random(std::mt19937& random, int maxLength) {
    static const char16_t kUnits[] = {u'a', u'B', u'\u00e4', u'\u00c4', u'\u03a3'};
    Text text;
    for (int n = static_cast<int>(random() % (maxLength + 1)); n > 0; --n)
      text += random() % 7 == 0 ? Text(u"\U0001F600") : Text(1, kUnits[random() % 5]);
    return text;
  }
  static Text Fold(Text s) {  // the alphabet's only case pairs: a/A, b/B, ä/Ä
    for (char16_t& c : s) c = c == u'A' ? u'a' : c == u'B' ? u'b' : c == u'\u00c4' ? u'\u00e4' : c;
    return s;
  }
  static int Compare(const void* a, const void* b) {
    return static_cast<const Str*>(a)->Compare(*static_cast<const Str*>(b));
  }
  static constexpr const char16_t* kSpellings[] = {u"\u00c4rger", u"\u00e4RGER", u"\u00c4RGER"};
  static constexpr const char* kVector = "vesk/util/UnicodeStringVector";
  static constexpr const char* kMap = "vesk/util/UnicodeStringMap";
  static constexpr const char* kEnumeration = "vesk/util/UnicodeStringVectorEnumeration";
};

template <class T>
class StringCollections : public ::testing::Test {};
using StringKinds = ::testing::Types<NarrowStrings, UnicodeStrings>;
TYPED_TEST_SUITE(StringCollections, StringKinds);

TYPED_TEST(StringCollections, VectorErrorsSortCopiesAndEnumeration) {
  using T = TypeParam;
  auto A = [](const char16_t* text) { return T::Arg(T::From(text)); };
  typename T::Vector v(0, 4);
  EXPECT_EQ(10u, typename T::Vector(0, 0).GetGrowthStep());
  for (const char16_t* text : {u"pear", u"apple", u"fig", u"", u"kiwi"}) v.AddElement(A(text));
  EXPECT_TRUE(v.Contains(A(u"")));
  EXPECT_EQ(-1, v.GetIndexOf(nullptr));
  ExpectThrow<CIllegalArgumentException>([&] { v.AddElement(nullptr); }, "Invalid element.",
                                         T::kVector);
  EXPECT_THROW(v.SetElementAt(nullptr, 0), CIllegalArgumentException);
  EXPECT_THROW(v.Contains(nullptr), CIllegalArgumentException);
  EXPECT_THROW(v.GetElementAt(5), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.SetElementAt(A(u"x"), 5), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.InsertElementAt(A(u"x"), 6), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.Sort(nullptr), CIllegalArgumentException);

  v.Sort(&T::Compare);
  CEnumeration<typename T::Str> elements = v.GetElements();
  CEnumeration<typename T::Str> sameWalk = elements;
  for (const char16_t* text : {u"", u"apple", u"fig", u"kiwi", u"pear"}) {
    ASSERT_TRUE(elements.HasMoreElements());
    EXPECT_EQ(T::From(text), T::Read(sameWalk.GetNextElement()));
  }
  EXPECT_FALSE(elements.HasMoreElements());
  ExpectThrow<CNoSuchElementException>([&] { elements.GetNextElement(); }, nullptr,
                                       T::kEnumeration);
  // The enumeration hands out the vector's own elements.
  typename T::Enumeration walk(&v);
  walk.GetNextElement() = A(u"changed");
  EXPECT_EQ(T::From(u"changed"), T::Read(v.GetFirstElement()));

  // Inserts, removals and searches are checked by the random run.
  typename T::Vector copy(v);
  EXPECT_TRUE(copy == v);
  copy.SetElementAt(A(u"plum"), 4);
  EXPECT_TRUE(copy != v);
  copy.RemoveAllElements();
  EXPECT_EQ(4u, copy.GetCapacity());
  EXPECT_FALSE(copy.GetElements().HasMoreElements());
  copy.TrimToSize();
  EXPECT_EQ(0u, copy.GetCapacity());
}

TYPED_TEST(StringCollections, VectorMatchesAStandardVectorAndSurvivesFailures) {
  using T = TypeParam;
  std::mt19937 random(42);
  typename T::Vector v(0, 3);
  std::vector<typename T::Text> model;
  // Inserts, removes (by index and by text), replaces and searches at random.
  for (int i = 0; i < 5000; ++i) {
    typename T::Text text = T::Random(random, 3);
    unsigned int op = random() % 6, at = random() % (model.size() + 1);
    if (op <= 1 || model.empty()) {
      v.InsertElementAt(T::Arg(text), at);
      model.insert(model.begin() + at, text);
    } else if (op == 2) {
      v.RemoveElementAt(at % model.size());
      model.erase(model.begin() + at % model.size());
    } else if (op == 3) {
      v.RemoveElement(T::Arg(text));
      auto it = std::find(model.begin(), model.end(), text);
      if (it != model.end()) model.erase(it);
    } else if (op == 4) {
      v.SetElementAt(T::Arg(text), at % model.size());
      model[at % model.size()] = text;
    } else {
      auto first = std::find(model.begin(), model.end(), text);
      auto last = std::find(model.rbegin(), model.rend(), text);
      ASSERT_EQ(first == model.end() ? -1 : first - model.begin(), v.GetIndexOf(T::Arg(text)));
      ASSERT_EQ(last == model.rend() ? -1 : model.rend() - last - 1, v.GetLastIndexOf(T::Arg(text)));
    }
    ASSERT_EQ(model.size(), v.GetSize());
    // The capacity is the size rounded up to the step, never below one step.
    ASSERT_EQ(std::max<unsigned int>(3, (v.GetSize() + 2) / 3 * 3), v.GetCapacity());
    for (unsigned int k = 0; k < model.size(); ++k) ASSERT_EQ(model[k], T::Read(v[k]));
  }
  // Sorting agrees with the standard library's order of the texts (by units).
  v.Sort(&T::Compare);
  std::sort(model.begin(), model.end());
  for (unsigned int i = 0; i < model.size(); ++i) ASSERT_EQ(model[i], T::Read(v[i]));

  typename T::Vector source(0, 2);
  for (int i = 0; i < 9; ++i) source.AddElement(T::Arg(typename T::Text(i * 40, 'x')));
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    typename T::Vector copy(source);
    copy.InsertElementAt(T::Arg(T::From(u"head")), 0);
    EXPECT_EQ(T::From(u"head"), T::Read(copy[0]));
    copy = source;
  });
  EXPECT_GE(failures, 2);
}

TYPED_TEST(StringCollections, MapKeysCaseGrowthAndErrors) {
  using T = TypeParam;
  auto A = [](const char16_t* text) { return T::Arg(T::From(text)); };
  const char16_t* const* key = T::kSpellings;  // one key in three spellings
  typename T::Map insensitive(false, 0, 0);
  EXPECT_EQ(5u, insensitive.GetGrowthStep());
  EXPECT_EQ(0u, insensitive.GetCapacity());
  insensitive.Put(A(key[0]), A(u"v1"));
  EXPECT_EQ(5u, insensitive.GetCapacity());
  EXPECT_TRUE(insensitive.ContainsKey(A(key[1])));
  insensitive.Put(A(key[1]), nullptr);
  EXPECT_EQ(1u, insensitive.GetSize());
  EXPECT_EQ(T::From(u""), T::Read(insensitive.Get(A(key[2]))));
  EXPECT_EQ(T::From(key[0]), T::Read(insensitive.GetKeyAt(0)));  // the first spelling stays

  typename T::Map sensitive(true, 3, 2);
  EXPECT_TRUE(sensitive.IsKeyCaseSensitive());
  EXPECT_EQ(4u, sensitive.GetCapacity());
  sensitive.Put(A(key[0]), A(u"v1"));
  EXPECT_FALSE(sensitive.ContainsKey(A(key[1])));
  EXPECT_THROW(sensitive.Get(A(key[1])), CNoSuchElementException);
  EXPECT_THROW(typename T::Map().Get(A(u"a")), CNoSuchElementException);
  ExpectThrow<CIllegalArgumentException>([&] { sensitive.Put(A(u""), A(u"x")); }, "Invalid key.",
                                         T::kMap);
  EXPECT_THROW(sensitive.Put(nullptr, A(u"x")), CIllegalArgumentException);
  EXPECT_THROW(sensitive.GetAt(1), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(sensitive.GetKeyAt(1), CArrayIndexOutOfBoundsException);

  for (const char16_t* k : {u"b", u"c", u"d", u"e"}) sensitive.Put(A(k), A(k));
  EXPECT_EQ(6u, sensitive.GetCapacity());
  EXPECT_EQ(2, sensitive.GetIndexOf(A(u"c")));
  EXPECT_TRUE(sensitive.Remove(A(u"c")));
  EXPECT_EQ(4u, sensitive.GetCapacity());
  EXPECT_TRUE(sensitive.Contains(A(u"v1")));
  std::vector<typename T::Text> keys;
  for (auto it = static_cast<const typename T::Map&>(sensitive).GetKeyIterator();
       it.HasMoreElements();)
    keys.push_back(T::Read(it.GetNextElement()));
  EXPECT_EQ((std::vector<typename T::Text>{T::From(key[0]), T::From(u"b"), T::From(u"d"),
                                           T::From(u"e")}),
            keys);
  // Equality ignores the order of the pairs but not the values.
  typename T::Map copy(sensitive);
  EXPECT_TRUE(copy == sensitive);
  copy.Remove(A(u"b"));
  copy.Put(A(u"b"), A(u"b"));  // same pairs in another order
  EXPECT_TRUE(copy == sensitive);
  copy.Put(A(u"b"), A(u"other"));
  EXPECT_TRUE(copy != sensitive);
  copy.RemoveAll();
  EXPECT_EQ(0u, copy.GetCapacity());
  EXPECT_TRUE(copy.IsEmpty());
}

TYPED_TEST(StringCollections, MapMatchesAnOrderedModelAndSurvivesFailures) {
  using T = TypeParam;
  std::mt19937 random(3);
  typename T::Map map(false, 0, 3);
  // Puts (new keys and replaced values) and removes at random: the pairs stay
  // in insertion order, keys compared without case.
  std::vector<std::pair<typename T::Text, typename T::Text>> model;
  for (int step = 0; step < 4000; ++step) {
    typename T::Text key = T::Random(random, 2), value = T::Random(random, 5);
    if (key.empty()) key = T::From(u"A");
    auto found = std::find_if(model.begin(), model.end(),
                              [&](const auto& pair) { return T::Fold(pair.first) == T::Fold(key); });
    if (random() % 3 != 0) {
      map.Put(T::Arg(key), T::Arg(value));
      if (found == model.end()) model.emplace_back(key, value);
      else found->second = value;
    } else {
      ASSERT_EQ(found != model.end(), map.Remove(T::Arg(key)));
      if (found != model.end()) model.erase(found);
    }
    ASSERT_EQ(model.size(), map.GetSize());
    for (unsigned int i = 0; i < model.size(); ++i) {
      ASSERT_EQ(model[i].first, T::Read(map.GetKeyAt(i)));
      ASSERT_EQ(model[i].second, T::Read(map.GetAt(i)));
    }
  }
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    typename T::Map copy(map);
    copy.Put(T::Arg(T::From(u"a-new-key")), T::Arg(T::From(u"value")));
    copy.Put(T::Arg(T::From(u"another-new-key")), T::Arg(T::From(u"value")));
    copy = map;
  });
  EXPECT_GT(failures, 3);
}

TEST(StringVectorTest, SortsLongRunsAndWithoutScratchRoom) {
  std::mt19937 random(21);
  std::vector<std::string> model;
  for (int i = 0; i < 6000; ++i) model.push_back(i % 50 == 0 ? "" : RandomKey(random, 26, 12));
  std::vector<std::string> sorted = model;
  std::sort(sorted.begin(), sorted.end());
  auto check = [&](const CStringVector& v) {
    ASSERT_EQ(sorted.size(), v.GetSize());
    for (unsigned int i = 0; i < v.GetSize(); ++i)
      ASSERT_EQ(sorted[i], v[i].operator const char*());
  };
  // Random, already sorted and reversed input.
  for (int order = 0; order < 3; ++order) {
    CStringVector v(0, 1000);
    if (order == 1) std::sort(model.begin(), model.end());
    if (order == 2) std::reverse(model.begin(), model.end());
    for (const std::string& text : model) v.AddElement(text.c_str());
    v.Sort(&CompareStrings);
    check(v);
    v.RemoveAllElements();  // thousands of strings released at once
    EXPECT_EQ(1000u, v.GetCapacity());
  }
  // Without room for the scratch block the vector still sorts, in place.
  std::shuffle(model.begin(), model.end(), random);
  CStringVector v(0, 1000);
  for (const std::string& text : model) v.AddElement(text.c_str());
  vesk::platform::FailAllocationAt(1);
  v.Sort(&CompareStrings);
  vesk::platform::FailAllocationAt(0);
  check(v);
}

// Size, data size, data capacity, index capacity.
std::vector<unsigned int> Shape(const CStringVectorH& v) {
  return {v.GetSize(), v.GetDataSize(), v.GetDataCapacity(), v.GetIndexCapacity()};
}

TEST(StringVectorHTest, PacksStringsAndEmptiesOnFailedGrowth) {
  CStringVectorH v(0, 0, 0, 0);
  EXPECT_EQ(256u, v.GetDataGrowthStep());
  EXPECT_EQ(1u, v.GetIndexGrowthStep());
  v.AddElement("alpha");
  v.AddElement(CString());
  v.AddElement("beta");
  EXPECT_EQ(Shape(v), (std::vector<unsigned int>{3, 6 + 1 + 5, 256, 3}));
  EXPECT_STREQ("", v.GetElementAt(1));
  CString filled;
  v.GetLastElement(filled);
  EXPECT_STREQ("beta", filled);
  EXPECT_EQ(1, v.GetIndexOf(""));
  EXPECT_EQ(-1, v.GetIndexOf("gamma"));
  EXPECT_THROW(v.GetElementAt(3), CArrayIndexOutOfBoundsException);

  CStringVectorH copy(v);
  EXPECT_STREQ("alpha", copy.GetFirstElement());
  EXPECT_EQ(v.GetDataSize(), copy.GetDataSize());

  // The data buffer cannot grow past 256 bytes: the vector is emptied.
  std::string big(300, 'b');
  CString bigText(big.c_str());
  ExpectThrowIfAllocationFails([&] { v.AddElement(bigText); }, nullptr, nullptr, true);
  EXPECT_EQ(Shape(v), (std::vector<unsigned int>{0, 0, 256, 0}));
  v.AddElement(big.c_str());
  EXPECT_EQ(big, v.GetElementAt(0).operator const char*());
  EXPECT_EQ(512u, v.GetDataCapacity());

  // An index that cannot grow empties it too.
  CString x("x");
  ExpectThrowIfAllocationFails([&] { copy.AddElement(x); }, nullptr, nullptr, true);
  EXPECT_EQ(Shape(copy), (std::vector<unsigned int>{0, 0, 0, 3}));

  // Compacting shrinks to the contents rounded up to the step, but keeps
  // at least one step, even of a buffer that holds nothing.
  CStringVectorH compact(100, 16, 10, 4);
  EXPECT_EQ(Shape(compact), (std::vector<unsigned int>{0, 0, 112, 12}));
  compact.CompactStringDataBuffer();
  compact.CompactStringIndexBuffer();
  EXPECT_EQ(Shape(compact), (std::vector<unsigned int>{0, 0, 16, 4}));
  compact.AddElement(CString(std::string(20, 'c').c_str()));
  compact.EnsureStringDataCapacity(80);
  compact.EnsureStringIndexCapacity(9);
  compact.CompactStringDataBuffer();
  compact.CompactStringIndexBuffer();
  EXPECT_EQ(Shape(compact), (std::vector<unsigned int>{1, 21, 32, 4}));
  EXPECT_STREQ(std::string(20, 'c').c_str(), compact.GetFirstElement());

  int failures = vesk_test::RunWithEveryAllocationFailing([] {
    CStringVectorH local(8, 8, 1, 1);
    for (int i = 0; i < 6; ++i) local.AddElement("0123456789");
    CStringVectorH other(local);
  });
  EXPECT_GT(failures, 4);
}

// The bucket and threshold rules belong to the hashtable and are checked
// there; the set only chooses its defaults.
TEST(StringSetTest, DefaultsAndKeyErrors) {
  CStringSet set, small(0, 0);
  EXPECT_EQ(101u, set.GetBucketCount());
  EXPECT_EQ(75, set.GetThreshold());
  EXPECT_EQ(11u, small.GetBucketCount());
  ExpectThrow<CIllegalArgumentException>([&] { small.Put(""); }, "Invalid key.",
                                         "vesk/util/StringHashtable");
  EXPECT_THROW(small.Put(nullptr), CIllegalArgumentException);
  EXPECT_FALSE(small.Contains(nullptr));
}

TEST(StringHashtableTest, MatchesAnUnorderedMapWithKeysOfEveryLength) {
  std::mt19937 random(9);
  CStringHashtable<CString> table(0, 0);
  std::unordered_map<std::string, std::string> model;
  for (int step = 0; step < 3000; ++step) {
    // Lengths from 1 to 1500 bytes, short ones most often so keys repeat.
    std::size_t length = random() % 4 ? 1 + random() % 3 : 1 + random() % 1500;
    std::string key(length, 'a');
    for (char& c : key) c = static_cast<char>('a' + random() % 3);
    std::string value = std::to_string(step);
    switch (random() % 4) {
      case 0: {
        bool present = model.count(key) > 0;
        ASSERT_EQ(present, table.Remove(key.c_str()));
        model.erase(key);
        break;
      }
      case 1: {  // the previous value is handed back
        CString previous;
        bool present = model.count(key) > 0;
        ASSERT_EQ(present, table.Put(CString(key.c_str()), CString(value.c_str()), &previous));
        if (present) ASSERT_EQ(model[key], previous.operator const char*());
        model[key] = value;
        break;
      }
      default:
        table.Put(key.c_str(), CString(value.c_str()));
        model[key] = value;
    }
    ASSERT_EQ(model.size(), table.GetSize());
  }
  CStringHashtable<CString> copy(table);
  std::size_t seen = 0;
  for (CEnumeration<CString> keys = copy.GetKeys(); keys.HasMoreElements(); ++seen) {
    CString key = keys.GetNextElement();
    auto found = model.find(key.operator const char*());
    ASSERT_TRUE(found != model.end());
    const CString* value = table.Find(key);
    ASSERT_TRUE(value != nullptr);
    EXPECT_EQ(found->second, value->operator const char*());
  }
  EXPECT_EQ(model.size(), seen);
  // A copy keeps every chain in its order.
  std::vector<std::string> original, copied;
  table.ForEach([&](const auto& key, const CString&) { original.push_back(key.GetText()); });
  copy.ForEach([&](const auto& key, const CString&) { copied.push_back(key.GetText()); });
  EXPECT_EQ(original, copied);
}

std::set<std::string> Members(const CStringSet& set) {
  std::set<std::string> members;
  for (CEnumeration<CString> e = set.GetElements(); e.HasMoreElements();)
    EXPECT_TRUE(members.insert(e.GetNextElement().operator const char*()).second);
  return members;
}

TEST(StringSetTest, AlgebraMatchesStandardSets) {
  std::mt19937 random(11);
  for (int round = 0; round < 200; ++round) {
    CStringSet a(0, 0), b(3, 0.5f);
    std::set<std::string> ma, mb;
    for (int i = 0; i < static_cast<int>(random() % 40); ++i) {
      std::string key = RandomKey(random, 6, 3);
      a.Put(key.c_str());
      ma.insert(key);
      if (random() % 3 == 0) {
        a.Remove(key.c_str());
        ma.erase(key);
      }
    }
    for (int i = 0; i < static_cast<int>(random() % 40); ++i) {
      std::string key = RandomKey(random, 6, 3);
      b.Put(key.c_str());
      mb.insert(key);
    }
    ASSERT_EQ(ma, Members(a));
    ASSERT_EQ(std::includes(mb.begin(), mb.end(), ma.begin(), ma.end()), a.IsSubSetOf(b));
    ASSERT_EQ(std::includes(ma.begin(), ma.end(), mb.begin(), mb.end()), a.IsSuperSetOf(b));
    ASSERT_EQ(ma == mb, a == b);
    ASSERT_TRUE(a.IsSubSetOf(CStringSet(a)) && a.IsSuperSetOf(CStringSet(a)));

    std::set<std::string> expected;
    auto into = std::inserter(expected, expected.end());
    CStringSet result(a);
    if (round % 3 == 0) {
      result += b;
      std::set_union(ma.begin(), ma.end(), mb.begin(), mb.end(), into);
    } else if (round % 3 == 1) {
      result -= b;
      std::set_difference(ma.begin(), ma.end(), mb.begin(), mb.end(), into);
    } else {
      result *= b;
      std::set_intersection(ma.begin(), ma.end(), mb.begin(), mb.end(), into);
    }
    ASSERT_EQ(expected, Members(result));
    ASSERT_EQ(expected.size(), result.GetSize());
  }
  CStringSet self;
  self.Put("x");
  self += self;
  EXPECT_EQ(1u, self.GetSize());
  self *= self;
  EXPECT_EQ(1u, self.GetSize());
  self -= self;
  EXPECT_TRUE(self.IsEmpty());
}

TEST(StringSetTest, FailedCopyAndRehashLeaveNoLeak) {
  CStringSet source(2, 1.0f);
  for (int i = 0; i < 20; ++i) source.Put(("member" + std::to_string(i)).c_str());
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CStringSet copy(source);
    for (int i = 0; i < 30; ++i) copy.Put(("extra" + std::to_string(i)).c_str());
    copy *= source;
  });
  EXPECT_GT(failures, 20);
}

}  // namespace
