#include <gtest/gtest.h>
TEST(SyncObjectTest, Placeholder) {}
