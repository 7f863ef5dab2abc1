#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/base/MemoryException.h"
#include "vesk/base/internal/FixBlockAllocator.h"
#include "vesk/platform/Memory.h"

using vesk::base::CFixBlockAllocator;
namespace platform = vesk::platform;
using vesk::testing::ExpectThrowIfAllocationFails;
using vesk::testing::FaultGuard;

namespace {

TEST(FixBlockAllocator, FirstAllocationGrowsByFourAndKeepsThree) {
  CFixBlockAllocator pool(100, 4);
  long live = platform::LiveAllocations();
  pool.Free(nullptr);  // a null free and destroying an empty pool do nothing
  pool.Destroy();
  EXPECT_EQ(0u, pool.GetUsedCount());
  EXPECT_EQ(0u, pool.GetFreeCount());
  EXPECT_EQ(live, platform::LiveAllocations());
  unsigned long before = platform::AllocationCount();
  void* p = pool.Allocate();
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(4u, platform::AllocationCount() - before);
  EXPECT_EQ(4, platform::LiveAllocations() - live);
  EXPECT_EQ(1u, pool.GetUsedCount());
  EXPECT_EQ(3u, pool.GetFreeCount());
  std::memset(p, 0xAB, 100);  // the whole payload is ours (ASan checks)
  // The next three come from the reserve without touching the heap.
  void* more[3];
  for (void*& q : more) q = pool.Allocate();
  EXPECT_EQ(4u, platform::AllocationCount() - before);
  EXPECT_EQ(0u, pool.GetFreeCount());
  pool.Allocate();
  EXPECT_EQ(8u, platform::AllocationCount() - before);
  EXPECT_EQ(3u, pool.GetFreeCount());
  pool.Destroy();
  EXPECT_EQ(0u, pool.GetUsedCount() + pool.GetFreeCount());
  EXPECT_EQ(live, platform::LiveAllocations());
}

TEST(FixBlockAllocator, ShrinkReleasesHalfTheExcessInSinglePrecision) {
  CFixBlockAllocator pool(16, 4);
  long live = platform::LiveAllocations();
  std::vector<void*> blocks;
  for (int i = 0; i < 40; ++i) blocks.push_back(pool.Allocate());
  // 28 of 40 in use is exactly 0.7 in single precision: not below, no trim.
  for (int i = 0; i < 12; ++i) pool.Free(blocks[i]);
  EXPECT_EQ(12u, pool.GetFreeCount());
  // 27 of 40: an excess of 9 over the grow count; 5 go back, 8 stay.
  pool.Free(blocks[12]);
  EXPECT_EQ(8u, pool.GetFreeCount());
  EXPECT_EQ(27u, pool.GetUsedCount());
  // Then the reserve rises by one per free until the next trim halves the
  // excess (settled at 5: a free brings 6, an excess of 2 of which 1 goes);
  // the heap holds exactly the pool's blocks throughout.
  const unsigned int expectedFree[27] = {9, 10, 7, 8, 9, 7, 8, 6, 7, 6, 5, 6, 5, 5,
                                         5, 5,  5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 5};
  for (int i = 13; i < 40; ++i) {
    pool.Free(blocks[i]);
    EXPECT_EQ(expectedFree[i - 13], pool.GetFreeCount()) << "after free " << i + 1;
    EXPECT_EQ(static_cast<long>(pool.GetFreeCount() + pool.GetUsedCount()),
              platform::LiveAllocations() - live);
  }
  EXPECT_EQ(0u, pool.GetUsedCount());
}

TEST(FixBlockAllocator, UsedListSurvivesFreeingInAnyOrder) {
  CFixBlockAllocator pool(8, 4);
  long live = platform::LiveAllocations();
  void* a = pool.Allocate();
  void* b = pool.Allocate();
  void* c = pool.Allocate();
  pool.Free(b);  // middle of the used list
  pool.Free(c);  // head
  void* d = pool.Allocate();
  EXPECT_EQ(c, d);  // the most recently returned block comes back first
  pool.Free(a);     // tail
  pool.Free(d);
  EXPECT_EQ(0u, pool.GetUsedCount());
  EXPECT_EQ(4u, pool.GetFreeCount());  // a reserve of the grow count is never trimmed
  pool.Destroy();
  EXPECT_EQ(live, platform::LiveAllocations());
}

TEST(FixBlockAllocator, PartialGrowthIsAbsorbedAndTotalFailureThrows) {
  FaultGuard guard;
  CFixBlockAllocator pool(32, 4);
  long live = platform::LiveAllocations();
  platform::FailAllocationAt(3);  // the third block of the growth fails
  void* p = pool.Allocate();
  platform::FailAllocationAt(0);
  ASSERT_NE(nullptr, p);
  EXPECT_EQ(1u, pool.GetUsedCount());
  EXPECT_EQ(1u, pool.GetFreeCount());
  pool.Allocate();  // from the reserve, no heap call
  ExpectThrowIfAllocationFails([&] { pool.Allocate(); }, nullptr, "vesk/base/FixBlockAllocator",
                               true);
  EXPECT_EQ(2u, pool.GetUsedCount());
  EXPECT_EQ(0u, pool.GetFreeCount());
  pool.Destroy();
  EXPECT_EQ(live, platform::LiveAllocations());
}

TEST(FixBlockAllocator, ClosedPoolPassesBlocksThroughToTheHeap) {
  CFixBlockAllocator pool(32, 4);
  long live = platform::LiveAllocations();
  void* kept = pool.Allocate();
  pool.Close();
  EXPECT_EQ(0u, pool.GetFreeCount());
  EXPECT_EQ(1, platform::LiveAllocations() - live);
  std::memset(kept, 1, 32);  // still valid after closing
  void* late = pool.Allocate();
  EXPECT_EQ(2, platform::LiveAllocations() - live);
  pool.Free(late);
  pool.Free(kept);
  EXPECT_EQ(0u, pool.GetFreeCount());
  EXPECT_EQ(live, platform::LiveAllocations());
}

TEST(FixBlockAllocator, ThreadsShareOnePool) {
  CFixBlockAllocator pool(24, 4);
  long live = platform::LiveAllocations();
  auto work = [&pool](unsigned char mark) {
    std::vector<unsigned char*> held;
    for (int round = 0; round < 2000; ++round) {
      for (int i = 0; i < 5; ++i) {
        unsigned char* p = static_cast<unsigned char*>(pool.Allocate());
        std::memset(p, mark, 24);
        held.push_back(p);
      }
      for (unsigned char* p : held) {
        for (int i = 0; i < 24; ++i) ASSERT_EQ(mark, p[i]);
        pool.Free(p);
      }
      held.clear();
    }
  };
  std::thread t1(work, 1), t2(work, 2);
  work(3);
  t1.join();
  t2.join();
  EXPECT_EQ(0u, pool.GetUsedCount());
  EXPECT_EQ(static_cast<long>(pool.GetFreeCount()), platform::LiveAllocations() - live);
  pool.Destroy();
}

}  // namespace
