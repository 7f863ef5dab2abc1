#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include <gtest/gtest.h>

#include "TestObjects.h"
#include "vesk/util/Hashtable.h"
#include "vesk/util/Queue.h"
#include "vesk/util/Sort.h"
#include "vesk/util/Stack.h"
#include "vesk/util/StringHashCode.h"
#include "vesk/util/StringHashtable.h"

using namespace vesk::util;

namespace {

TEST(HashtableTest, BucketCountsAndThresholds) {
  CHashtable<long, int> table;
  EXPECT_EQ(101u, table.GetBucketCount());
  EXPECT_EQ(75, table.GetThreshold());
  for (long k = 0; k < 75; ++k) table.Put(k, static_cast<int>(k));
  EXPECT_EQ(101u, table.GetBucketCount());
  table.Put(75L, 75);
  EXPECT_EQ(203u, table.GetBucketCount());
  EXPECT_EQ(152, table.GetThreshold());

  CHashtable<long, int> small(0, 0);
  EXPECT_EQ(11u, small.GetBucketCount());
  EXPECT_EQ(8, small.GetThreshold());
  EXPECT_FLOAT_EQ(0.75f, small.GetLoadFactor());
  CHashtable<long, int> tiny(1, -2.0f);
  EXPECT_EQ(0, tiny.GetThreshold());
  tiny.Put(5L, 1);  // a threshold of 0 rehashes before the first put
  EXPECT_EQ(3u, tiny.GetBucketCount());
  EXPECT_EQ(2, tiny.GetThreshold());
}

template <class Table>
std::vector<long> Keys(const Table& table) {
  std::vector<long> keys;
  for (CEnumeration<long> e = table.GetKeys(); e.HasMoreElements();)
    keys.push_back(e.GetNextElement());
  return keys;
}

TEST(HashtableTest, RehashReversesEachChain) {
  // With 2 buckets keys 1, 3 and 5 share bucket 1; the newest is the head.
  CHashtable<long, int> table(2, 1.5f);
  table.Put(1L, 10);
  table.Put(3L, 30);
  table.Put(5L, 50);
  EXPECT_EQ((std::vector<long>{5, 3, 1}), Keys(table));
  // 5 buckets: 1 -> 1, 3 -> 3, 5 -> 0, 13 -> 3. The chain 5, 3, 1 is moved
  // head first, so 13 lands at the head of bucket 3 after the rehash.
  table.Put(13L, 130);
  EXPECT_EQ(5u, table.GetBucketCount());
  EXPECT_EQ((std::vector<long>{5, 1, 13, 3}), Keys(table));

  CHashtable<long, int> copy(table);
  std::vector<long> order;
  copy.ForEach([&](long key, int) { order.push_back(key); });
  EXPECT_EQ((std::vector<long>{5, 1, 13, 3}), order);
  EXPECT_EQ(4u, copy.GetSize());
}

TEST(HashtableTest, PutGetRemoveAndEnumerationEnd) {
  CHashtable<unsigned long, int> table(3);
  int previous = 0;
  EXPECT_FALSE(table.Put(7UL, 1));
  // Put, Get and Remove answers are checked by the random run below.
  EXPECT_TRUE(table.Put(7UL, 2, &previous));
  EXPECT_EQ(1, previous);
  EXPECT_EQ(nullptr, table.Find(8UL));
  *table.Find(7UL) = 3;
  EXPECT_TRUE(table.Remove(7UL, &previous));
  EXPECT_EQ(3, previous);
  EXPECT_TRUE(table.IsEmpty());
  CEnumeration<unsigned long> keys = table.GetKeys();
  EXPECT_FALSE(keys.HasMoreElements());
  EXPECT_THROW(keys.GetNextElement(), CNoSuchElementException);
  // Copies of an enumeration step the same pass.
  table.Put(1UL, 1);
  table.Put(2UL, 2);
  CEnumeration<unsigned long> first = table.GetKeys();
  CEnumeration<unsigned long> second = first;
  first.GetNextElement();
  second.GetNextElement();
  EXPECT_FALSE(first.HasMoreElements());
}

// A null key hashes to bucket 0: look-ups with it find nothing, even when
// that bucket holds entries, and Put refuses it.
TEST(HashtableTest, NullKeyFindsNothingInAStringTable) {
  CStringHashtable<int> table(11);
  std::string key;
  for (int i = 0; key.empty(); ++i) {
    std::string candidate = "k" + std::to_string(i);
    unsigned int hash = static_cast<unsigned int>(GetStringHashCode(candidate.c_str()));
    if ((hash & 0x7FFFFFFFu) % table.GetBucketCount() == 0) key = candidate;
  }
  table.Put(key.c_str(), 1);
  const char* none = nullptr;
  EXPECT_EQ(nullptr, table.Find(none));
  EXPECT_FALSE(table.ContainsKey(none));
  EXPECT_FALSE(table.Remove(none));
  EXPECT_THROW(table.Put(none, 2), vesk::base::CIllegalArgumentException);
  EXPECT_TRUE(table.ContainsKey(key.c_str()));
}

TEST(HashtableTest, MatchesAStandardMapOverARandomRun) {
  std::mt19937 random(20240611);
  CHashtable<long, int> table(0, 0.6f);
  std::unordered_map<long, int> model;
  for (int step = 0; step < 20000; ++step) {
    long key = static_cast<long>(random() % 600) - 300;
    int value = static_cast<int>(random());
    switch (random() % 4) {
      case 0:
      case 1: {
        bool existed = model.count(key) != 0;
        ASSERT_EQ(existed, table.Put(key, value));
        model[key] = value;
        break;
      }
      case 2:
        ASSERT_EQ(model.erase(key) != 0, table.Remove(key));
        break;
      default: {
        int found = 0;
        bool present = table.Get(key, found);
        ASSERT_EQ(model.count(key) != 0, present);
        if (present) ASSERT_EQ(model[key], found);
      }
    }
    ASSERT_EQ(model.size(), table.GetSize());
    ASSERT_LE(static_cast<int>(table.GetSize()), table.GetThreshold());
  }
  unsigned int seen = 0;
  table.ForEach([&](long key, int value) {
    ++seen;
    EXPECT_EQ(model.at(key), value);
  });
  EXPECT_EQ(model.size(), seen);
}

TEST(HashtableTest, FailedAllocationsLeaveTheTableIntact) {
  CHashtable<long, int> source(2);
  for (long k = 0; k < 30; ++k) source.Put(k, static_cast<int>(k));
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CHashtable<long, int> copy(source);
    for (long k = 100; k < 120; ++k) copy.Put(k, 1);
    copy = source;
  });
  EXPECT_GT(failures, 30);

  CHashtable<long, int> table(3, 1.0f);
  for (long k = 0; k < 3; ++k) table.Put(k, 1);
  // The rehash's bucket array.
  vesk::testing::ExpectThrowIfAllocationFails([&] { table.Put(10L, 1); });
  EXPECT_EQ(3u, table.GetBucketCount());
  EXPECT_EQ(3u, table.GetSize());
  EXPECT_FALSE(table.ContainsKey(10L));
}

