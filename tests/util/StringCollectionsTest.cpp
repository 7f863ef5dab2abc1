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

#include "StringCollectionModels.h"
#include "TestObjects.h"
#include "vesk/base/ArrayIndexOutOfBoundsException.h"
#include "vesk/base/IllegalArgumentException.h"
#include "vesk/base/UnicodeString.h"
#include "vesk/util/StringHashCode.h"
#include "vesk/util/StringMap.h"
#include "vesk/util/StringSet.h"
#include "vesk/util/StringVector.h"
#include "vesk/util/StringVectorH.h"

using vesk::base::CArrayIndexOutOfBoundsException;
using vesk::base::CIllegalArgumentException;
using vesk::base::CMemoryException;
using vesk::base::CString;
using vesk::util::CEnumeration;
using vesk::util::CNoSuchElementException;
using vesk::util::CStringHashtable;
using vesk::util::CStringMap;
using vesk::util::CStringSet;
using vesk::util::CStringVector;
using vesk::util::CStringVectorH;

namespace {

std::string RandomKey(std::mt19937& random, int alphabet, int maxLength) {
  std::string key(1 + random() % maxLength, 'a');
  for (char& c : key) c = static_cast<char>('a' + random() % alphabet);
  return key;
}

TEST(StringHashTest, ShortAndLongKeys) {
  EXPECT_EQ(97 * 37 + 98, vesk::util::GetStringHashCode("ab"));
  EXPECT_EQ(0, vesk::util::GetStringHashCode(nullptr));
  EXPECT_EQ(0, vesk::util::GetStringHashCode(""));
  const char* key = "0123456789abcdef";  // 16 bytes: every second byte, multiplier 39
  unsigned int h = 0;
  for (int i = 0; i < 16; i += 2) h = h * 39u + static_cast<unsigned char>(key[i]);
  EXPECT_EQ(static_cast<int>(h), vesk::util::GetStringHashCode(key));
  EXPECT_EQ(vesk::util::GetStringHashCode(key), vesk::util::GetCStringHashCode(CString(key)));
  EXPECT_EQ(0, vesk::util::GetCStringHashCode(CString()));
  // The 16-bit form applies the same rule to the units.
  EXPECT_EQ(vesk::util::GetStringHashCode(key),
            vesk::util::GetCUnicodeStringHashCode(vesk::base::CUnicodeString(key)));
  EXPECT_EQ(3687, vesk::util::GetCUnicodeStringHashCode(vesk::base::CUnicodeString("ab")));
  EXPECT_EQ(0, vesk::util::GetCUnicodeStringHashCode(vesk::base::CUnicodeString()));
  EXPECT_EQ(-5, vesk::util::GetLongHashCode(-5L));
  EXPECT_EQ(7, vesk::util::GetUnsignedLongHashCode(7UL));
}

std::string Text(const CString& s) { return s.operator const char*(); }

int CompareStrings(const void* a, const void* b) {
  return std::strcmp(*static_cast<const CString*>(a), *static_cast<const CString*>(b));
}

TEST(StringVectorTest, GrowthErrorsSortAndEnumeration) {
  CStringVector v(0, 4);
  for (const char* text : {"pear", "apple", "fig", "", "kiwi"}) v.AddElement(text);
  EXPECT_EQ(8u, v.GetCapacity());
  EXPECT_TRUE(v.Contains(""));
  EXPECT_EQ(3, v.GetIndexOf(""));
  vesk_test::ExpectThrowFrom<CIllegalArgumentException>(
      [&] { v.AddElement(nullptr); }, "vesk/util/StringVector", "Invalid element.");
  EXPECT_THROW(v.SetElementAt(nullptr, 0), CIllegalArgumentException);
  EXPECT_THROW(v.Contains(nullptr), CIllegalArgumentException);
  EXPECT_THROW(v.GetElementAt(5), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.SetElementAt("x", 5), CArrayIndexOutOfBoundsException);
  EXPECT_THROW(v.Sort(nullptr), CIllegalArgumentException);

  v.Sort(&CompareStrings);
  const char* sorted[] = {"", "apple", "fig", "kiwi", "pear"};
  CEnumeration<CString> elements = v.GetElements();
  CEnumeration<CString> sameWalk = elements;
  for (const char* text : sorted) {
    ASSERT_TRUE(elements.HasMoreElements());
    EXPECT_STREQ(text, sameWalk.GetNextElement());
  }
  EXPECT_FALSE(elements.HasMoreElements());
  EXPECT_THROW(elements.GetNextElement(), CNoSuchElementException);

  // Inserts, removals and searches are checked by the random run below.
  CStringVector copy(v);
  EXPECT_TRUE(copy == v);
  copy.SetElementAt("plum", 4);
  EXPECT_TRUE(copy != v);
  copy.RemoveAllElements();
  EXPECT_EQ(4u, copy.GetCapacity());
  EXPECT_FALSE(copy.GetElements().HasMoreElements());
}

TEST(StringVectorTest, MatchesAStandardVectorAndSurvivesFailures) {
  std::mt19937 random(42);
  CStringVector v(0, 3);
  std::vector<std::string> model;
  vesk_test::RunVectorModel(
      v, model, 3, random, 6000, [&] { return RandomKey(random, 4, 3); },
      [](const std::string& text) { return text.c_str(); }, &Text);

  CStringVector source(0, 2);
  for (int i = 0; i < 9; ++i) source.AddElement(std::string(i * 40, 'x').c_str());
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CStringVector copy(source);
    copy.InsertElementAt("head", 0);
    copy = source;
  });
  EXPECT_GE(failures, 2);
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

