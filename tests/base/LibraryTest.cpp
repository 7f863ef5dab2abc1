#include <gtest/gtest.h>

#include "IO/IO.h"
#include "vesk/Library.h"

TEST(LibraryTest, InitializeAndTerminateNest) {
  ASSERT_EQ(0, IO::InitDepth());
  EXPECT_EQ(0, vesk::Terminate());  // without Initialize: nothing happens
  EXPECT_EQ(0, IO::InitDepth());

  EXPECT_EQ(1, vesk::Initialize());
  EXPECT_EQ(1, IO::InitDepth());
  EXPECT_EQ(2, vesk::Initialize());
  EXPECT_EQ(1, IO::InitDepth());  // nested calls only count
  EXPECT_EQ(1, vesk::Terminate());
  EXPECT_EQ(1, IO::InitDepth());  // still initialised
  EXPECT_EQ(0, vesk::Terminate());
  EXPECT_EQ(0, IO::InitDepth());
  EXPECT_EQ(0, vesk::Terminate());
}