TEST(StackQueueTest, StackOrderCapacityAndErrors) {
  CStack<int> stack(0, 4);
  EXPECT_THROW(stack.Pop(), CEmptyStackException);
  EXPECT_THROW(stack.Peek(), CEmptyStackException);
  for (int i = 0; i < 5; ++i) stack.Push(i);
  EXPECT_EQ(8u, stack.GetCapacity());
  EXPECT_EQ(4, stack.Peek());
  EXPECT_EQ(0, stack.GetElementAt(0));
  EXPECT_EQ(4, stack.Pop());
  EXPECT_EQ(3, stack.Pop());
  EXPECT_EQ(4u, stack.GetCapacity());
  stack.RemoveAll();
  EXPECT_TRUE(stack.IsEmpty());
  EXPECT_EQ(4u, stack.GetCapacity());
}

TEST(StackQueueTest, QueueWrapsAroundAndMatchesADeque) {
  std::mt19937 random(7);
  CQueue<std::vector<int>> queue(0, 3);
  std::vector<std::vector<int>> model;
  std::size_t head = 0;
  EXPECT_THROW(queue.Dequeue(), CEmptyQueueException);
  for (int step = 0; step < 5000; ++step) {
    if (random() % 3 != 0 || head == model.size()) {
      std::vector<int> item(random() % 4, step);
      queue.Enqueue(item);
      model.push_back(item);
    } else {
      ASSERT_EQ(model[head], queue.Peek());
      ASSERT_EQ(model[head++], queue.Dequeue());
    }
    ASSERT_EQ(model.size() - head, queue.GetSize());
    unsigned int size = queue.GetSize();
    unsigned int expected = size == 0 ? 3 : (size + 2) / 3 * 3;
    ASSERT_GE(queue.GetCapacity(), expected);
    if (size > 0) ASSERT_EQ(model.back(), queue.GetElementAt(size - 1));
  }
}

TEST(StackQueueTest, FailedGrowthKeepsTheElements) {
  CQueue<long> queue(0, 2);
  int failures = vesk_test::RunWithEveryAllocationFailing([&] {
    CQueue<long> local(0, 2);
    for (long i = 0; i < 9; ++i) local.Enqueue(i);
    local.Dequeue();
  });
  EXPECT_GT(failures, 3);
  queue.Enqueue(1);
  queue.Enqueue(2);
  vesk::testing::ExpectThrowIfAllocationFails([&] { queue.Enqueue(3); });
  EXPECT_EQ(2u, queue.GetSize());
  EXPECT_EQ(1, queue.Dequeue());
}

struct Record {
  int key;
  char payload[13];
};

int Key(int value) { return value; }
int Key(const Record& record) { return record.key; }

// Orders elements of type T by their Key.
template <class T>
class CKeyComparator : public IComparator {
 public:
  int Compare(const void* a, const void* b) const override {
    int x = Key(*static_cast<const T*>(a));
    int y = Key(*static_cast<const T*>(b));
    return x < y ? -1 : x > y;
  }
};

TEST(SortTest, SortsLikeTheStandardLibrary) {
  std::mt19937 random(99);
  for (int size : {0, 1, 2, 17, 100, 5000}) {
    for (int range : {3, 1000000}) {
      std::vector<int> values(size);
      for (int& v : values) v = static_cast<int>(random() % range);
      std::vector<int> expected = values;
      std::sort(expected.begin(), expected.end());
      qsort(values.data(), values.size(), sizeof(int), CKeyComparator<int>());
      ASSERT_EQ(expected, values);
    }
  }
  // Already sorted and reversed inputs, odd record width.
  std::vector<Record> records(3000);
  for (int i = 0; i < 3000; ++i) {
    records[i].key = 3000 - i;
    std::snprintf(records[i].payload, sizeof records[i].payload, "r%d", 3000 - i);
  }
  qsort(records.data(), records.size(), sizeof(Record), CKeyComparator<Record>());
  for (int i = 0; i < 3000; ++i) {
    ASSERT_EQ(i + 1, records[i].key);
    ASSERT_EQ("r" + std::to_string(i + 1), records[i].payload);
  }
  qsort(records.data(), records.size(), sizeof(Record), CKeyComparator<Record>());
  for (int i = 0; i < 3000; ++i) ASSERT_EQ(i + 1, records[i].key);
}

}  // namespace