TEST(StringVectorHTest, PacksStringsAndEmptiesOnFailedGrowth) {
  CStringVectorH v(0, 0, 0, 0);
  EXPECT_EQ(256u, v.GetDataGrowthStep());
  EXPECT_EQ(1u, v.GetIndexGrowthStep());
  v.AddElement("alpha");
  v.AddElement(CString());
  v.AddElement("beta");
  EXPECT_EQ(3u, v.GetSize());
  EXPECT_EQ(6u + 1u + 5u, v.GetDataSize());
  EXPECT_EQ(256u, v.GetDataCapacity());
  EXPECT_EQ(3u, v.GetIndexCapacity());
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
  vesk::platform::FailAllocationAt(1, true);
  EXPECT_THROW(v.AddElement(bigText), CMemoryException);
  vesk::platform::FailAllocationAt(0);
  EXPECT_EQ(0u, v.GetSize());
  EXPECT_EQ(0u, v.GetDataSize());
  EXPECT_EQ(0u, v.GetIndexCapacity());
  EXPECT_EQ(256u, v.GetDataCapacity());
  v.AddElement(big.c_str());
  EXPECT_EQ(big, v.GetElementAt(0).operator const char*());
  EXPECT_EQ(512u, v.GetDataCapacity());

  // An index that cannot grow empties it too.
  CString x("x");
  vesk::platform::FailAllocationAt(1, true);
  EXPECT_THROW(copy.AddElement(x), CMemoryException);
  vesk::platform::FailAllocationAt(0);
  EXPECT_EQ(0u, copy.GetSize());
  EXPECT_EQ(0u, copy.GetDataCapacity());

  // Compacting shrinks to the contents rounded up to the step, but keeps
  // at least one step, even of a buffer that holds nothing.
  CStringVectorH compact(100, 16, 10, 4);
  EXPECT_EQ(112u, compact.GetDataCapacity());
  EXPECT_EQ(12u, compact.GetIndexCapacity());
  compact.CompactStringDataBuffer();
  compact.CompactStringIndexBuffer();
  EXPECT_EQ(16u, compact.GetDataCapacity());
  EXPECT_EQ(4u, compact.GetIndexCapacity());
  compact.AddElement(CString(std::string(20, 'c').c_str()));
  compact.EnsureStringDataCapacity(80);
  compact.EnsureStringIndexCapacity(9);
  compact.CompactStringDataBuffer();
  compact.CompactStringIndexBuffer();
  EXPECT_EQ(32u, compact.GetDataCapacity());
  EXPECT_EQ(4u, compact.GetIndexCapacity());
  EXPECT_STREQ(std::string(20, 'c').c_str(), compact.GetFirstElement());

  int failures = vesk_test::RunWithEveryAllocationFailing([] {
    CStringVectorH local(8, 8, 1, 1);
    for (int i = 0; i < 6; ++i) local.AddElement("0123456789");
    CStringVectorH other(local);
  });
  EXPECT_GT(failures, 4);
}

