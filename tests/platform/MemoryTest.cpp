#include <thread>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "vesk/platform/Memory.h"

namespace platform = vesk::platform;

namespace {

// Each thread counts on its own; the totals must still add every thread's
// attempts and blocks, including threads that have ended, and fault
// injection armed in one thread must count the attempts of all.
TEST(Memory, CountsAndFaultInjectionSpanThreads) {
  vesk::testing::FaultGuard guard;
  unsigned long attempts = platform::AllocationCount();
  long live = platform::LiveAllocations();
  void* kept[2] = {nullptr, nullptr};
  std::thread([&] {
    kept[0] = platform::Alloc(8);
    kept[1] = platform::Alloc(8);
    platform::Free(platform::Alloc(8));
  }).join();
  EXPECT_EQ(platform::AllocationCount() - attempts, 3u);
  EXPECT_EQ(platform::LiveAllocations() - live, 2);
  // Blocks freed by another thread than the one that made them.
  platform::Free(kept[0]);
  platform::Free(kept[1]);
  EXPECT_EQ(platform::LiveAllocations(), live);

  bool got[4] = {};
  platform::FailAllocationAt(2);
  std::thread([&] {
    for (bool& g : got) {
      void* p = platform::Alloc(8);
      g = p != nullptr;
      platform::Free(p);
    }
  }).join();
  EXPECT_TRUE(got[0] && !got[1] && got[2] && got[3]);
  void* block = platform::Alloc(8);
  platform::FailAllocationAt(1, true);
  std::thread([&] {
    got[0] = platform::Alloc(8) != nullptr || platform::Realloc(block, 16) != nullptr;
  }).join();
  EXPECT_FALSE(got[0]);
  platform::FailAllocationAt(0);
  platform::Free(block);
  EXPECT_EQ(platform::AllocationCount() - attempts, 3u + 4u + 3u);
  EXPECT_EQ(platform::LiveAllocations(), live);
}

}  // namespace
