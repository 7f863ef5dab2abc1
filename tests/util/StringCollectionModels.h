// Random runs shared by the narrow and 16-bit string collection tests: each
// drives a collection and a standard container with the same operations and
// compares the two after every step. Text is the standard string type, arg
// turns a Text into the collection's argument and read turns a stored string
// back into a Text.
#ifndef VESK_TESTS_UTIL_STRINGCOLLECTIONMODELS_H
#define VESK_TESTS_UTIL_STRINGCOLLECTIONMODELS_H

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vesk_test {

// Inserts, removes (by index and by text), replaces and searches at random;
// v starts empty with growth step step. makeText draws the next text.
template <class Vector, class Text, class MakeText, class Arg, class Read>
void RunVectorModel(Vector& v, std::vector<Text>& model, unsigned int step, std::mt19937& random,
                    int steps, MakeText makeText, Arg arg, Read read) {
  for (int i = 0; i < steps; ++i) {
    Text text = makeText();
    unsigned int op = random() % 6;
    if (op <= 1 || model.empty()) {
      unsigned int at = random() % (model.size() + 1);
      v.InsertElementAt(arg(text), at);
      model.insert(model.begin() + at, text);
    } else if (op == 2) {
      unsigned int at = random() % model.size();
      v.RemoveElementAt(at);
      model.erase(model.begin() + at);
    } else if (op == 3) {
      v.RemoveElement(arg(text));
      auto it = std::find(model.begin(), model.end(), text);
      if (it != model.end()) model.erase(it);
    } else if (op == 4) {
      unsigned int at = random() % model.size();
      v.SetElementAt(arg(text), at);
      model[at] = text;
    } else {
      auto first = std::find(model.begin(), model.end(), text);
      auto last = std::find(model.rbegin(), model.rend(), text);
      ASSERT_EQ(first == model.end() ? -1 : first - model.begin(), v.GetIndexOf(arg(text)));
      ASSERT_EQ(last == model.rend() ? -1 : model.rend() - last - 1, v.GetLastIndexOf(arg(text)));
    }
    ASSERT_EQ(model.size(), v.GetSize());
    // The capacity is the size rounded up to the step, never below one step.
    ASSERT_EQ(std::max<unsigned int>(step, (v.GetSize() + step - 1) / step * step),
              v.GetCapacity());
    for (unsigned int k = 0; k < model.size(); ++k) ASSERT_EQ(model[k], read(v[k]));
  }
}

// Puts (new keys and replaced values) and removes at random on an empty map
// whose keys ignore case; fold maps a key to its case-folded form. The map
// must keep the pairs in insertion order.
template <class Map, class MakeKey, class MakeValue, class Fold, class Arg, class Read>
void RunMapModel(Map& map, std::mt19937& random, int steps, MakeKey makeKey, MakeValue makeValue,
                 Fold fold, Arg arg, Read read) {
  typedef decltype(makeKey()) Text;
  std::vector<std::pair<Text, Text>> model;
  for (int step = 0; step < steps; ++step) {
    Text key = makeKey();
    Text value = makeValue();
    auto found = std::find_if(model.begin(), model.end(),
                              [&](const auto& pair) { return fold(pair.first) == fold(key); });
    if (random() % 3 != 0) {
      map.Put(arg(key), arg(value));
      if (found == model.end()) {
        model.emplace_back(key, value);
      } else {
        found->second = value;
      }
    } else {
      ASSERT_EQ(found != model.end(), map.Remove(arg(key)));
      if (found != model.end()) model.erase(found);
    }
    ASSERT_EQ(model.size(), map.GetSize());
    for (unsigned int i = 0; i < model.size(); ++i) {
      ASSERT_EQ(model[i].first, read(map.GetKeyAt(i)));
      ASSERT_EQ(model[i].second, read(map.GetAt(i)));
    }
  }
}

// Map equality ignores the order of the pairs but not the values. map holds
// the pair (b, b); other is another value.
template <class Map, class Arg>
void ExpectMapEqualityIgnoresOrder(const Map& map, Arg b, Arg other) {
  Map copy(map);
  EXPECT_TRUE(copy == map);
  copy.Remove(b);
  copy.Put(b, b);  // same pairs in another order
  EXPECT_TRUE(copy == map);
  copy.Put(b, other);
  EXPECT_TRUE(copy != map);
  copy.RemoveAll();
  EXPECT_EQ(0u, copy.GetCapacity());
  EXPECT_TRUE(copy.IsEmpty());
}

}  // namespace vesk_test

#endif