TEST(StringMapTest, KeysCaseAndGrowth) {
  CStringMap insensitive(false, 0, 0);
  EXPECT_EQ(5u, insensitive.GetGrowthStep());
  EXPECT_EQ(0u, insensitive.GetCapacity());
  insensitive.Put("Key", "v1");
  EXPECT_EQ(5u, insensitive.GetCapacity());
  EXPECT_TRUE(insensitive.ContainsKey("KEY"));
  insensitive.Put("KEY", nullptr);
  EXPECT_EQ(1u, insensitive.GetSize());
  EXPECT_STREQ("", insensitive.Get("key"));
  EXPECT_STREQ("Key", insensitive.GetKeyAt(0));

  CStringMap sensitive(true, 3, 2);
  EXPECT_EQ(4u, sensitive.GetCapacity());
  sensitive.Put("Key", "v1");
  EXPECT_FALSE(sensitive.ContainsKey("KEY"));
  EXPECT_THROW(sensitive.Get("KEY"), CNoSuchElementException);
  EXPECT_THROW(CStringMap().Get("a"), CNoSuchElementException);
  vesk_test::ExpectThrowFrom<CIllegalArgumentException>([&] { sensitive.Put("", "x"); },
                                                        "vesk/util/StringMap", "Invalid key.");
  EXPECT_THROW(sensitive.Put(nullptr, "x"), CIllegalArgumentException);
  EXPECT_THROW(sensitive.GetAt(1), CArrayIndexOutOfBoundsException);

  for (const char* key : {"b", "c", "d", "e"}) sensitive.Put(key, key);
  EXPECT_EQ(6u, sensitive.GetCapacity());
  EXPECT_EQ(2, sensitive.GetIndexOf("c"));
  EXPECT_TRUE(sensitive.Remove("c"));
  EXPECT_EQ(4u, sensitive.GetCapacity());

  std::vector<std::string> keys;
  for (CStringMap::CConstKeyIterator it =
           static_cast<const CStringMap&>(sensitive).GetKeyIterator();
       it.HasMoreElements();)
    keys.push_back(it.GetNextElement().operator const char*());
  EXPECT_EQ((std::vector<std::string>{"Key", "b", "d", "e"}), keys);

  vesk_test::ExpectMapEqualityIgnoresOrder(sensitive, "b", "other");
}

TEST(StringMapTest, MatchesAnOrderedModelAndSurvivesFailures) {
  std::mt19937 random(3);
  CStringMap map(false, 0, 3);
  auto lower = [](std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
  };
  auto makeKey = [&] {
    std::string key = RandomKey(random, 5, 2);
    if (random() % 2) key[0] = static_cast<char>(std::toupper(key[0]));
    return key;
  };
  ASSERT_NO_FATAL_FAILURE(vesk_test::RunMapModel(
      map, random, 4000, makeKey, [&] { return RandomKey(random, 26, 5); }, lower,
      [](const std::string& text) { return text.c_str(); }, &Text));
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CStringMap copy(map);
    copy.Put("a-new-key", "value");
    copy.Put("another-new-key", "value");
    copy = map;
  });
  EXPECT_GT(failures, 3);
}

// The bucket and threshold rules belong to the hashtable and are checked
// there; the set only chooses its defaults.
TEST(StringSetTest, DefaultsAndKeyErrors) {
  CStringSet set, small(0, 0);
  EXPECT_EQ(101u, set.GetBucketCount());
  EXPECT_EQ(75, set.GetThreshold());
  EXPECT_EQ(11u, small.GetBucketCount());
  vesk_test::ExpectThrowFrom<CIllegalArgumentException>(
      [&] { small.Put(""); }, "vesk/util/StringHashtable", "Invalid key.");
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
    EXPECT_TRUE(copy.ContainsKey(key.operator const char*()));
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
    CStringSet result(a);
    switch (round % 3) {
      case 0:
        result += b;
        std::set_union(ma.begin(), ma.end(), mb.begin(), mb.end(),
                       std::inserter(expected, expected.end()));
        break;
      case 1:
        result -= b;
        std::set_difference(ma.begin(), ma.end(), mb.begin(), mb.end(),
                            std::inserter(expected, expected.end()));
        break;
      default:
        result *= b;
        std::set_intersection(ma.begin(), ma.end(), mb.begin(), mb.end(),
                              std::inserter(expected, expected.end()));
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
