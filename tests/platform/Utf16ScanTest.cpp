#include <vector>

#include <gtest/gtest.h>

#if !defined(_WIN32)
#include <sys/mman.h>
#include <unistd.h>
#endif

#include "vesk/platform/Utf16.h"

namespace platform = vesk::platform;

namespace {

// The length scans read whole aligned blocks: every start alignment, zero
// position and bound must still give the unit-by-unit answer.
TEST(Utf16ScanTest, LengthsAtEveryAlignmentAndBound) {
  std::vector<unsigned short> units(96, 'a');
  for (unsigned int start = 0; start < 9; ++start)
    for (unsigned int zero = start; zero < 64; ++zero) {
      units.assign(96, 'a');
      units[zero] = 0;
      units[95] = 0;
      const unsigned short* text = units.data() + start;
      ASSERT_EQ(platform::Utf16Length(text), zero - start);
      for (unsigned int bound = 0; bound < 72; ++bound) {
        unsigned int expected = zero - start < bound ? zero - start : bound;
        ASSERT_EQ(platform::Utf16LengthBounded(text, bound), expected) << start << ' ' << zero << ' ' << bound;
      }
    }
  EXPECT_EQ(platform::Utf16Length(nullptr), 0u);
  EXPECT_EQ(platform::Utf16LengthBounded(nullptr, 5), 0u);
}

#if !defined(_WIN32)
// Units without a zero that end where the readable memory ends: the
// bounded scan stops at its bound without touching the next page.
TEST(Utf16ScanTest, BoundedScanStaysOnTheTextsPages) {
  long page = sysconf(_SC_PAGESIZE);
  char* pages = static_cast<char*>(mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  ASSERT_NE(pages, MAP_FAILED);
  ASSERT_EQ(mprotect(pages + page, page, PROT_NONE), 0);
  unsigned short* end = reinterpret_cast<unsigned short*>(pages + page);
  for (unsigned int count = 1; count < 20; ++count) {
    for (unsigned int i = 1; i <= count; ++i) end[-static_cast<int>(i)] = 'x';
    EXPECT_EQ(platform::Utf16LengthBounded(end - count, count), count);
  }
  munmap(pages, 2 * page);
}
#endif

}  // namespace
